#include "engine/GapFilling.h"

#include "engine/ExactFunctions.h"
#include "engine/Percentiles.h"

#include <algorithm>
#include <cmath>

namespace korvel::engine {

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

// The search for one determinand's rate. At first the whole stretch is taken to answer to it; then as much of
// it as the last change has shown.
class RateSearch {
  public:
    explicit RateSearch(double length) : m_length(length), m_answering(length) {}

    double rate() const { return m_rate; }
    void correct(double observed, double simulated) {
        if (observed <= 0 || simulated <= 0) return;
        const double level = naturalLog(simulated);
        if (m_rate != m_lastRate)
            m_answering = std::clamp((level - m_lastLevel) / (m_rate - m_lastRate), m_length / 50, m_length);
        m_lastRate = m_rate;
        m_lastLevel = level;
        m_rate = std::clamp(m_rate + (naturalLog(observed) - level) / m_answering, -largestRate, largestRate);
    }

  private:
    double m_length, m_answering; // km
    double m_rate = 0, m_lastRate = 0;
    double m_lastLevel = 0; // logarithm of the mean that the last rate gave
};

bool observesQuality(const Catchment& catchment, const Point& point) {
    if (point.type != FeatureType::monitoringStation) return false;
    return std::ranges::any_of(catchment.determinands, [&](const Determinand& determinand) {
        return catchment.observedAt(point.feature->number, determinand.number).mean > 0;
    });
}

void fillStation(const ReachRun& run, const Catchment& catchment, const Point& station,
                 const Stretch& stretch, GapFills& fills) {
    const std::size_t first = fills.qualities.size();
    std::vector<RateSearch> searches(catchment.determinands.size(), RateSearch(stretch.length()));
    for (const Determinand& determinand : catchment.determinands)
        fills.qualities.push_back({stretch, determinand.number, 0});
    for (int pass = 0; pass < passesOfQuality; ++pass) {
        const Water river = run.riverAt(station, fills);
        for (std::size_t d = 0; d < searches.size(); ++d) {
            const Observed observed = catchment.observedAt(station.feature->number, static_cast<int>(d) + 1);
            searches[d].correct(observed.mean, meanOf(river.quality[d]));
            fills.qualities[first + d].rate = searches[d].rate();
        }
    }
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

} // namespace korvel::engine
