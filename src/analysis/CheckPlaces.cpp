#include "analysis/CheckPlaces.h"

namespace korvel {

// The points of reaches with a line, in file order.
std::vector<int> pointsOfReaches(const RunFile& run) {
    std::vector<int> points;
    for (int i = 1; i <= run.results.pointCount; ++i)
        if (run.reaches.placeOf(run.results.pointReach[i]) >= 0) points.push_back(i);
    return points;
}

CheckPlace pointPlace(const RunFile& run, int point, const std::string& what) {
    return {run.results.pointReach[point],
            run.results.pointDistance[point],
            run.results.pointLabel[point],
            {},
            what};
}

StatisticColumns statisticColumns(const RunFile& run, int series) {
    StatisticColumns columns;
    for (const Statistic statistic : allStatistics)
        columns[static_cast<std::size_t>(statistic)] = seriesValues(run.results, series, statistic);
    return columns;
}

} // namespace korvel
