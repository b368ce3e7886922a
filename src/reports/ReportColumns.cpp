#include "reports/ReportColumns.h"

#include <algorithm>

namespace korvel {

std::vector<ReportColumn> columnsOfDeterminand(int series, const ReportSelection& selection) {
    std::vector<ReportColumn> columns;
    for (const Statistic statistic : selection.statistics) {
        const StatisticFacts& each = factsOf(statistic);
        columns.push_back({each.value, series, each.level, each.caption, ""});
        if (!selection.limits) continue;
        columns.push_back({each.limit1, series, each.level, each.caption, "LCL"});
        columns.push_back({each.limit2, series, each.level, each.caption, "UCL"});
    }
    if (selection.targets) columns.push_back({ValueField::targetValue, series, 0, "Target", ""});
    if (selection.observed)
        for (const Statistic statistic : selection.statistics) {
            const StatisticFacts& each = factsOf(statistic);
            columns.push_back({each.observed, series, each.level, each.caption, "(Obs)"});
        }
    return columns;
}

int CountCols(const ReportSelection& selection) {
    std::size_t count = 0;
    for (const int series : selection.determinands)
        count += columnsOfDeterminand(series, selection).size();
    return static_cast<int>(count);
}

int determinandsThatFit(const ReportSelection& selection) {
    const int columns = static_cast<int>(columnsOfDeterminand(1, selection).size());
    return mostPrintedColumns / std::max(columns, 1);
}

ReportColumns reportColumns(const ResultsDataSet& results, const ReportSelection& selection) {
    ReportColumns report;
    for (const int series : selection.determinands) {
        const std::vector<ReportColumn> own = columnsOfDeterminand(series, selection);
        if (own.empty()) continue;
        const SeriesName name = results.nameOf(series);
        ReportGroup group{name.title, name.kind, report.count() + 1, 0};
        report.columns.insert(report.columns.end(), own.begin(), own.end());
        group.lastColumn = report.count();
        report.groups.push_back(group);
    }
    return report;
}

std::vector<ValueColumn> valueColumns(const ResultsDataSet& results, const ReportColumns& columns) {
    std::vector<ValueColumn> values;
    for (const ReportColumn& each : columns.columns)
        values.push_back(results.values[0].column(each.field, each.series, each.level));
    return values;
}

} // namespace korvel
