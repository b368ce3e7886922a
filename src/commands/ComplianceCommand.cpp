#include "basic/Numbers.h"
#include "commands/CommandList.h"
#include "commands/ComplianceText.h"
#include "commands/RunsInTurn.h"
#include "commands/StudyCall.h"
#include "commands/StudyLists.h"
#include "tables/TextRows.h"

#include <charconv>
#include <cmath>

namespace korvel {

namespace {

const std::string help =
    std::string(
        "Usage: korvel compliance FILE.SGR... [OPTION]...\n\n"
        "Judges each run by its quality targets; later runs are held against the first.\n"
        "A plan (.csv) in place of the files stands for its finished runs.\n\n"
        "  --low-is-bad NAMES       determinands that are bad when low, or none; dissolved oxygen where not "
        "given\n"
        "  --determinands LIST      numbers or names; all where not given\n"
        "  --reaches LIST           all, none, or reach numbers: 1,2,7\n"
        "  --by WHAT                reach (where not given), river, determinand, point or station\n"
        "  --deterioration PERCENT  from how much on a value is called worse than the base's; 10 where not "
        "given\n") +
    outputHelp(27) +
    "\n"

    "Which statistic is judged follows the determinand's statistic code in the file. A verdict is sure "
    "where\n"
    "both confidence limits lie on one side of the target.\n";

struct Call {
    RunSequence runs;
    std::vector<std::string> names; // of the runs
    StudyRun base;
    ComplianceRequest request;
    std::string by;
};

// A run, and the base where it isn't the base itself.
JudgedRun judgedRun(const Call& call, std::size_t k) {
    JudgedRun run{call.runs.run(k), {}};
    if (k > 0) run.base = call.base;
    return run;
}

std::vector<Table> tablesBy(const Call& call, const JudgedRun& run) {
    if (call.by == "river") return {complianceByRiver(run.run, riverNetwork(run.run), call.request)};
    if (call.by == "determinand") return {complianceByDeterminand(run.run, call.request)};
    if (call.by == "point") return {complianceByPoint(run.run, call.request)};
    if (call.by == "station") return {complianceByStation(run.run, call.request)};
    return complianceByReach(run, call.request);
}

std::vector<std::string> lowIsBadNames(const Call& call) {
    std::vector<std::string> names;
    for (const JudgedDeterminand& each : judgedBy(call.base, call.request))
        if (each.side == BadSide::low) names.push_back(determinandName(call.base.results(), each.number));
    return names;
}

void addAgreement(RunTables& tables, const std::vector<StationRow>& rows) {
    StationAgreement agreement;
    for (const StationRow& row : rows)
        agreement.take(row.station);
    tables.factsBelow = {{{"pass", "agreement"}, agreement.pass},
                         {{"fail", "agreement"}, agreement.fail},
                         {{"model_only", "agreement"}, agreement.modelOnly},
                         {{"observed_only", "agreement"}, agreement.observedOnly}};
}

RunTables tablesOf(const Call& call, const JudgedRun& run) {
    RunTables tables;
    tables.facts = {{{"run"}, run.run.name, true}};
    tables.lists = tablesBy(call, run);
    if (call.by == "station") addAgreement(tables, stationRows(run.run, call.request));
    return tables;
}

// The run is not asked for before its rows are: of a plan there may be thousands.
RunTables sumsOf(const Call& call, std::size_t k) {
    Table table = complianceByDeterminand(call.base, call.request);
    table.rows = [&call, k](RowTaker& taker) {
        complianceByDeterminand(call.runs.run(k), call.request).rows(taker);
    };
    RunTables tables;
    tables.facts = {{{"run"}, call.names[k], true}};
    tables.lists = {std::move(table)};
    return tables;
}

TableReport reportOf(const Call& call) {
    TableReport report;
    report.facts = {{{"low_is_bad"}, lowIsBadNames(call)}};
    for (std::size_t k = 0; k < call.runs.count; ++k)
        report.runs.push_back(call.by == "determinand" ? sumsOf(call, k)
                                                       : tablesOf(call, judgedRun(call, k)));
    return report;
}

void showRun(TextPage& page, const Call& call, const JudgedRun& run) {
    describeJudging(page, run.run, call.request);
    const auto rows = complianceRows(run, call.request);
    if (call.by == "reach")
        showComplianceRows(page, run, rows);
    else
        page.table(textTable(tablesBy(call, run).front()));
    if (call.by == "station") return concludeStations(page, stationRows(run.run, call.request));
    concludeCompliance(page, run.run, rows);
}

Taken takenOf(const CommandLine& line, const Call& call) {
    Taken told = takenFrom("Compliance with targets", call.names);
    told.facts.push_back({"Reaches", line.value("--reaches").value_or("all")});
    told.facts.push_back({"Deterioration from", shortestNumber(call.request.deterioration) + " %"});
    told.notes = [&call](TextPage& page) { describeJudging(page, call.base, call.request); };
    return told;
}

double givenPercent(const CommandLine& line) {
    const auto typed = line.value("--deterioration");
    if (!typed) return DefaultDeterioration;
    double percent = 0;
    const char* const end = typed->data() + typed->size();
    const auto read = std::from_chars(typed->data(), end, percent);
    if (read.ptr != end || read.ec != std::errc() || !std::isfinite(percent) || percent < 0)
        throw UsageError("'" + *typed + "' is no percentage");
    return percent;
}

void take(Call& call, const Study& study) {
    call.base = study.base();
    call.runs = sequenceOf(study);
    for (const StudyRun& run : study.runs())
        call.names.push_back(run.name);
}

void take(Call& call, const RunsInTurn& runs) {
    call.base = runs.base();
    call.runs = runs.sequence();
    call.names = runs.names();
}

int runCompliance(CommandCall& call) {
    using Kind = CommandOption::Kind;
    const CommandLine line(call.arguments, {{"--low-is-bad", Kind::withValue},
                                            {"--determinands", Kind::withValue},
                                            {"--reaches", Kind::withValue},
                                            {"--by", Kind::withValue},
                                            {"--deterioration", Kind::withValue},
                                            {"--format", Kind::withValue},
                                            {"--output", Kind::withValue}});
    Call taken;
    taken.by = chosenWord(line, "--by", {"reach", "river", "determinand", "point", "station"});
    taken.request.deterioration = givenPercent(line);
    const bool inTurn = namesPlan(line) && taken.by == "determinand";
    const std::vector<std::string> files = studyFiles(line, inTurn ? AnyPlan : FileCount{});
    const OutputChoice output = outputChoice(call.platform.files, line, files);
    std::optional<RunsInTurn> planned;
    if (inTurn)
        take(taken, planned.emplace(call, files));
    else
        take(taken, takeStudy(call, files));
    const StudyRun& base = taken.base;
    taken.request.determinands = determinandsChosen(line.value("--determinands"), base.results());
    taken.request.lowIsBad = lowIsBadChosen(line.value("--low-is-bad"), base.results());
    taken.request.reaches = reachesChosen(line.value("--reaches").value_or("all"), base.reaches());
    if (taken.by == "river") riverNetwork(base); // refused before anything is written
    deliver(call, output,
            {[&] { return reportOf(taken); },
             [&](TextPage& page) {
                 for (std::size_t k = 0; k < taken.runs.count; ++k)
                     showRun(page, taken, judgedRun(taken, k));
             },
             {},
             takenOf(line, taken)});
    return exitStatus::done;
}

} // namespace

const Command complianceCommand = {"compliance", "which quality targets are met", help.c_str(),
                                   runCompliance};

} // namespace korvel
