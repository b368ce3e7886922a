// What a run holds of one series and statistic, as columns by point index.
#pragma once

#include "results/ResultsDataSet.h"
#include "results/Statistics.h"

#include <algorithm>
#include <span>
#include <string>
#include <vector>

namespace korvel {

struct SeriesValues {
    std::span<const double> value;
    std::span<const double> limit1, limit2; // in file order; the flow has none
    std::span<const double> observed;       // 0 where there is none
    std::span<const double> target;         // 0 or below where there is none; the flow has none

    bool hasLimits() const { return !limit1.empty(); }
    double low(int point) const { return std::min(limit1[at(point)], limit2[at(point)]); }
    double high(int point) const { return std::max(limit1[at(point)], limit2[at(point)]); }
    // Two limits, with the value between them.
    bool isBounded(int point) const {
        if (!hasLimits()) return false;
        const double lowest = low(point), highest = high(point), v = value[at(point)];
        // Without branches: it is asked of every point, and none could be foreseen.
        // NOLINTNEXTLINE(readability-implicit-bool-conversion)
        return (lowest < highest) & (lowest <= v) & (v <= highest);
    }
    bool isObserved(int point) const { return observed[at(point)] != 0; }
    bool hasTarget(int point) const { return !target.empty() && target[at(point)] > 0; }

    static std::size_t at(int point) { return static_cast<std::size_t>(point); }
};

SeriesValues seriesValues(const ResultsDataSet& results, int series, Statistic statistic);

// Series 0 the flow, 1 to n the concentrations, n + 1 to 2n the loads.
inline bool isFlow(int series) {
    return series == 0;
}
inline bool isLoad(const ResultsDataSet& results, int series) {
    return results.kindOf(series) == SeriesKind::load;
}

// Flow, concentrations and loads, as they are taken where nobody has chosen some of them.
std::vector<int> allSeries(const ResultsDataSet& results);

// As it is shown: without the blanks around it and points at its end.
std::string determinandName(const ResultsDataSet& results, int determinand);

} // namespace korvel
