#include "engine/Percentiles.h"

#include "engine/ExactFunctions.h"

#include <algorithm>
#include <cmath>

namespace korvel::engine {

namespace {

constexpr double quantile95 = 1.6448536269514722;
constexpr std::array<double, 3> shares{0.90, 0.95, 0.99};

double deviationOf(const Shots& values, double mean) {
    double sum = 0;
    for (const double value : values)
        sum += (value - mean) * (value - mean);
    return values.size() < 2 ? 0 : std::sqrt(sum / static_cast<double>(values.size() - 1));
}

// Logarithms of a percentile z deviations above the mean scatter by sigma * sqrt((1 + z^2 / 2) / samples).
Limits percentileLimits(double value, double share, double sigma, int samples) {
    const double z = normalQuantile(share);
    const double factor = exponential(quantile95 * sigma * std::sqrt((1 + z * z / 2) / samples));
    return {value / factor, value * factor};
}

} // namespace

double meanOf(const Shots& values) {
    double sum = 0;
    for (const double value : values)
        sum += value;
    return values.empty() ? 0 : sum / static_cast<double>(values.size());
}

double percentileOf(const Shots& sorted, double share) {
    if (sorted.empty()) return 0;
    const double rank =
        std::clamp(share * static_cast<double>(sorted.size() + 1), 1.0, static_cast<double>(sorted.size()));
    const auto below = static_cast<std::size_t>(rank);
    const double low = sorted[below - 1];
    const double high = sorted[std::min(below, sorted.size() - 1)];
    return low + (rank - static_cast<double>(below)) * (high - low);
}

Summary summarise(Shots values, int samples) {
    Summary summary;
    std::sort(values.begin(), values.end());
    summary.mean = meanOf(values);
    summary.deviation = deviationOf(values, summary.mean);
    const double error = quantile95 * summary.deviation / std::sqrt(samples);
    summary.meanLimits = {std::max(0.0, summary.mean - error), summary.mean + error};
    const double spread = summary.mean > 0 ? summary.deviation / summary.mean : 0;
    const double sigma = std::sqrt(naturalLog(1 + spread * spread));
    for (std::size_t i = 0; i < shares.size(); ++i) {
        summary.percentiles[i] = percentileOf(values, shares[i]);
        summary.percentileLimits[i] = percentileLimits(summary.percentiles[i], shares[i], sigma, samples);
    }
    return summary;
}

Summary summariseFlow(Shots flows) {
    Summary summary;
    std::sort(flows.begin(), flows.end());
    summary.mean = meanOf(flows);
    summary.deviation = deviationOf(flows, summary.mean);
    summary.percentiles.fill(percentileOf(flows, 0.05));
    return summary;
}

} // namespace korvel::engine
