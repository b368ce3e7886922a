#include "commands/CommandList.h"
#include "commands/FitText.h"
#include "commands/StudyCall.h"
#include "commands/StudyLists.h"
#include "tables/TextRows.h"

#include <algorithm>

namespace korvel {

namespace {

const std::string help =
    std::string("Usage: korvel fit FILE.SGR... [OPTION]...\n\n"
                "Holds each run against what was observed, across the points with observed values.\n"
                "A plan (.csv) in place of the files stands for its finished runs.\n\n"
                "  --series LIST       positions from 0 (the flow) or names, no loads; flow and "
                "concentrations where\n"
                "                      not given\n"
                "  --statistics LIST   some of " +
                statisticNames() +
                "; all where not given\n"
                "  --reaches LIST      all, none, or reach numbers: 1,2,7\n"
                "  --by WHAT           whole (where not given), river, reach or point\n") +
    outputHelp(22);

struct Call {
    Study study;
    FitRequest request;
    std::string by;
};

Table tableOf(const Call& call, const StudyRun& run) {
    if (call.by == "river") return fitByRiver(run, riverNetwork(run), call.request);
    if (call.by == "reach") return fitByReach(run, call.request);
    if (call.by == "point") return fitByPoint(run, call.request);
    return fitOfWhole(run, call.request);
}

TableReport reportOf(const Call& call) {
    TableReport report;
    for (const StudyRun& run : call.study.runs()) {
        report.runs.emplace_back();
        report.runs.back().facts = {{{"run"}, run.name, true}};
        report.runs.back().lists = {tableOf(call, run)};
    }
    return report;
}

Taken takenOf(const CommandLine& line, const Call& call) {
    Taken told = takenFrom("Fit to what was observed", namesOf(call.study));
    told.facts.push_back({"Series", seriesText(call.request.series, call.study.base().results())});
    told.facts.push_back({"Statistics", statisticsText(call.request.statistics)});
    told.facts.push_back({"Reaches", line.value("--reaches").value_or("all")});
    told.notes = [&call](TextPage& page) { describeFit(page, call.study.base(), call.request); };
    return told;
}

void showText(TextPage& page, const Call& call) {
    for (const StudyRun& run : call.study.runs()) {
        describeFit(page, run, call.request);
        const auto whole = fitRows(run, {wholeGroup(*run.file, call.request.reaches)}, call.request);
        if (!whole.empty()) page.table(textTable(tableOf(call, run)));
        concludeFit(page, run, whole);
    }
}

std::vector<int> givenSeries(const CommandLine& line, const ResultsDataSet& results) {
    std::vector<int> series = seriesChosen(line.value("--series"), results);
    const auto load = std::ranges::find_if(series, [&](int c) { return isLoad(results, c); });
    if (line.has("--series") && load != series.end())
        throw UsageError("'" + results.seriesNames[*load] + "' is a load, which was not observed");
    series.erase(load, series.end());
    return series;
}

int runFit(CommandCall& call) {
    using Kind = CommandOption::Kind;
    const CommandLine line(call.arguments, {{"--series", Kind::withValue},
                                            {"--statistics", Kind::withValue},
                                            {"--reaches", Kind::withValue},
                                            {"--by", Kind::withValue},
                                            {"--format", Kind::withValue},
                                            {"--output", Kind::withValue}});
    Call taken;
    taken.by = chosenWord(line, "--by", {"whole", "river", "reach", "point"});
    taken.request.statistics = statisticsChosen(line.value("--statistics"));
    const std::vector<std::string> files = studyFiles(line, {});
    const OutputChoice output = outputChoice(call.platform.files, line, files);
    taken.study = takeStudy(call, files);
    const StudyRun& base = taken.study.base();
    taken.request.series = givenSeries(line, base.results());
    taken.request.reaches = reachesChosen(line.value("--reaches").value_or("all"), base.reaches());
    if (taken.by == "river") riverNetwork(base); // refused before anything is written
    deliver(call, output,
            {[&] { return reportOf(taken); },
             [&](TextPage& page) { showText(page, taken); },
             {},
             takenOf(line, taken)});
    return exitStatus::done;
}

} // namespace

const Command fitCommand = {"fit", "how runs fit what was observed", help.c_str(), runFit};

} // namespace korvel
