#include "reports/ReportColumns.h"

#include <algorithm>

namespace korvel {

namespace {

struct Statistic {
    const char* heading;
    ValueField value, limit1, limit2, observed;
    int level;
};

using enum ValueField;

constexpr Statistic mean{"Mean", meanValue, meanLimit1, meanLimit2, observedMean, 0};
constexpr Statistic percentile(const char* heading, int level) {
    return {heading, percentileValues, percentileLimit1, percentileLimit2, observedPercentiles, level};
}
constexpr std::array<Statistic, 3> percentiles{percentile("90%-ile", 0), percentile("95%-ile", 1),
                                               percentile("99%-ile", 2)};

std::vector<Statistic> chosenStatistics(const ReportSelection& selection) {
    std::vector<Statistic> chosen;
    if (selection.means) chosen.push_back(mean);
    for (std::size_t level = 0; level < percentiles.size(); ++level)
        if (selection.percentiles[level]) chosen.push_back(percentiles[level]);
    return chosen;
}

// In the order in which a determinand's columns stand.
std::vector<ReportColumn> columnsOf(int series, const ReportSelection& selection) {
    const std::vector<Statistic> statistics = chosenStatistics(selection);
    std::vector<ReportColumn> columns;
    for (const Statistic& each : statistics) {
        columns.push_back({each.value, series, each.level, each.heading, ""});
        if (!selection.limits) continue;
        columns.push_back({each.limit1, series, each.level, each.heading, "LCL"});
        columns.push_back({each.limit2, series, each.level, each.heading, "UCL"});
    }
    if (selection.targets) columns.push_back({targetValue, series, 0, "Target", ""});
    if (selection.observed)
        for (const Statistic& each : statistics)
            columns.push_back({each.observed, series, each.level, each.heading, "(Obs)"});
    return columns;
}

// Where the name's kind begins, with its blank: at the later of the last " (Conc)" and " (Load)".
std::size_t kindAt(const std::string& name) {
    const auto conc = name.rfind(" (Conc)");
    const auto load = name.rfind(" (Load)");
    if (conc == std::string::npos) return load;
    return load == std::string::npos ? conc : std::max(conc, load);
}

ReportGroup groupNamed(const std::string& name) {
    const auto at = kindAt(name);
    if (at == std::string::npos) return {name, "", 0, 0};
    return {name.substr(0, at), name.substr(at + 1), 0, 0};
}

} // namespace

ReportColumns reportColumns(const ResultsDataSet& results, const ReportSelection& selection) {
    ReportColumns report;
    for (const int series : selection.determinands) {
        const std::vector<ReportColumn> own = columnsOf(series, selection);
        if (own.empty()) continue;
        ReportGroup group = groupNamed(results.seriesNames[series]);
        group.firstColumn = report.count() + 1;
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
