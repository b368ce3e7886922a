// What the demonstration engine reads: a data file and, behind a byte 1E, its gap filling; the whole as a
// run-control file, too. A catchment that is accepted and small is run, and its results file must load.
#include "engine/CatchmentParser.h"
#include "engine/GapFills.h"
#include "engine/GraphResultsFile.h"
#include "engine/RunControl.h"
#include "engine/TextReports.h"
#include "fuzz/ResultsFuzz.h"

#include <cmath>

namespace korvel {

using namespace engine;

namespace {

constexpr char between = '\x1E';

void requireError(const DataError& error, const std::string& text) {
    const auto lines = std::ranges::count(text, '\n') + 1;
    require(error.line >= 0 && error.line <= lines, "an error names a line of the file");
    require(!error.message.empty() && error.message.find('\n') == std::string::npos, "and says why");
}

// The value, or nothing where the error is one that may be.
template <typename T>
std::optional<T> valueOf(std::variant<T, DataError> read, const std::string& text) {
    if (const auto* error = std::get_if<DataError>(&read)) {
        requireError(*error, text);
        return std::nullopt;
    }
    return std::get<T>(std::move(read));
}

void requireRunControl(const std::string& text) {
    const auto control = valueOf(parseRunControl(text), text);
    if (!control) return;
    require(!control->requests.empty(), "a run-control file asks for a run");
    for (const RunRequest& request : control->requests)
        require(!request.dataFile.empty() && request.runType >= 0 && request.runType <= 9,
                "a run has a data file and a type");
}

void requireCatchment(const Catchment& catchment) {
    require(!catchment.settings.title.empty() && !catchment.reaches.empty(), "a catchment has reaches");
    const auto determinands = catchment.determinands.size();
    require(determinands >= 1 && determinands <= maxDeterminands, "and determinands");
    for (const Reach& reach : catchment.reaches)
        require(reach.next == 0 || catchment.findReach(reach.next), "every next reach is there");
    for (const Feature& feature : catchment.features) {
        const Reach* reach = catchment.findReach(feature.reach);
        require(reach && feature.distance >= 0 && feature.distance <= reach->length,
                "every feature lies in its reach");
    }
}

GapFills fillsOf(const std::string& text, const Catchment& catchment) {
    const auto fills = valueOf(parseGapFills(text, catchment), text);
    if (!fills) return {};
    const std::string written = gapFillsText(*fills, "title");
    const auto again = parseGapFills(written, catchment);
    require(std::holds_alternative<GapFills>(again), "gap filling that was written is read");
    require(gapFillsText(std::get<GapFills>(again), "title") == written, "and is the same");
    return *fills;
}

bool isSmall(const Catchment& catchment) {
    double points = 2 * static_cast<double>(catchment.features.size());
    for (const Reach& reach : catchment.reaches)
        points += 3 + (catchment.settings.spacing > 0 ? reach.length / catchment.settings.spacing : 0);
    return points < 60;
}

void requireRun(Catchment catchment, GapFills fills) {
    catchment.settings.shots = 20;
    const RiverModel model(catchment);
    const ReachProgress ignored = [](std::size_t, const Reach&) {};
    model.search(GapSearch::flows, fills, ignored);
    model.search(GapSearch::qualities, fills, ignored);
    EffluentStandards standards(catchment, StandardsRule::meetTargets);
    const ModelResult result = model.run(fills, &standards, ignored);
    ResultsDataSet results;
    const Load made = load(TextSource(graphResultsText(catchment, result, "title")), results, 0);
    require(made.ending == Ending::loaded, "the engine's results file loads");
    require(results.pointCount == static_cast<int>(result.points.size()), "with all its points");
    const Report report{catchment, result, fills, "title"};
    require(!detailedOutput(report).empty() && !loadReport(report).empty() &&
                !sourcesAndSinksReport(report).empty(),
            "and there are reports");
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text = textOf(data, size);
    requireRunControl(text);
    const std::size_t cut = std::min(text.find(between), text.size());
    const std::string file = text.substr(0, cut);
    const auto catchment = valueOf(parseCatchment(file), file);
    if (!catchment) return 0;
    requireCatchment(*catchment);
    const GapFills fills = fillsOf(cut < text.size() ? text.substr(cut + 1) : "", *catchment);
    if (isSmall(*catchment)) requireRun(*catchment, fills);
    return 0;
}

} // namespace korvel
