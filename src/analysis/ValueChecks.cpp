#include "analysis/PointChecks.h"

#include "analysis/CheckPlaces.h"
#include "basic/Numbers.h"

#include <functional>

namespace korvel {

namespace {

using Sentence = std::function<std::string(const FoundPlace&)>;

double valueOf(const StatisticColumns& columns, Statistic statistic, int point) {
    return columns[static_cast<std::size_t>(statistic)].value[SeriesValues::at(point)];
}

CheckFinding findingOf(const RunFile& run, CheckKind kind, FoundPlaces& found, const Sentence& sentence) {
    CheckFinding finding{kind, found.count(), {}};
    for (const FoundPlace& place : found.first()) {
        finding.places.push_back(pointPlace(run, place.point, sentence(place)));
        finding.places.back().series = run.results.seriesNames[place.series];
    }
    return finding;
}

bool isOutOfOrder(const StatisticColumns& columns, int point) {
    const double p95 = valueOf(columns, Statistic::p95, point);
    return valueOf(columns, Statistic::p90, point) > p95 || p95 > valueOf(columns, Statistic::p99, point);
}

std::string outOfOrderSentence(const StatisticColumns& columns, int point) {
    const auto shown = [&](Statistic statistic) {
        return shortestNumber(valueOf(columns, statistic, point));
    };
    return "the 90, 95 and 99 percentiles are " + shown(Statistic::p90) + ", " + shown(Statistic::p95) +
           " and " + shown(Statistic::p99);
}

bool isMeanAboveP99(const StatisticColumns& columns, int point) {
    return valueOf(columns, Statistic::mean, point) > valueOf(columns, Statistic::p99, point);
}

std::string meanSentence(const StatisticColumns& columns, int point) {
    return "the mean is " + shortestNumber(valueOf(columns, Statistic::mean, point)) +
           ", the 99 percentile " + shortestNumber(valueOf(columns, Statistic::p99, point));
}

// Two limits, not both 0, that the value doesn't lie between.
bool isBesideLimits(const SeriesValues& values, int point) {
    if (!values.hasLimits()) return false;
    const double low = values.low(point), high = values.high(point);
    const double v = values.value[SeriesValues::at(point)];
    return (low != 0 || high != 0) && !(low <= v && v <= high);
}

bool hasLimitsBeside(const StatisticColumns& columns, int point) {
    return isBesideLimits(columns[0], point) || isBesideLimits(columns[1], point) ||
           isBesideLimits(columns[2], point) || isBesideLimits(columns[3], point);
}

std::string limitsSentence(const StatisticColumns& columns, int point) {
    for (const Statistic statistic : allStatistics) {
        const SeriesValues& values = columns[static_cast<std::size_t>(statistic)];
        if (isBesideLimits(values, point))
            return "the " + wordsOf(statistic) + " is " +
                   shortestNumber(values.value[SeriesValues::at(point)]) + ", its limits " +
                   shortestNumber(values.low(point)) + " and " + shortestNumber(values.high(point));
    }
    return "";
}

bool hasNegative(const StatisticColumns& columns, int point) {
    return valueOf(columns, Statistic::mean, point) < 0 || valueOf(columns, Statistic::p90, point) < 0 ||
           valueOf(columns, Statistic::p95, point) < 0 || valueOf(columns, Statistic::p99, point) < 0;
}

std::string negativeSentence(const StatisticColumns& columns, int point) {
    for (const Statistic statistic : allStatistics)
        if (valueOf(columns, statistic, point) < 0)
            return "the " + wordsOf(statistic) + " is " + shortestNumber(valueOf(columns, statistic, point));
    return "";
}

struct ValueCheck {
    CheckKind kind;
    bool ofFlowToo;
    bool (*fails)(const StatisticColumns&, int);
    std::string (*sentence)(const StatisticColumns&, int);
};

constexpr ValueCheck valueChecks[] = {{CheckKind::percentileOrder, false, isOutOfOrder, outOfOrderSentence},
                                      {CheckKind::meanAboveP99, false, isMeanAboveP99, meanSentence},
                                      {CheckKind::limits, false, hasLimitsBeside, limitsSentence},
                                      {CheckKind::negative, true, hasNegative, negativeSentence}};

void runValueCheck(const ValueCheck& check, const StatisticColumns& columns, const std::vector<int>& points,
                   FoundPlaces& found) {
    for (const int point : points)
        if (check.fails(columns, point)) found.take(point);
}

} // namespace

std::vector<CheckFinding> checkValues(const RunFile& run, std::size_t places) {
    const std::vector<int> points = pointsOfReaches(run);
    std::vector<FoundPlaces> found(std::size(valueChecks), FoundPlaces(places));
    for (int series = 0; series <= run.results.seriesCount; ++series) {
        const StatisticColumns columns = statisticColumns(run, series);
        for (std::size_t k = 0; k < found.size(); ++k) {
            if (isFlow(series) && !valueChecks[k].ofFlowToo) continue;
            found[k].beginSeries(series);
            runValueCheck(valueChecks[k], columns, points, found[k]);
        }
    }
    std::vector<CheckFinding> findings;
    for (std::size_t k = 0; k < found.size(); ++k) {
        const auto sentence = [&](const FoundPlace& place) {
            return valueChecks[k].sentence(statisticColumns(run, place.series), place.point);
        };
        findings.push_back(findingOf(run, valueChecks[k].kind, found[k], sentence));
    }
    return findings;
}

} // namespace korvel
