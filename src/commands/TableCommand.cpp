#include "analysis/TidyTable.h"
#include "commands/CommandList.h"
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
void warnOfCircles(CommandCall& call, const Study& study) {
    for (const StudyRun& run : study.runs())
        if (const auto circles = circlesIn(networkOf(*run.file), *run.file))
            call.dialogs.show({run.name + ": " + *circles + "; to_mouth stays empty.", "Network",
                               Icon::exclamation, Buttons::ok});
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
    const std::vector<std::string> files = studyFiles(line, {});
    const OutputChoice output = outputChoice(line, files, TextAllowed::no);
    const Study study = takeStudy(call, files);
    request.series = seriesChosen(line.value("--series"), study.base().results());
    request.reaches = reachesChosen(line.value("--reaches").value_or("all"), study.base().reaches());
    warnOfCircles(call, study);
    deliver(call, output, {{}, {}, tidyTable(sequenceOf(study), request)});
    return exitStatus::done;
}

} // namespace

const Command tableCommand = {"table", "all values as rows for other programs", help, runTable};

} // namespace korvel
