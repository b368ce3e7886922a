#include "engine/GapFilling.h"

#include "engine/ExactFunctions.h"
#include "engine/Percentiles.h"

#include <algorithm>
#include <cmath>

namespace engine {

namespace {

constexpr double shortestStretch = 0.1; // km
constexpr double smallestLow = 0.02;    // a fill's low flow, as a share of its mean
constexpr double largestRate = 20;      // 1/km
constexpr int passesOfQuality = 4;      // discharges within a stretch feel part of it only, so it takes a few

FlowFill flowFill(const Stretch& stretch, const Water& river, const Observed& observed) {
    const Summary simulated = summariseFlow(river.flow);
    FlowFill fill{stretch, observed.mean - simulated.mean, 0};
    const double size = std::abs(fill.mean);
    const double low = std::abs(observed.percentile95 - simulated.percentiles[1]);
    fill.low = std::clamp(low, smallestLow * size, size);
    return fill;
}

// Moves each rate by what is still missing of the observed mean.
void correctRates(const Water& river, const Catchment& catchment, int feature, QualityFill* fills) {
    for (std::size_t d = 0; d < catchment.determinands.size(); ++d) {
        const double observed = catchment.observedAt(feature, static_cast<int>(d) + 1).mean;
        const double simulated = meanOf(river.quality[d]);
        if (observed <= 0 || simulated <= 0) continue;
        const double rate = fills[d].rate + naturalLog(observed / simulated) / fills[d].stretch.length();
        fills[d].rate = std::clamp(rate, -largestRate, largestRate);
    }
}

bool observesQuality(const Catchment& catchment, const Point& point) {
    if (point.type != FeatureType::monitoringStation) return false;
    for (const Determinand& determinand : catchment.determinands)
        if (catchment.observedAt(point.feature->number, determinand.number).mean > 0) return true;
    return false;
}

void fillStation(const ReachRun& run, const Catchment& catchment, const Point& station,
                 const Stretch& stretch, GapFills& fills) {
    const std::size_t first = fills.qualities.size();
    for (const Determinand& determinand : catchment.determinands)
        fills.qualities.push_back({stretch, determinand.number, 0});
    for (int pass = 0; pass < passesOfQuality; ++pass)
        correctRates(run.riverAt(station, fills), catchment, station.feature->number,
                     &fills.qualities[first]);
}

} // namespace

void fillFlowsOf(const ReachRun& run, const Catchment& catchment, GapFills& fills) {
    double from = 0;
    for (const Point& point : run.points()) {
        if (point.type != FeatureType::flowGauge) continue;
        const Observed observed = catchment.observedAt(point.feature->number, 0);
        const Stretch stretch{run.reach().number, from, point.distance};
        if (observed.mean <= 0 || stretch.length() < shortestStretch) continue;
        fills.flows.push_back(flowFill(stretch, run.riverAt(point, fills), observed));
        from = point.distance;
    }
}

void fillQualitiesOf(const ReachRun& run, const Catchment& catchment, GapFills& fills) {
    double from = 0;
    for (const Point& point : run.points()) {
        const Stretch stretch{run.reach().number, from, point.distance};
        if (!observesQuality(catchment, point) || stretch.length() < shortestStretch) continue;
        fillStation(run, catchment, point, stretch, fills);
        from = point.distance;
    }
}

} // namespace engine
