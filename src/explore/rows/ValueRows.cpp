#include "explore/rows/ValueRows.h"

#include "basic/Numbers.h"
#include "tables/PeopleNumbers.h"

#include <cmath>

namespace korvel {

namespace {

enum PointColumn {
    reachColumn,
    nameColumn,
    pathColumn,
    distanceColumn,
    featureColumn,
    sideColumn,
    typeColumn
};
constexpr int pointColumns = 7;

std::vector<ShownColumn> columnsOfPoints() {
    return {{{"reach"}, "Reach", CellLook::whole},
            {{"reach_name"}, "Name"},
            {{"path"}, "Along path", CellLook::exact},
            {{"distance"}, "Distance", CellLook::exact},
            {{"feature"}, "Feature"},
            {{"side"}, "Side"},
            {{"type"}, "Type", CellLook::whole}};
}

// A sum of lengths without the digits that come from adding.
double roundedSum(double km) {
    constexpr double steps = 1e9;
    return std::round(km * steps) / steps;
}

// "5.42 (4.9 to 6.0)"
std::string valueText(const SeriesValues& values, int point) {
    std::string text = shownNumber(values.value[SeriesValues::at(point)]);
    if (values.hasLimits() && values.low(point) < values.high(point))
        text += " (" + shownNumber(values.low(point)) + " to " + shownNumber(values.high(point)) + ")";
    return text;
}

} // namespace

ValueRows::ValueRows(const TableScope& scope, MatchedRuns& matched)
    : RowSource("values", columnsOfPoints()),
      m_runs{scope.base},
      m_statistic(scope.statistic),
      m_interpolated(scope.interpolated) {
    for (const StudyRun& run : scope.runs) {
        if (isBase(scope, run)) continue;
        m_runs.push_back(run);
        m_changes.push_back(matched.between(scope.base, run));
    }
    MergedPoints merged(m_runs.size(), scope.base.results().pointCount);
    for (const int place : scope.path)
        addReach(place, merged);
    addValueColumns(scope);
}

void ValueRows::addReach(int place, MergedPoints& merged) {
    const RunFile& base = *m_runs.front().file;
    const int number = base.reaches.number(place);
    double above = 0;
    if (!m_reaches.empty())
        above = m_reaches.back().above + base.results.reachLengths[m_reaches.back().number];
    m_reaches.push_back({number, base.reachName(number), above, rowCount(), rowCount()});
    merged.beginReach(base.reaches.pointsOf(place));
    for (std::size_t run = 1; run < m_runs.size(); ++run) {
        const RunFile& file = *m_runs[run].file;
        merged.addRun(run, file, file.reaches.pointsOf(file.reaches.placeOf(number)),
                      m_changes[run - 1]->match().ofRun);
    }
    takeRows(merged);
    m_reaches.back().endRow = rowCount();
}

void ValueRows::takeRows(const MergedPoints& merged) {
    for (const int row : merged.rowsInOrder()) {
        const std::size_t run = merged.firstRun(row);
        const int point = merged.point(row, run);
        if (!isListed(m_runs[run], point)) continue;
        m_rows.push_back({run, point, m_reaches.size() - 1});
        for (std::size_t each = 0; each < m_runs.size(); ++each)
            m_points.push_back(merged.point(row, each));
    }
}

bool ValueRows::isListed(const StudyRun& run, int point) const {
    return m_interpolated || run.results().pointFeatureType[point] != InterpolatedPointType;
}

void ValueRows::addValueColumns(const TableScope& scope) {
    std::vector<ShownColumn> columns = columnsOfPoints();
    for (const int series : scope.series) {
        const std::string name = scope.base.results().seriesNames[series];
        std::size_t next = 1;
        for (const StudyRun& run : scope.runs) {
            m_values.push_back(
                {series, isBase(scope, run) ? 0 : next++, seriesValues(run.results(), series, m_statistic)});
            columns.push_back({{run.name, name}, name + "\n" + run.name, CellLook::number});
        }
    }
    setColumns(std::move(columns));
}

const ValueRows::ValueColumn* ValueRows::valueColumn(int column) const {
    return column < pointColumns ? nullptr : &m_values[static_cast<std::size_t>(column - pointColumns)];
}

int ValueRows::pointOf(int row, const ValueColumn& column) const {
    return m_points[static_cast<std::size_t>(row) * m_runs.size() + column.run];
}

Cell ValueRows::cell(int row, int column) const {
    if (const ValueColumn* values = valueColumn(column)) {
        const int point = pointOf(row, *values);
        return point == 0 ? Cell(Nothing()) : Cell(values->values.value[SeriesValues::at(point)]);
    }
    const Row& at = rowAt(row);
    const ResultsDataSet& results = resultsOf(at);
    const PathReach& reach = m_reaches[at.reach];
    switch (column) {
    case reachColumn: return reach.number;
    case nameColumn: return std::string_view(reach.name);
    case pathColumn: return roundedSum(reach.above + results.pointDistance[at.point]);
    case distanceColumn: return results.pointDistance[at.point];
    case featureColumn: return std::string_view(results.pointLabel[at.point]);
    case sideColumn: return std::string_view(results.pointSide[at.point]);
    default: return results.pointFeatureType[at.point];
    }
}

std::string ValueRows::note(int row, int column) const {
    const ValueColumn* column_ = valueColumn(column);
    const int point = column_ == nullptr ? 0 : pointOf(row, *column_);
    if (point == 0) return {};
    const SeriesValues& values = column_->values;
    const StudyRun& run = m_runs[column_->run];
    std::string text = run.results().seriesNames[column_->series] + ", " + std::string(nameOf(m_statistic)) +
                       ", " + run.name + ": " + valueText(values, point);
    if (values.hasTarget(point)) text += ", target " + shortestNumber(values.target[SeriesValues::at(point)]);
    if (values.isObserved(point))
        text += ", observed " + shownNumber(values.observed[SeriesValues::at(point)]);
    return text;
}

std::optional<ExplorePlace> ValueRows::place(int row, int) const {
    return placeOf(resultsOf(rowAt(row)), rowAt(row).point);
}

std::optional<int> ValueRows::series(int, int column) const {
    const ValueColumn* values = valueColumn(column);
    return values == nullptr ? std::nullopt : std::optional(values->series);
}

std::vector<int> ValueRows::rowsAt(const ExplorePlace& place) const {
    std::vector<int> rows;
    for (const PathReach& reach : m_reaches) {
        if (reach.number != place.reach) continue;
        for (int row = reach.firstRow; row < reach.endRow; ++row)
            if (this->place(row, 0) == place) rows.push_back(row);
    }
    return rows;
}

std::string ValueRows::whyEmpty() const {
    if (m_reaches.empty()) return "Choose a path to see its values.";
    return m_interpolated ? "No points on this path."
                          : "No features on this path; show the points between them to see values.";
}

} // namespace korvel
