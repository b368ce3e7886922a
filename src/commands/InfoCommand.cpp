#include "commands/CommandLine.h"
#include "commands/CommandList.h"
#include "commands/InfoReport.h"
#include "global/GLOBAL.h"
#include "results/LoadResultsFile.h"

#include <algorithm>

namespace korvel {

namespace {

const char* const help =
    "Usage: korvel info FILE.SGR [--against FILE.SGR | --again FILE.SGR]... [--points] [--values] "
    "[--json]\n\n"
    "Loads a results file and prints what it holds.\n\n"
    "  --against FILE   then load this file as the second data set, checked against the first\n"
    "  --again FILE     then load this file as the first data set\n"
    "  --points         list the plotting points\n"
    "  --values         list the values at every point\n"
    "  --json           print one JSON object\n\n"
    "--against and --again may be repeated and are done in turn. The exit status is 1 where the last load "
    "fails.\n";

LoadReport load(CommandCall& call, int slot, const std::string& file) {
    GLOBAL.currentSlot = slot;
    GLOBAL.fileNames[slot] = modelNameOfTyped(file);
    LoadResultsFile(call.platform, true);
    return {slot, file, GLOBAL.loadFailed, call.dialogs.takeMessages()};
}

int runInfo(CommandCall& call) {
    using Kind = CommandOption::Kind;
    const CommandLine line(call.arguments, {{"--against", Kind::withValue},
                                            {"--again", Kind::withValue},
                                            {"--points", Kind::flag},
                                            {"--values", Kind::flag},
                                            {"--json", Kind::flag}});
    std::vector<LoadReport> loads = {load(call, 0, line.onlyOperand("results file"))};
    for (const GivenOption& option : line.given()) {
        if (option.name == "--against") loads.push_back(load(call, 1, option.value));
        if (option.name == "--again") loads.push_back(load(call, 0, option.value));
    }
    const bool failed = loads.back().loadFailed;
    const InfoReport report{std::move(loads), RESULTS, GLOBAL.plotInterpolatedPoints, line.has("--points"),
                            line.has("--values")};
    line.has("--json") ? printInfoJson(report, call.out) : printInfoText(report, call.out);
    return failed ? exitStatus::failed : exitStatus::done;
}

} // namespace

const Command infoCommand = {"info", "what a results file holds", help, runInfo};

int lastSeries(const ResultsDataSet& results) {
    return 2 * std::clamp(results.determinandCount, 0, MaxDeterminands);
}

} // namespace korvel
