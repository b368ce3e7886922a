#include "commands/CommandLine.h"
#include "commands/CommandList.h"
#include "commands/StudyCall.h"
#include "explore/StudyFile.h"
#include "many/FinishedRuns.h"

#include <algorithm>

namespace korvel {

namespace {

const char* const help =
    "Usage: korvel explore [FILE.SGR... | FILE.korvel-study | PLAN.csv]\n\n"
    "Opens a window in which any river of the catchment is looked at after a run, up to 12 runs side by\n"
    "side, held against targets and samples. The first file is the base. A study file brings runs, path\n"
    "and view; a plan (.csv) stands for its first 12 finished runs. Without a file the window asks.\n";

std::vector<std::string> filesOf(const CommandLine& line) {
    const std::vector<std::string>& operands = line.operands();
    if (operands.empty()) return {};
    const bool hasStudy = std::ranges::any_of(operands, isStudyFile);
    if (!hasStudy) {
        std::vector<std::string> files = studyFiles(line, AnyPlan);
        files.resize(std::min(files.size(), MaxRuns));
        return files;
    }
    if (operands.size() > 1) throw UsageError("a study file stands alone");
    return {modelNameOfTyped(operands.front())};
}

int runExplore(CommandCall& call) {
    const std::vector<std::string> files = filesOf(CommandLine(call.arguments, {}));
    if (!call.showExplorer) throw UsageError("there is no display here");
    return call.showExplorer(files);
}

} // namespace

const Command exploreCommand = {"explore", "look at runs side by side, in a window", help, runExplore};

} // namespace korvel
