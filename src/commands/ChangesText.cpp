#include "commands/ChangesText.h"

#include "commands/StatisticWords.h"
#include "tables/PeopleNumbers.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace korvel {

namespace {

double sizeOf(const ChangeRow& row) {
    if (row.summary.percent) return std::abs(*row.summary.percent);
    return row.summary.change.value_or(0) != 0 ? std::numeric_limits<double>::infinity() : 0;
}

bool hasChanged(const ChangeRow& row) {
    const ChangeSummary& summary = row.summary;
    return summary.change.value_or(0) != 0 || summary.largestRise || summary.largestFall ||
           summary.clearRises > 0 || summary.clearFalls > 0;
}

std::string groupName(const ChangeRow& row, const StudyRun& base) {
    if (row.group.isRiver) return row.group.river;
    return std::to_string(row.group.reach) + " " + base.file->reachName(row.group.reach);
}

// Of a river, which has kilometres of several reaches, with its reach.
std::string largestText(const std::optional<LargestChange>& largest, const ChangeRow& row,
                        const ResultsDataSet& base) {
    if (!largest) return "-";
    const std::string& label = base.pointLabel[largest->point];
    return (largest->value > 0 ? "+" : "") + shownNumber(largest->value) + " at " +
           (row.group.isRiver ? "reach " + std::to_string(base.pointReach[largest->point]) + ", " : "") +
           shownKm(base.pointDistance[largest->point]) + (label.empty() ? "" : ", " + label);
}

std::string withSign(const std::optional<double>& value, std::string text) {
    return value && *value > 0 ? "+" + text : text;
}

std::string clearText(const ChangeSummary& summary) {
    if (summary.clearRises == 0 && summary.clearFalls == 0) return "-";
    return std::to_string(summary.clearRises) + " up, " + std::to_string(summary.clearFalls) + " down";
}

bool holdsFlow(const ChangeRequest& request) {
    return std::ranges::any_of(request.series, isFlow);
}

struct SeriesTally {
    int rises = 0, falls = 0, groups = 0, clearRises = 0, clearFalls = 0, points = 0;
    double largestPercent = 0;
    std::string where;
};

void tally(SeriesTally& sums, const ChangeRow& row, const StudyRun& base) {
    const ChangeSummary& summary = row.summary;
    if (summary.points == 0) return;
    ++sums.groups;
    if (*summary.change > 0) ++sums.rises;
    if (*summary.change < 0) ++sums.falls;
    sums.clearRises += summary.clearRises;
    sums.clearFalls += summary.clearFalls;
    sums.points += summary.points;
    if (summary.percent && std::abs(*summary.percent) > std::abs(sums.largestPercent)) {
        sums.largestPercent = *summary.percent;
        sums.where = groupName(row, base);
    }
}

std::string sentence(const std::string& series, const SeriesTally& sums) {
    std::string text = series + " rises in " + std::to_string(sums.rises) + " and falls in " +
                       std::to_string(sums.falls) + " of " + std::to_string(sums.groups);
    if (!sums.where.empty())
        text += ", most by " + withSign(sums.largestPercent, shownDecimals(sums.largestPercent, 1)) + " % (" +
                sums.where + ")";
    return text + "; clear at " + std::to_string(sums.clearRises + sums.clearFalls) + " of " +
           counted(sums.points, "point", "points") + ".";
}

} // namespace

void describeChanges(TextPage& page, const StudyRun& base, const ChangeRequest& request) {
    const bool mean = request.statistic == Statistic::mean;
    page.heading("Changes against " + base.name + ": " + std::string(nameOf(request.statistic)) +
                 (mean ? " values" : " percentiles"));
    page.line(
        "Means are weighted with length. A change is clear where the confidence limits of both runs are "
        "apart; unclear does not mean unchanged.");
    if (!mean && holdsFlow(request)) page.line(flowPercentiles);
}

void describeMatching(TextPage& page, const ComparedRun& run, const ReachChoice& reaches) {
    const int onlyInBase = run.change->onlyInBase(reaches), onlyInRun = run.change->onlyInRun(reaches);
    page.heading(run.run.name);
    if (onlyInBase == 0 && onlyInRun == 0)
        page.line("Every point has its partner in " + run.base.name + ".");
    else
        page.line("Points only in " + run.base.name + ": " + std::to_string(onlyInBase) + "; only in " +
                  run.run.name + ": " + std::to_string(onlyInRun) + ".");
    page.space();
}

void showChangeRows(TextPage& page, const ComparedRun& run, const std::vector<ChangeRow>& rows) {
    const ResultsDataSet& base = run.base.results();
    std::vector<const ChangeRow*> changed;
    for (const ChangeRow& row : rows)
        if (hasChanged(row)) changed.push_back(&row);
    std::ranges::stable_sort(changed, std::ranges::greater(),
                             [](const ChangeRow* row) { return sizeOf(*row); });
    TextTable table(
        {"Where", "Series", "Base", "Run", "Change", "%", "Largest rise", "Largest fall", "Clear", "Points"},
        {0, 1, 6, 7, 8});
    for (const ChangeRow* row : changed) {
        const ChangeSummary& summary = row->summary;
        table.row({groupName(*row, run.base), base.seriesNames[row->series], shownNumber(summary.baseMean),
                   shownNumber(summary.runMean), withSign(summary.change, shownNumber(summary.change)),
                   withSign(summary.percent, shownPercent(summary.percent)),
                   largestText(summary.largestRise, *row, base), largestText(summary.largestFall, *row, base),
                   clearText(summary), std::to_string(summary.points)});
    }
    if (!changed.empty()) page.table(table);
    if (changed.size() < rows.size())
        page.line("Unchanged: " + std::to_string(rows.size() - changed.size()) + " of " +
                  std::to_string(rows.size()) + " rows.");
}

void concludeChanges(TextPage& page, const ComparedRun& run, const std::vector<ChangeRow>& rows) {
    std::map<int, SeriesTally> tallies;
    for (const ChangeRow& row : rows)
        tally(tallies[row.series], row, run.base);
    page.space();
    bool any = false;
    for (const auto& [series, sums] : tallies) {
        if (sums.rises + sums.falls == 0) continue;
        page.line(sentence(run.base.results().seriesNames[series], sums));
        any = true;
    }
    if (!any) page.line("Nothing changes.");
}

} // namespace korvel
