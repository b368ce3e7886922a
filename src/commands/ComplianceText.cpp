#include "commands/ComplianceText.h"

#include "basic/Numbers.h"
#include "commands/StatisticWords.h"
#include "tables/PeopleNumbers.h"
#include "tables/TextRows.h"

#include <algorithm>
#include <map>

namespace korvel {

namespace {

std::string reachTitle(const StudyRun& run, int place) {
    const int number = run.reaches().number(place);
    const std::string name = run.file->reachName(number);
    return std::to_string(number) + (name.empty() ? "" : " " + name);
}

std::string placeOf(const StudyRun& run, const WorstPoint& worst) {
    const std::string& label = run.results().pointLabel[worst.point];
    return shownKm(run.results().pointDistance[worst.point]) + (label.empty() ? "" : ", " + label);
}

TextCell verdictCell(Verdict verdict) {
    if (verdict == Verdict::none) return "-";
    return {std::string(nameOf(verdict)), toneOf(nameOf(verdict))};
}

TextCell changeCell(const std::optional<ComplianceChange>& change) {
    if (!change) return "-";
    std::string words = change->words();
    if (change->deteriorated.value_or(false)) words += ", worse";
    return {words, words == "pass to fail" || change->deteriorated.value_or(false) ? TextTone::bad
                   : words == "fail to pass"                                       ? TextTone::good
                                                                                   : TextTone::plain};
}

bool isWorse(const ComplianceRow& a, const ComplianceRow& b) {
    if (a.reach.verdict != b.reach.verdict) return a.reach.verdict > b.reach.verdict;
    if (!a.reach.worst || !b.reach.worst) return false;
    return a.reach.worst->judgement.isWorseThan(b.reach.worst->judgement);
}

std::vector<TextCell> cellsOf(const ComplianceRow& row, const StudyRun& run) {
    const ReachCompliance& reach = row.reach;
    return {verdictCell(reach.verdict),
            verdictCell(reach.confident),
            reachTitle(run, row.place),
            determinandName(run.results(), row.determinand.number),
            shownDecimals(reach.sums.failingLength, 1),
            shownDecimals(reach.sums.judgedLength, 1),
            std::to_string(reach.sums.failingPoints) + " of " + std::to_string(reach.sums.judgedPoints),
            reach.worst ? shownNumber(reach.worst->judgement.value) : "-",
            reach.worst ? shortestNumber(reach.worst->judgement.target) : "-",
            reach.worst ? placeOf(run, *reach.worst) : "-",
            shownPercent(reach.needed),
            shownPercent(reach.headroom),
            changeCell(row.change)};
}

struct Tally {
    ComplianceSums sums;
    int judged = 0, failing = 0, surelyFailing = 0, unsure = 0;
    const ComplianceRow* worst = nullptr;
};

void take(Tally& tally, const ComplianceRow& row) {
    tally.sums += row.reach.sums;
    if (row.reach.verdict == Verdict::none) return;
    ++tally.judged;
    if (row.reach.verdict == Verdict::fail) ++tally.failing;
    if (row.reach.confident == Verdict::fail) ++tally.surelyFailing;
    if (row.reach.confident == Verdict::unsure) ++tally.unsure;
    if (!tally.worst || isWorse(row, *tally.worst)) tally.worst = &row;
}

std::string neededText(const ComplianceRow& worst, const StudyRun& run) {
    if (!worst.reach.needed) return "";
    const std::string& label = run.results().pointLabel[worst.reach.worst->point];
    return "; needed at " + (label.empty() ? reachTitle(run, worst.place) : label) + ": " +
           shownDecimals(*worst.reach.needed, 0) +
           (worst.determinand.side == BadSide::high ? " % less" : " % more");
}

std::string sentence(const Tally& tally, const std::string& name, const StudyRun& run) {
    const std::string reaches = counted(tally.judged, "reach", "reaches");
    std::string text;
    if (tally.failing > 0)
        text = name + " fails in " + std::to_string(tally.failing) + " of " + reaches + " (for sure in " +
               std::to_string(tally.surelyFailing) + "), " + shownDecimals(tally.sums.failingLength, 1) +
               " of " + shownDecimals(tally.sums.judgedLength, 1) + " km" + neededText(*tally.worst, run);
    else
        text = name + " passes in all of " + reaches;
    if (tally.failing == 0 && tally.unsure > 0)
        text += ", " + std::to_string(tally.unsure) + " of them unsure";
    return text + ".";
}

} // namespace

void describeJudging(TextPage& page, const StudyRun& run, const ComplianceRequest& request) {
    page.heading("Compliance of " + run.name + " with its targets");
    bool anyLowPercentile = false;
    for (const JudgedDeterminand& each : judgedBy(run, request)) {
        const bool low = each.side == BadSide::low;
        page.line("  " + determinandName(run.results(), each.number) + ": the " + wordsOf(each.statistic) +
                  ", bad when " + (low ? "low" : "high"));
        anyLowPercentile = anyLowPercentile || (low && each.statistic != Statistic::mean);
    }
    if (anyLowPercentile) page.line(lowPercentiles);
    page.space();
}

void showComplianceRows(TextPage& page, const JudgedRun& run, const std::vector<ComplianceRow>& rows) {
    std::vector<ComplianceRow> judged = rows;
    std::erase_if(judged, [](const ComplianceRow& row) { return row.reach.verdict == Verdict::none; });
    std::ranges::stable_sort(judged, isWorse);
    std::vector<std::string> headings = {"Verdict", "Sure",  "Reach",  "Determinand", "Fails km", "of km",
                                         "Points",  "Worst", "Target", "At",          "Needed %", "Room %"};
    if (run.base) headings.emplace_back("Against " + run.base->name);
    const std::size_t columns = headings.size();
    TextTable table(std::move(headings), {0, 1, 2, 3, 9, 12});
    for (const ComplianceRow& row : judged) {
        std::vector<TextCell> cells = cellsOf(row, run.run);
        cells.erase(cells.begin() + static_cast<std::ptrdiff_t>(columns), cells.end());
        table.row(std::move(cells));
    }
    if (!judged.empty()) page.table(table);
    if (judged.size() < rows.size())
        page.line("Without targets: " + std::to_string(rows.size() - judged.size()) + " of " +
                  std::to_string(rows.size()) + " rows.");
}

void concludeCompliance(TextPage& page, const StudyRun& run, const std::vector<ComplianceRow>& rows) {
    std::map<int, Tally> tallies;
    for (const ComplianceRow& row : rows)
        take(tallies[row.determinand.number], row);
    page.space();
    bool any = false;
    for (const auto& [determinand, tally] : tallies) {
        if (tally.judged == 0) continue;
        page.line(sentence(tally, determinandName(run.results(), determinand), run));
        any = true;
    }
    if (!any) page.line("Nothing is judged: there are no targets.");
}

void concludeStations(TextPage& page, const std::vector<StationRow>& rows) {
    StationAgreement agreement;
    for (const StationRow& row : rows)
        agreement.take(row.station);
    const int all = static_cast<int>(rows.size());
    page.space();
    page.line("Model and samples agree at " + std::to_string(agreement.pass + agreement.fail) + " of " +
              counted(all, "station", "stations") + ": both pass at " + std::to_string(agreement.pass) +
              ", both fail at " + std::to_string(agreement.fail) + "; only the model fails at " +
              std::to_string(agreement.modelOnly) + ", only the samples fail at " +
              std::to_string(agreement.observedOnly) + ".");
}

} // namespace korvel
