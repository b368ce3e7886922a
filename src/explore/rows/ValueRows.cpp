#include "explore/rows/ValueRows.h"

#include "basic/Numbers.h"
#include "tables/PeopleNumbers.h"

#include <algorithm>
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
    std::string text = shownFigures(values.value[SeriesValues::at(point)]);
    if (values.hasLimits() && values.low(point) < values.high(point))
        text += " (" + shownFigures(values.low(point)) + " to " + shownFigures(values.high(point)) + ")";
    return text;
}

Study withBase(const TableScope& scope) {
    std::vector<StudyRun> runs = {scope.base};
    for (const StudyRun& run : scope.runs)
        if (!isBase(scope, run)) runs.push_back(run);
    return Study(std::move(runs));
}

} // namespace

ValueRows::ValueRows(const TableScope& scope)
    : RowSource("values", columnsOfPoints()),
      m_study(withBase(scope)),
      m_path(studyPath(m_study, scope.path)),
      m_statistic(scope.statistic),
      m_interpolated(scope.interpolated) {
    for (std::size_t place = 0; place < m_path.places.size(); ++place)
        if (m_interpolated || !m_path.places[place].interpolated) m_rows.push_back(place);
    addValueColumns(scope);
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
    return m_path.pointOf[column.run][m_rows[static_cast<std::size_t>(row)]];
}

Cell ValueRows::cell(int row, int column) const {
    if (const ValueColumn* values = valueColumn(column)) {
        const int point = pointOf(row, *values);
        return point == 0 ? Cell(Nothing()) : Cell(values->values.value[SeriesValues::at(point)]);
    }
    const PathPlace& at = placeAt(row);
    const ResultsDataSet& results = resultsAt(row);
    const PathReach& reach = m_path.reaches[at.reach];
    switch (column) {
    case reachColumn: return reach.number;
    case nameColumn: return std::string_view(reach.name);
    case pathColumn: return roundedSum(at.km);
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
    const StudyRun& run = m_study.runs()[column_->run];
    std::string text = run.results().seriesNames[column_->series] + ", " + std::string(nameOf(m_statistic)) +
                       ", " + run.name + ": " + valueText(values, point);
    if (values.hasTarget(point)) text += ", target " + shortestNumber(values.target[SeriesValues::at(point)]);
    if (values.isObserved(point))
        text += ", observed " + shownFigures(values.observed[SeriesValues::at(point)]);
    return text;
}

ExplorePlace ValueRows::explorePlace(int row) const {
    return placeOf(resultsAt(row), placeAt(row).point);
}

std::optional<ExplorePlace> ValueRows::place(int row, int) const {
    return explorePlace(row);
}

std::optional<int> ValueRows::series(int, int column) const {
    const ValueColumn* values = valueColumn(column);
    return values == nullptr ? std::nullopt : std::optional(values->series);
}

// Rows never go back along the way.
std::vector<int> ValueRows::rowsAt(const ExplorePlace& place) const {
    std::vector<int> rows;
    for (const PathReach& reach : m_path.reaches) {
        if (reach.number != place.reach) continue;
        const double km = reach.from + place.distance;
        const auto kmOf = [&](std::size_t each) { return m_path.places[each].km; };
        const auto end = std::ranges::upper_bound(m_rows, km, {}, kmOf);
        for (auto each = std::ranges::lower_bound(m_rows, km, {}, kmOf); each != end; ++each) {
            const int row = static_cast<int>(each - m_rows.begin());
            if (explorePlace(row) == place) rows.push_back(row);
        }
    }
    return rows;
}

std::string ValueRows::whyEmpty() const {
    if (m_path.reaches.empty()) return "Choose a path to see its values.";
    return m_interpolated ? "No points on this path."
                          : "No features on this path; show the points between them to see values.";
}

} // namespace korvel
