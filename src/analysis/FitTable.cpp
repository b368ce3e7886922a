#include "analysis/FitTable.h"

#include <array>

namespace korvel {

namespace {

// `by`: the column that names the group; "" for the whole.
std::vector<Column> fitColumns(const std::string& by) {
    std::vector<Column> columns;
    if (!by.empty()) columns.push_back({by});
    for (const char* name : {"series", "statistic", "n", "mean_error", "pbias", "mean_absolute_error", "rmse",
                             "nse", "r2", "typical_factor", "within_limits", "bounded"})
        columns.push_back({name});
    return columns;
}

std::vector<Cell> cellsOf(const FitRow& row, const ResultsDataSet& results, const std::string& by) {
    const FitFigures& fit = row.figures;
    std::vector<Cell> cells;
    if (by == "reach") cells.emplace_back(row.group.reach);
    if (by == "river") cells.emplace_back(std::string_view(row.group.river));
    addCells(cells,
             {std::string_view(results.seriesNames[row.series]), nameOf(row.statistic), fit.n, fit.meanError,
              cellOf(fit.percentBias), fit.meanAbsoluteError, fit.rootMeanSquareError, cellOf(fit.efficiency),
              cellOf(fit.rSquared), cellOf(fit.typicalFactor), fit.withinLimits, fit.bounded});
    return cells;
}

Table tableOf(const std::string& name, const std::string& by, const StudyRun& run,
              std::vector<ReachGroup> groups, const FitRequest& request) {
    const auto rows = [run, groups = std::move(groups), request, by](RowTaker& taker) {
        for (const FitRow& row : fitRows(run, groups, request))
            taker.row(cellsOf(row, run.results(), by));
    };
    return {name, fitColumns(by), rows};
}

} // namespace

std::vector<FitRow> fitRows(const StudyRun& run, const std::vector<ReachGroup>& groups,
                            const FitRequest& request) {
    std::vector<FitRow> rows;
    for (const ReachGroup& group : groups) {
        const std::vector<int> ordinary = ordinaryPointsOf(*run.file, group.places);
        for (const int series : request.series) {
            for (const Statistic statistic : request.statistics) {
                const auto points = observedPoints(*run.file, ordinary, series, statistic);
                if (!points.empty()) rows.push_back({group, series, statistic, fitOf(points)});
            }
        }
    }
    return rows;
}

Table fitOfWhole(const StudyRun& run, const FitRequest& request) {
    return tableOf("series", "", run, {wholeGroup(*run.file, request.reaches)}, request);
}

Table fitByReach(const StudyRun& run, const FitRequest& request) {
    return tableOf("reaches", "reach", run, groupsByReach(*run.file, request.reaches), request);
}

Table fitByRiver(const StudyRun& run, const Network& network, const FitRequest& request) {
    return tableOf("rivers", "river", run, groupsByRiver(*run.file, network, request.reaches), request);
}

Table fitByPoint(const StudyRun& run, const FitRequest& request) {
    std::vector<Column> columns;
    for (const char* name : {"reach", "distance", "feature", "series", "statistic", "observed", "value",
                             "low", "high", "error", "percent"})
        columns.push_back({name});
    const auto rows = [run, request](RowTaker& taker) {
        const ResultsDataSet& results = run.results();
        for (const FitError& error :
             fitErrors(*run.file, request.reaches, request.series, request.statistics)) {
            const SeriesValues values = seriesValues(results, error.series, error.statistic);
            const bool limits = values.hasLimits();
            const std::array<Cell, 11> cells = {results.pointReach[error.point],
                                                results.pointDistance[error.point],
                                                std::string_view(results.pointLabel[error.point]),
                                                std::string_view(results.seriesNames[error.series]),
                                                nameOf(error.statistic),
                                                error.observed,
                                                error.value,
                                                limits ? Cell(values.low(error.point)) : Cell(Nothing()),
                                                limits ? Cell(values.high(error.point)) : Cell(Nothing()),
                                                error.error,
                                                error.percent};
            taker.row(cells);
        }
    };
    return {"points", columns, rows};
}

} // namespace korvel
