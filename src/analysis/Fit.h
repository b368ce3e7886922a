// How well a run fits what was observed, across places: stations that it was calibrated to are no independent
// test of it.
#pragma once

#include "study/ReachChoice.h"
#include "study/RunFile.h"
#include "study/SeriesValues.h"

#include <optional>
#include <span>
#include <vector>

namespace korvel {

struct ObservedPoint {
    double value = 0;
    double observed = 0;
    int point = 0;
    bool bounded = false;
    bool withinLimits = false; // what was observed lies between the limits of the value
};

// The points of these reaches (by place), type 99 excepted.
std::vector<int> ordinaryPointsOf(const RunFile& run, std::span<const int> places);

// Those of the points that are observed.
std::vector<ObservedPoint> observedPoints(const RunFile& run, std::span<const int> points, int series,
                                          Statistic statistic);

// The error is value less observed. Bias and efficiency as in Moriasi et al. (2007), Transactions of the
// ASABE 50(3), with the bias's sign turned: above 0 the model is high.
struct FitFigures {
    int n = 0;
    double meanError = 0;
    std::optional<double> percentBias; // none where the observed sum is 0
    double meanAbsoluteError = 0;
    double rootMeanSquareError = 0;
    std::optional<double> efficiency;    // Nash and Sutcliffe's
    std::optional<double> rSquared;      // Pearson's correlation, squared
    std::optional<double> typicalFactor; // of those where both are above 0
    int withinLimits = 0;
    int bounded = 0;
};

FitFigures fitOf(std::span<const ObservedPoint> points);

struct FitError {
    int point = 0;
    int series = 0;
    Statistic statistic = Statistic::mean;
    double value = 0;
    double observed = 0;
    double error = 0;
    double percent = 0; // of what was observed
};

// The worst relative error first, by its size; equal ones by point, series and statistic.
std::vector<FitError> fitErrors(const RunFile& run, const ReachChoice& reaches,
                                const std::vector<int>& series, const std::vector<Statistic>& statistics);

} // namespace korvel
