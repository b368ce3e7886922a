#include "commands/ChangesText.h"
#include "commands/CommandList.h"
#include "commands/StudyCall.h"
#include "commands/StudyLists.h"
#include "tables/TextRows.h"

namespace korvel {

namespace {

const std::string help =
    std::string(
        "Usage: korvel changes BASE.SGR FILE.SGR... [OPTION]...\n\n"
        "Tells what has changed from the base to each other run, at points of the same reach, distance and\n"
        "side. A plan (.csv) in place of the files stands for its finished runs.\n\n"
        "  --series LIST      positions from 0 (the flow) or names; all where not given\n"
        "  --statistic S      " +
        statisticChoice() +
        "; the mean where not given\n"
        "  --reaches LIST     all, none, or reach numbers: 1,2,7\n"
        "  --by WHAT          reach (where not given), river or point\n"
        "  --interpolated     by point: auto-interpolated points, too\n") +
    outputHelp(21) +
    "\n"

    "Of a reach, means are weighted with length by the trapezoid rule. A change is clear where the\n"
    "confidence limits of both runs are apart.\n";

struct Call {
    Study study;
    ChangeRequest request;
    std::string by;
    std::optional<Network> network; // of the base, by river
};

Table tableOf(const Call& call, const ComparedRun& run) {
    if (call.by == "river") return changesByRiver(run, *call.network, call.request);
    if (call.by == "point") return changesByPoint(run, call.request);
    return changesByReach(run, call.request);
}

TableReport reportOf(const Call& call) {
    TableReport report;
    report.facts = {{{"base"}, call.study.base().name}};
    for (std::size_t k = 1; k < call.study.runs().size(); ++k) {
        const ComparedRun run = compared(call.study.base(), call.study.runs()[k]);
        RunTables tables;
        tables.facts = {{{"run"}, run.run.name, true},
                        {{"only_in_base"}, run.change->onlyInBase(call.request.reaches)},
                        {{"only_in_run"}, run.change->onlyInRun(call.request.reaches)}};
        tables.lists = {tableOf(call, run)};
        report.runs.push_back(std::move(tables));
    }
    return report;
}

void showRun(TextPage& page, const Call& call, const ComparedRun& run) {
    describeMatching(page, run, call.request.reaches);
    if (call.by == "point") return page.table(textTable(changesByPoint(run, call.request)));
    const RunFile& base = *run.base.file;
    const auto rows = changeRows(run,
                                 call.by == "river" ? groupsByRiver(base, *call.network, call.request.reaches)
                                                    : groupsByReach(base, call.request.reaches),
                                 call.request);
    showChangeRows(page, run, rows);
    concludeChanges(page, run, rows);
}

Taken takenOf(const CommandLine& line, const Call& call) {
    Taken told = takenFrom("Changes between runs", namesOf(call.study));
    told.facts.push_back({"Series", seriesText(call.request.series, call.study.base().results())});
    told.facts.push_back({"Statistic", std::string(nameOf(call.request.statistic))});
    told.facts.push_back({"Reaches", line.value("--reaches").value_or("all")});
    told.notes = [&call](TextPage& page) { describeChanges(page, call.study.base(), call.request); };
    return told;
}

void showText(TextPage& page, const Call& call) {
    describeChanges(page, call.study.base(), call.request);
    for (std::size_t k = 1; k < call.study.runs().size(); ++k)
        showRun(page, call, compared(call.study.base(), call.study.runs()[k]));
}

int runChanges(CommandCall& call) {
    using Kind = CommandOption::Kind;
    const CommandLine line(call.arguments, {{"--series", Kind::withValue},
                                            {"--statistic", Kind::withValue},
                                            {"--reaches", Kind::withValue},
                                            {"--by", Kind::withValue},
                                            {"--interpolated", Kind::flag},
                                            {"--format", Kind::withValue},
                                            {"--output", Kind::withValue}});
    Call taken;
    taken.by = chosenWord(line, "--by", {"reach", "river", "point"});
    taken.request.statistic = statisticTyped(line.value("--statistic").value_or("mean"));
    taken.request.interpolated = line.has("--interpolated");
    const std::vector<std::string> files = studyFiles(line, {2, MaxRuns});
    const OutputChoice output = outputChoice(call.platform.files, line, files);
    taken.study = takeStudy(call, files);
    const StudyRun& base = taken.study.base();
    taken.request.series = seriesChosen(line.value("--series"), base.results());
    taken.request.reaches = reachesChosen(line.value("--reaches").value_or("all"), base.reaches());
    if (taken.by == "river") taken.network = riverNetwork(base);
    deliver(call, output,
            {[&] { return reportOf(taken); },
             [&](TextPage& page) { showText(page, taken); },
             {},
             takenOf(line, taken)});
    return exitStatus::done;
}

} // namespace

const Command changesCommand = {"changes", "what differs between runs", help.c_str(), runChanges};

} // namespace korvel
