#include "explore/rows/ChangeRows.h"

#include "tables/PeopleNumbers.h"

#include <cmath>

namespace korvel {

namespace {

enum ChangeColumn {
    runColumn,
    reachColumn,
    nameColumn,
    seriesColumn,
    statisticColumn,
    baseMeanColumn,
    runMeanColumn,
    changeColumn,
    percentColumn,
    riseColumn,                  // value, distance, feature
    fallColumn = riseColumn + 3, // the same
    clearRisesColumn = fallColumn + 3,
    clearFallsColumn,
    pointsColumn
};

std::vector<ShownColumn> changeColumns(const std::string& base) {
    return {{{"run"}, "Run"},
            {{"reach"}, "Reach", CellLook::whole},
            {{"reach_name"}, "Name"},
            {{"series"}, "Series"},
            {{"statistic"}, "Statistic"},
            {{"base_mean"}, "Mean of\n" + base, CellLook::number},
            {{"run_mean"}, "Mean of\nthe run", CellLook::number},
            {{"change"}, "Change", CellLook::number, true},
            {{"percent"}, "%", CellLook::percent, true},
            {{"value", "largest_rise"}, "Largest\nrise", CellLook::number, true},
            {{"distance", "largest_rise"}, "Rise at\nkm", CellLook::exact},
            {{"feature", "largest_rise"}, "Rise at"},
            {{"value", "largest_fall"}, "Largest\nfall", CellLook::number},
            {{"distance", "largest_fall"}, "Fall at\nkm", CellLook::exact},
            {{"feature", "largest_fall"}, "Fall at"},
            {{"clear_rises"}, "Clear\nrises", CellLook::whole, true},
            {{"clear_falls"}, "Clear\nfalls", CellLook::whole, true},
            {{"points"}, "Points", CellLook::whole}};
}

const LargestChange* larger(const ChangeSummary& summary) {
    const LargestChange* rise = summary.largestRise ? &*summary.largestRise : nullptr;
    const LargestChange* fall = summary.largestFall ? &*summary.largestFall : nullptr;
    if (rise == nullptr || fall == nullptr) return rise == nullptr ? fall : rise;
    return std::abs(fall->value) > rise->value ? fall : rise;
}

} // namespace

ChangeRows::ChangeRows(const TableScope& scope, MatchedRuns& matched)
    : RowSource("changes", changeColumns(scope.base.name)),
      m_base(scope.base),
      m_statistic(scope.statistic),
      m_series(scope.series) {
    const ReachPoints& reaches = m_base.reaches();
    for (const int number : reaches.numbers())
        m_reachNames.push_back(m_base.file->reachName(number));
    for (const StudyRun& run : scope.runs) {
        if (isBase(scope, run)) continue;
        m_runs.push_back({run, matched.between(m_base, run)});
        for (int place = 0; place < reaches.count(); ++place)
            for (const int series : m_series)
                m_rows.push_back({m_runs.size() - 1, place, series});
    }
    m_summaries.resize(m_rows.size());
    m_isSummedUp.resize(m_rows.size());
}

const ChangeSummary& ChangeRows::summaryOf(int row) const {
    const auto index = static_cast<std::size_t>(row);
    if (!m_isSummedUp[index]) {
        const Row& at = m_rows[index];
        m_summaries[index] = m_runs[at.run].change->over(std::vector<int>{at.place}, at.series, m_statistic);
        m_isSummedUp[index] = true;
    }
    return m_summaries[index];
}

Cell ChangeRows::largestCell(const std::optional<LargestChange>& largest, int part) const {
    if (!largest) return Nothing();
    if (part == 0) return largest->value;
    if (part == 1) return m_base.results().pointDistance[largest->point];
    return std::string_view(m_base.results().pointLabel[largest->point]);
}

Cell ChangeRows::cell(int row, int column) const {
    const Row& at = rowAt(row);
    switch (column) {
    case runColumn: return std::string_view(m_runs[at.run].run.name);
    case reachColumn: return m_base.reaches().number(at.place);
    case nameColumn: return std::string_view(m_reachNames[static_cast<std::size_t>(at.place)]);
    case seriesColumn: return std::string_view(m_base.results().seriesNames[at.series]);
    case statisticColumn: return nameOf(m_statistic);
    default: break;
    }
    const ChangeSummary& summary = summaryOf(row);
    switch (column) {
    case baseMeanColumn: return cellOf(summary.baseMean);
    case runMeanColumn: return cellOf(summary.runMean);
    case changeColumn: return cellOf(summary.change);
    case percentColumn: return cellOf(summary.percent);
    case clearRisesColumn: return summary.clearRises;
    case clearFallsColumn: return summary.clearFalls;
    case pointsColumn: return summary.points;
    default: break;
    }
    const bool isRise = column < fallColumn;
    return largestCell(isRise ? summary.largestRise : summary.largestFall,
                       column - (isRise ? riseColumn : fallColumn));
}

std::string ChangeRows::note(int row, int column) const {
    const ChangeSummary& summary = summaryOf(row);
    if (column == clearRisesColumn || column == clearFallsColumn)
        return "Clear where the confidence limits of both runs are apart: at " +
               std::to_string(summary.clearRises + summary.clearFalls) + " of " +
               counted(summary.points, "point", "points") + ". Unclear does not mean unchanged.";
    if (column == baseMeanColumn || column == runMeanColumn) return "Weighted with length";
    return {};
}

std::optional<ExplorePlace> ChangeRows::place(int row, int column) const {
    const ChangeSummary& summary = summaryOf(row);
    const LargestChange* largest = larger(summary);
    if (column >= riseColumn && column < fallColumn && summary.largestRise) largest = &*summary.largestRise;
    if (column >= fallColumn && column < clearRisesColumn && summary.largestFall)
        largest = &*summary.largestFall;
    if (largest != nullptr) return placeOf(m_base.results(), largest->point);
    return placeOfReach(*m_base.file, m_base.reaches().number(rowAt(row).place));
}

std::optional<int> ChangeRows::series(int row, int) const {
    return rowAt(row).series;
}

std::vector<int> ChangeRows::rowsAt(const ExplorePlace& place) const {
    std::vector<int> rows;
    const int reach = m_base.reaches().placeOf(place.reach);
    if (reach < 0) return rows;
    const auto perReach = m_series.size(), perRun = perReach * m_reachNames.size();
    for (std::size_t run = 0; run < m_runs.size(); ++run)
        for (std::size_t each = 0; each < perReach; ++each)
            rows.push_back(
                static_cast<int>(run * perRun + static_cast<std::size_t>(reach) * perReach + each));
    return rows;
}

std::string ChangeRows::whyEmpty() const {
    if (m_runs.empty()) return "Open a second run to see changes.";
    if (m_series.empty()) return "Choose a series to see its changes.";
    return "No reaches in these files.";
}

} // namespace korvel
