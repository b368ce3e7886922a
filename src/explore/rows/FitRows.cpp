#include "explore/rows/FitRows.h"

#include "study/SeriesValues.h"
#include "tables/PeopleNumbers.h"

#include <algorithm>

namespace korvel {

namespace {

// Behind the columns that name run and group.
enum FitColumn {
    seriesColumn,
    statisticColumn,
    countColumn,
    meanErrorColumn,
    biasColumn,
    absoluteErrorColumn,
    squareErrorColumn,
    efficiencyColumn,
    rSquaredColumn,
    factorColumn,
    withinColumn,
    boundedColumn
};

int groupColumns(FitBy by) {
    return by == FitBy::whole ? 0 : by == FitBy::river ? 1 : 2;
}

std::vector<ShownColumn> fitColumns(FitBy by) {
    std::vector<ShownColumn> columns = {{{"run"}, "Run"}};
    if (by == FitBy::river) columns.push_back({{"river"}, "River"});
    if (by == FitBy::reach) {
        columns.push_back({{"reach"}, "Reach", CellLook::whole});
        columns.push_back({{"reach_name"}, "Name"});
    }
    columns.insert(columns.end(), {{{"series"}, "Series"},
                                   {{"statistic"}, "Statistic"},
                                   {{"n"}, "n", CellLook::whole},
                                   {{"mean_error"}, "Mean\nerror", CellLook::number},
                                   {{"pbias"}, "PBIAS\n%", CellLook::percent},
                                   {{"mean_absolute_error"}, "Mean abs.\nerror", CellLook::number},
                                   {{"rmse"}, "RMSE", CellLook::number},
                                   {{"nse"}, "NSE", CellLook::number},
                                   {{"r2"}, "r\xB2", CellLook::number},
                                   {{"typical_factor"}, "Typical\nfactor", CellLook::number},
                                   {{"within_limits"}, "Within\nlimits", CellLook::whole},
                                   {{"bounded"}, "of", CellLook::whole}});
    return columns;
}

// Loads are not observed.
std::vector<int> observable(const TableScope& scope) {
    std::vector<int> series = scope.series;
    std::erase_if(series, [&](int each) { return isLoad(scope.base.results(), each); });
    return series;
}

const char* meaningOf(int column) {
    switch (column) {
    case meanErrorColumn: return "Mean of value less observed: above 0 the model is high";
    case biasColumn: return "Sum of the errors in percent of what was observed: above 0 the model is high";
    case absoluteErrorColumn: return "Mean of the errors' sizes";
    case squareErrorColumn: return "Root of the mean of the errors' squares";
    case efficiencyColumn:
        return "Efficiency by Nash and Sutcliffe: 1 is a perfect fit, 0 no better than the mean";
    case rSquaredColumn: return "Pearson's correlation, squared";
    case factorColumn: return "How many times too high or too low a value typically is";
    case withinColumn: return "Samples between the confidence limits of the model's value";
    case boundedColumn: return "Points whose value has confidence limits";
    default: return "";
    }
}

} // namespace

FitRows::FitRows(const TableScope& scope, FitBy by)
    : RowSource("fit", fitColumns(by)),
      m_by(by),
      m_runs(scope.runs),
      m_hasSeries(!observable(scope).empty()) {
    for (std::size_t run = 0; run < m_runs.size(); ++run) {
        m_groups.push_back(groupsOf(m_runs[run]));
        addRows(run, observable(scope));
    }
    for (int row = 0; row < rowCount() && by == FitBy::reach; ++row)
        m_reachNames.push_back(runOf(row).file->reachName(groupOf(row).reach));
    m_figures.resize(m_rows.size());
    m_isFigured.resize(m_rows.size());
}

std::vector<ReachGroup> FitRows::groupsOf(const StudyRun& run) {
    if (m_by == FitBy::whole) return {wholeGroup(*run.file, {})};
    if (m_by == FitBy::reach) return groupsByReach(*run.file, {});
    const Network network = networkOf(*run.file);
    m_hasCircles = m_hasCircles || network.hasCircles();
    if (network.hasCircles()) return {};
    return groupsByRiver(*run.file, network, {});
}

// Those of which something is observed.
void FitRows::addRows(std::size_t run, const std::vector<int>& series) {
    for (std::size_t group = 0; group < m_groups[run].size(); ++group) {
        const std::vector<int> points = ordinaryPointsOf(*m_runs[run].file, m_groups[run][group].places);
        for (const int each : series) {
            for (const Statistic statistic : allStatistics) {
                const SeriesValues values = seriesValues(m_runs[run].results(), each, statistic);
                const auto isObserved = [&](int point) { return values.isObserved(point); };
                if (std::ranges::any_of(points, isObserved)) m_rows.push_back({run, group, each, statistic});
            }
        }
    }
}

const FitFigures& FitRows::figuresOf(int row) const {
    const auto index = static_cast<std::size_t>(row);
    if (!m_isFigured[index]) {
        m_figures[index] = fitOf(pointsOf(row).points);
        m_isFigured[index] = true;
    }
    return m_figures[index];
}

Cell FitRows::groupCell(int row, int part) const {
    const ReachGroup& group = groupOf(row);
    if (m_by == FitBy::river) return std::string_view(group.river);
    if (part == 0) return group.reach;
    return std::string_view(m_reachNames[static_cast<std::size_t>(row)]);
}

Cell FitRows::cell(int row, int column) const {
    if (column == 0) return std::string_view(runOf(row).name);
    if (column <= groupColumns(m_by)) return groupCell(row, column - 1);
    const int figure = column - groupColumns(m_by) - 1;
    if (figure == seriesColumn) return std::string_view(runOf(row).results().seriesNames[rowAt(row).series]);
    if (figure == statisticColumn) return nameOf(rowAt(row).statistic);
    const FitFigures& fit = figuresOf(row);
    switch (figure) {
    case countColumn: return fit.n;
    case meanErrorColumn: return fit.meanError;
    case biasColumn: return cellOf(fit.percentBias);
    case absoluteErrorColumn: return fit.meanAbsoluteError;
    case squareErrorColumn: return fit.rootMeanSquareError;
    case efficiencyColumn: return cellOf(fit.efficiency);
    case rSquaredColumn: return cellOf(fit.rSquared);
    case factorColumn: return cellOf(fit.typicalFactor);
    case withinColumn: return fit.withinLimits;
    default: return fit.bounded;
    }
}

std::string FitRows::note(int, int column) const {
    return meaningOf(column - groupColumns(m_by) - 1);
}

// The point that fits worst.
std::optional<ExplorePlace> FitRows::place(int row, int) const {
    const Points at = pointsOf(row);
    const auto size = [](const ObservedPoint& each) {
        return std::abs((each.value - each.observed) / each.observed);
    };
    const auto worst = std::ranges::max_element(at.points, {}, size);
    return placeOf(at.run.results(), worst->point);
}

std::optional<int> FitRows::series(int row, int) const {
    return rowAt(row).series;
}

std::vector<int> FitRows::rowsAt(const ExplorePlace& place) const {
    std::vector<int> rows;
    for (int row = 0; row < rowCount() && m_by != FitBy::whole; ++row) {
        const ReachPoints& reaches = runOf(row).reaches();
        const std::vector<int>& places = groupOf(row).places;
        if (std::ranges::count(places, reaches.placeOf(place.reach)) > 0) rows.push_back(row);
    }
    return rows;
}

FitRows::Points FitRows::pointsOf(int row) const {
    const Row& at = rowAt(row);
    const StudyRun& run = runOf(row);
    const std::vector<int> points = ordinaryPointsOf(*run.file, groupOf(row).places);
    return {run, at.series, at.statistic, observedPoints(*run.file, points, at.series, at.statistic)};
}

std::string FitRows::whyEmpty() const {
    if (m_runs.empty()) return "Show a run to see how well it fits.";
    if (!m_hasSeries) return "Choose the flow or a concentration to see its fit; loads are not observed.";
    if (m_hasCircles) return "Reaches run in a circle, so that there are no rivers.";
    return m_runs.size() == 1 ? "Nothing of these series is observed in this file."
                              : "Nothing of these series is observed in these files.";
}

std::string wordsOf(const FitScatter& scatter, const ScatterPoint& point) {
    const ResultsDataSet& results = scatter.run.results();
    const int at = point.observed.point;
    return pointTitle(results, at) + ", reach " + reachTitle(*scatter.run.file, results.pointReach[at]) +
           ": observed " + shownFigures(point.observed.observed) + ", simulated " +
           shownFigures(point.observed.value);
}

} // namespace korvel
