#include "engine/EngineRun.h"

#include "basic/ModelName.h"
#include "engine/DataFileRun.h"
#include "engine/OutputFiles.h"

namespace korvel::engine {

namespace {

RunControl readRunControl(const std::string& folder) {
    const auto control = parseRunControl(readFile(folder + "/RUNDAT.TMP"));
    if (const DataError* error = std::get_if<DataError>(&control))
        throw FileProblem{"RUNDAT.TMP, line " + std::to_string(error->line) + ": " + error->message};
    return std::get<RunControl>(control);
}

// How many failed.
std::size_t runAll(const RunControl& control, Screen& screen) {
    std::size_t failed = 0;
    const std::size_t count = control.requests.size();
    for (std::size_t i = 0; i < count; ++i) {
        const RunRequest& request = control.requests[i];
        screen.beginFile();
        if (!control.batchTitle.empty())
            screen.line("File " + std::to_string(i + 1) + " of " + std::to_string(count) + ": " +
                        fileOf(request.dataFile));
        if (!runDataFile(request, control.batchTitle, screen)) ++failed;
    }
    return failed;
}

} // namespace

int runEngine(const std::string& folder, std::ostream& output) {
    Screen screen(output);
    screen.line(engineName);
    try {
        const RunControl control = readRunControl(folder);
        const std::size_t failed = runAll(control, screen);
        if (failed == 0) screen.line("Finished.");
        if (failed > 0 && control.requests.size() > 1)
            screen.line(std::to_string(failed) + " of " + std::to_string(control.requests.size()) +
                        " files failed.");
        return failed == 0 ? 0 : 1;
    } catch (const FileProblem& problem) {
        screen.line("ERROR: " + problem.message);
        return 1;
    }
}

} // namespace korvel::engine
