#include "analysis/ProfileTable.h"
#include "analysis/RunDatabase.h"
#include "analysis/TidyTable.h"
#include "commands/CommandList.h"
#include "commands/RunsInTurn.h"
#include "commands/StudyCall.h"
#include "commands/StudyLists.h"

namespace korvel {

namespace {

const std::string help =
    std::string("Usage: korvel table FILE.SGR... [OPTION]...\n\n"
                "Writes one row a run, point, series and statistic, for other programs.\n"
                "A plan (.csv) in place of the files stands for its finished runs.\n\n"
                "  --series LIST       positions from 0 (the flow) or names; all where not given\n"
                "  --statistics LIST   some of " +
                statisticNames() +
                "; all where not given\n"
                "  --reaches LIST      all, none, or reach numbers: 1,2,7\n"
                "  --interpolated      auto-interpolated points, too\n") +
    outputHelp(22, TableUse::allValues);

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
    std::vector<std::string> names() const { return inTurn ? inTurn->names() : namesOf(study); }
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

// Of each run once, however often it is asked for.
RunSequence withWarnings(CommandCall& call, const RunSequence& runs) {
    const auto next = std::make_shared<std::size_t>(0);
    return {runs.count, [&call, runs, next](std::size_t k) {
                StudyRun run = runs.run(k);
                if (k == *next) warnOfCircles(call, run);
                *next = std::max(*next, k + 1);
                return run;
            }};
}

Taken takenOf(const CommandLine& line, const TableRuns& runs, const TidyRequest& request) {
    Taken taken = takenFrom("All values", runs.names());
    taken.facts.push_back({"Series", seriesText(request.series, runs.base().results())});
    taken.facts.push_back({"Statistics", statisticsText(request.statistics)});
    taken.facts.push_back({"Reaches", line.value("--reaches").value_or("all")});
    taken.facts.push_back({"Interpolated points", request.interpolated ? "taken, too" : "left out"});
    return taken;
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
    const OutputChoice output = outputChoice(call.platform.files, line, files, TableUse::allValues);
    const TableRuns runs = takeRuns(call, line, files);
    request.series = seriesChosen(line.value("--series"), runs.base().results());
    request.reaches = reachesChosen(line.value("--reaches").value_or("all"), runs.base().reaches());
    const RunSequence sequence = withWarnings(call, runs.sequence());
    deliver(call, output,
            {{},
             {},
             tidyTable(sequence, request),
             takenOf(line, runs, request),
             runDatabaseContent(sequence, request),
             mainRiverProfile(sequence, runs.base(), request, MaxRuns)});
    return exitStatus::done;
}

} // namespace

const Command tableCommand = {"table", "all values as rows for other programs", help.c_str(), runTable};

} // namespace korvel
