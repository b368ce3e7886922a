#include "engine/DataFileRun.h"

#include "basic/DiskNames.h"
#include "basic/LineOutput.h"
#include "basic/ModelName.h"
#include "basic/Text.h"
#include "engine/CatchmentParser.h"
#include "engine/GraphResultsFile.h"
#include "engine/NumberText.h"
#include "engine/OutputFiles.h"
#include "engine/RunTypes.h"
#include "engine/TextReports.h"

#include <algorithm>
#include <utility>

namespace korvel::engine {

namespace {

// "line 12: " or nothing, and the message.
std::string errorText(const DataError& error) {
    return (error.line > 0 ? ", line " + std::to_string(error.line) + ": " : ": ") + error.message;
}

template <typename T>
T valueOrThrow(std::variant<T, DataError> result, const std::string& file) {
    if (const DataError* error = std::get_if<DataError>(&result)) throw FileProblem{file + errorText(*error)};
    return std::get<T>(std::move(result));
}

class DataFileRun {
  public:
    DataFileRun(const RunRequest& request, const std::string& batchTitle, Screen& screen)
        : m_request(request), m_plan(runPlan(request.runType)), m_screen(screen) {
        screen.line("Data file: " + request.dataFile);
        if (!batchTitle.empty()) screen.line("Batch:     " + batchTitle);
        screen.line("Run type:  " + std::to_string(request.runType) + ", " + m_plan.name);
    }

    void run() {
        const std::string text = readFile(hostPathOf(m_request.dataFile));
        m_catchment = valueOrThrow(parseCatchment(text), fileOf(m_request.dataFile));
        tellSize();
        const RiverModel model(m_catchment);
        useKeptFills();
        for (const GapSearch what : m_plan.searches)
            search(model, what);
        write(calculate(model));
    }

  private:
    void tellSize() {
        const auto count = [](std::size_t number, const char* what) {
            return std::to_string(number) + ' ' + what;
        };
        m_screen.line("Title:     " + m_catchment.settings.title);
        m_screen.line("           " + count(m_catchment.reaches.size(), "reaches, ") +
                      count(m_catchment.features.size(), "features, ") +
                      count(m_catchment.determinands.size(), "determinands, ") +
                      std::to_string(m_catchment.settings.shots) + " shots");
    }

    void useKeptFills() {
        if (!m_plan.usesKeptFlows) return;
        const std::string path = outputPath("GAP");
        if (!fileExists(path))
            return m_screen.line(
                "No gap filling is kept for this data file (run types 1, 3, 5 and 6 keep it).");
        m_fills = valueOrThrow(parseGapFills(readFile(path), m_catchment), fileOf(outputName("GAP")));
        // A run that works out the quality anew starts without the old one.
        if (!m_plan.usesKeptQualities) m_fills.qualities.clear();
        m_screen.line("Gap filling used: " + std::to_string(m_fills.flows.size()) + " of flow, " +
                      std::to_string(m_fills.qualities.size()) + " of quality");
    }

    void search(const RiverModel& model, GapSearch what) {
        m_screen.line(what == GapSearch::flows ? "Gap filling of river flows"
                                               : "Gap filling of water quality");
        model.search(what, m_fills, progress());
    }

    ModelResult calculate(const RiverModel& model) {
        m_screen.line("Simulation");
        if (!m_plan.standards) return model.run(m_fills, nullptr, progress());
        EffluentStandards standards(m_catchment, *m_plan.standards);
        ModelResult result = model.run(m_fills, &standards, progress());
        tellStandards(result.standards);
        return result;
    }

    void tellStandards(const std::vector<EffluentStandard>& standards) {
        const auto number = [&](auto&& isCounted) {
            return std::to_string(std::count_if(standards.begin(), standards.end(), isCounted));
        };
        m_screen.line(
            "Effluent standards: " +
            number([](const EffluentStandard& item) { return item.standard < item.present; }) + " tighter, " +
            number([](const EffluentStandard& item) { return item.standard > item.present; }) + " looser, " +
            number([](const EffluentStandard& item) { return !item.meets(); }) + " miss their target");
    }

    ReachProgress progress() {
        const std::string count = std::to_string(m_catchment.reaches.size());
        return [this, count](std::size_t place, const Reach& reach) {
            m_screen.line("Reach " + rightAligned(std::to_string(place), count.size()) + " of " + count +
                          ": " + reach.name);
        };
    }

    std::string title() const {
        return "Demonstration engine, run " + std::to_string(m_request.runType) + ": " +
               m_catchment.settings.title;
    }

    void write(const ModelResult& result) {
        const Report report{m_catchment, result, m_fills, title() + " (" + m_plan.name + ")"};
        OutputFiles files;
        addOutput(files, "SGR", graphResultsText(m_catchment, result, title()));
        addOutput(files, "OUT", detailedOutput(report));
        addOutput(files, "LOD", loadReport(report));
        addOutput(files, "SUM", sourcesAndSinksReport(report));
        if (!m_plan.searches.empty())
            addOutput(files, "GAP", gapFillsText(m_fills, m_catchment.settings.title));
        m_screen.line("Written: " + baseOf(m_request.dataFile) + " .SGR .OUT .LOD .SUM .SCN, " +
                      std::to_string(result.points.size()) + " plotting points");
        addOutput(files, "SCN", screenCopy());
        files.commit();
    }

    std::string screenCopy() const {
        LineOutput output;
        output.line(engineName);
        for (const std::string& line : m_screen.lines())
            output.line(line);
        return output.text();
    }

    void addOutput(OutputFiles& files, const char* extension, const std::string& text) const {
        files.add(outputPath(extension), text);
    }

    std::string outputName(const char* extension) const {
        return inFolder(folderOf(m_request.dataFile), baseOf(m_request.dataFile) + '.' + extension);
    }
    std::string outputPath(const char* extension) const { return hostPathOf(outputName(extension)); }

    const RunRequest& m_request;
    const RunPlan& m_plan;
    Screen& m_screen;
    Catchment m_catchment;
    GapFills m_fills;
};

} // namespace

std::string baseOf(const std::string& dataFile) {
    const std::string file = upperCase(fileOf(dataFile));
    return last(file, 4) == ".DAT" ? withoutLast(file, 4) : file;
}

bool runDataFile(const RunRequest& request, const std::string& batchTitle, Screen& screen) {
    try {
        DataFileRun(request, batchTitle, screen).run();
        return true;
    } catch (const FileProblem& problem) {
        screen.line("ERROR: " + problem.message);
    } catch (const std::exception& failure) {
        // Short of memory, for one: the other files of a batch may still do.
        screen.line("ERROR: " + fileOf(request.dataFile) + ": " + failure.what());
    }
    return false;
}

} // namespace korvel::engine
