#include "analysis/TidyTable.h"
#include "commands/CommandList.h"
#include "commands/RunsInTurn.h"
#include "commands/StudyCall.h"
#include "commands/StudyLists.h"

namespace korvel {

namespace {

const char* const help =
    "Usage: korvel table FILE.SGR... [OPTION]...\n\n"
    "Writes one row a run, point, series and statistic, for other programs.\n"
    "A plan (.csv) in place of the files stands for its finished runs.\n\n"
    "  --series LIST       positions from 0 (the flow) or names; all where not given\n"
    "  --statistics LIST   some of mean,90,95,99; all where not given\n"
    "  --reaches LIST      all, none, or reach numbers: 1,2,7\n"
    "  --interpolated      auto-interpolated points, too\n"
    "  --format FORMAT     csv or json; by the output's extension where not given, else csv\n"
    "  --output FILE       the file to write; the standard output where not given\n";

// In a file with circles nothing has a way to the mouth.
void warnOfCircles(CommandCall& call, const StudyRun& run) {
    if (const auto circles = circlesIn(networkOf(*run.file), *run.file))
        call.dialogs.show({run.name + ": " + *circles + "; to_mouth stays empty.", "Network",
                           Icon::exclamation, Buttons::ok});
}

// Runs that were read before, and those of a plan, which may be thousands.
struct TableRuns {
    Study study;
    std::optional<RunsInTurn> inTurn;

    const StudyRun& base() const { return inTurn ? inTurn->base() : study.base(); }
    RunSequence sequence() const { return inTurn ? inTurn->sequence() : sequenceOf(study); }
};

TableRuns takeRuns(CommandCall& call, const CommandLine& line, const std::vector<std::string>& files) {
    TableRuns runs;
    if (namesPlan(line))
        runs.inTurn.emplace(call, files);
    else
        runs.study = takeStudy(call, files);
    return runs;
}

RunSequence withWarnings(CommandCall& call, const RunSequence& runs) {
    return {runs.count, [&call, runs](std::size_t k) {
                StudyRun run = runs.run(k);
                warnOfCircles(call, run);
                return run;
            }};
}

int runTable(CommandCall& call) {
    using Kind = CommandOption::Kind;
    const CommandLine line(call.arguments, {{"--series", Kind::withValue},
                                            {"--statistics", Kind::withValue},
                                            {"--reaches", Kind::withValue},
                                            {"--interpolated", Kind::flag},
                                            {"--format", Kind::withValue},
                                            {"--output", Kind::withValue}});
    TidyRequest request;
    request.statistics = statisticsChosen(line.value("--statistics"));
    request.interpolated = line.has("--interpolated");
    const std::vector<std::string> files = studyFiles(line, AnyPlan);
    const OutputChoice output = outputChoice(line, files, TextAllowed::no);
    const TableRuns runs = takeRuns(call, line, files);
    request.series = seriesChosen(line.value("--series"), runs.base().results());
    request.reaches = reachesChosen(line.value("--reaches").value_or("all"), runs.base().reaches());
    deliver(call, output, {{}, {}, tidyTable(withWarnings(call, runs.sequence()), request)});
    return exitStatus::done;
}

} // namespace

const Command tableCommand = {"table", "all values as rows for other programs", help, runTable};

} // namespace korvel
