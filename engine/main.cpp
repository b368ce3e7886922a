// The demonstration engine: runs what RUNDAT.TMP in the current folder asks for.
#include "engine/DataFileRun.h"
#include "engine/OutputFiles.h"

#include "basic/ModelName.h"

#include <iostream>

namespace {

using namespace engine;

RunControl readRunControl() {
    const auto control = parseRunControl(readFile("RUNDAT.TMP"));
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
        screen.takeLines();
        if (!control.batchTitle.empty())
            screen.line("File " + std::to_string(i + 1) + " of " + std::to_string(count) + ": " +
                        fileOf(request.dataFile));
        if (!runDataFile(request, control.batchTitle, screen)) ++failed;
    }
    return failed;
}

int run(Screen& screen) {
    const RunControl control = readRunControl();
    const std::size_t failed = runAll(control, screen);
    if (failed == 0) screen.line("Finished.");
    if (failed > 0 && control.requests.size() > 1)
        screen.line(std::to_string(failed) + " of " + std::to_string(control.requests.size()) +
                    " files failed.");
    return failed == 0 ? 0 : 1;
}

} // namespace

int main() {
    Screen screen(std::cout);
    screen.line(engineName);
    try {
        return run(screen);
    } catch (const FileProblem& problem) {
        screen.line("ERROR: " + problem.message);
        return 1;
    }
}
