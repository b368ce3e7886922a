#include "analysis/Fit.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <tuple>

namespace korvel {

namespace {

ObservedPoint observedPoint(const SeriesValues& values, int point) {
    ObservedPoint observed;
    observed.point = point;
    observed.value = values.value[SeriesValues::at(point)];
    observed.observed = values.observed[SeriesValues::at(point)];
    if (!values.hasLimits()) return observed;
    observed.bounded = values.isBounded(point);
    observed.withinLimits = observed.bounded & (values.low(point) <= observed.observed) &
                            (observed.observed <= values.high(point));
    return observed;
}

// Sums of squares about the means, and of products.
struct Spread {
    double ofValues = 0, ofObserved = 0, common = 0;
};

Spread spreadOf(std::span<const ObservedPoint> points, double meanValue, double meanObserved) {
    Spread spread;
    for (const ObservedPoint& each : points) {
        const double v = each.value - meanValue, o = each.observed - meanObserved;
        spread.ofValues += v * v;
        spread.ofObserved += o * o;
        spread.common += v * o;
    }
    return spread;
}

bool areAllEqual(std::span<const ObservedPoint> points, double ObservedPoint::*part) {
    return std::ranges::all_of(points,
                               [&](const ObservedPoint& each) { return each.*part == points.front().*part; });
}

std::optional<double> typicalFactorOf(std::span<const ObservedPoint> points) {
    double sum = 0;
    int count = 0;
    for (const ObservedPoint& each : points) {
        if (each.value <= 0 || each.observed <= 0) continue;
        const double factor = std::log(each.value / each.observed);
        sum += factor * factor;
        ++count;
    }
    if (count == 0) return std::nullopt;
    return std::exp(std::sqrt(sum / count));
}

struct ErrorSums {
    double errors = 0, absoluteErrors = 0, squaredErrors = 0, values = 0, observed = 0;
    int bounded = 0, withinLimits = 0;

    explicit ErrorSums(std::span<const ObservedPoint> points) {
        for (const ObservedPoint& each : points) {
            const double error = each.value - each.observed;
            errors += error;
            absoluteErrors += std::abs(error);
            squaredErrors += error * error;
            values += each.value;
            observed += each.observed;
            bounded += each.bounded ? 1 : 0;
            withinLimits += each.withinLimits ? 1 : 0;
        }
    }
};

} // namespace

std::vector<int> ordinaryPointsOf(const RunFile& run, std::span<const int> places) {
    std::vector<int> points;
    for (const int place : places)
        std::ranges::copy_if(run.reaches.pointsOf(place), std::back_inserter(points), [&](int point) {
            return run.results.pointFeatureType[point] != InterpolatedPointType;
        });
    return points;
}

std::vector<ObservedPoint> observedPoints(const RunFile& run, std::span<const int> points, int series,
                                          Statistic statistic) {
    const SeriesValues values = seriesValues(run.results, series, statistic);
    std::vector<ObservedPoint> observed;
    observed.reserve(points.size());
    for (const int point : points)
        if (values.isObserved(point)) observed.push_back(observedPoint(values, point));
    return observed;
}

FitFigures fitOf(std::span<const ObservedPoint> points) {
    FitFigures fit;
    fit.n = static_cast<int>(points.size());
    if (points.empty()) return fit;
    const ErrorSums sums(points);
    const auto n = static_cast<double>(points.size());
    fit.meanError = sums.errors / n;
    if (sums.observed != 0) fit.percentBias = 100 * sums.errors / sums.observed;
    fit.meanAbsoluteError = sums.absoluteErrors / n;
    fit.rootMeanSquareError = std::sqrt(sums.squaredErrors / n);
    fit.typicalFactor = typicalFactorOf(points);
    fit.bounded = sums.bounded;
    fit.withinLimits = sums.withinLimits;
    if (fit.n < 2 || areAllEqual(points, &ObservedPoint::observed)) return fit;
    const Spread spread = spreadOf(points, sums.values / n, sums.observed / n);
    fit.efficiency = 1 - sums.squaredErrors / spread.ofObserved;
    if (!areAllEqual(points, &ObservedPoint::value))
        fit.rSquared = spread.common * spread.common / (spread.ofValues * spread.ofObserved);
    return fit;
}

std::vector<FitError> fitErrors(const RunFile& run, const ReachChoice& reaches,
                                const std::vector<int>& series, const std::vector<Statistic>& statistics) {
    std::vector<int> places;
    for (int place = 0; place < run.reaches.count(); ++place)
        if (reaches.holds(run.reaches.number(place))) places.push_back(place);
    const std::vector<int> points = ordinaryPointsOf(run, places);
    std::vector<FitError> errors;
    for (const int c : series) {
        for (const Statistic statistic : statistics) {
            for (const ObservedPoint& each : observedPoints(run, points, c, statistic)) {
                const double error = each.value - each.observed;
                errors.push_back({each.point, c, statistic, each.value, each.observed, error,
                                  100 * error / each.observed});
            }
        }
    }
    std::ranges::sort(errors, [](const FitError& a, const FitError& b) {
        const double sizeOfA = std::abs(a.percent), sizeOfB = std::abs(b.percent);
        if (sizeOfA != sizeOfB) return sizeOfA > sizeOfB;
        return std::tie(a.point, a.series, a.statistic) < std::tie(b.point, b.series, b.statistic);
    });
    return errors;
}

} // namespace korvel
