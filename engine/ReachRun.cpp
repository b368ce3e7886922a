#include "engine/ReachRun.h"

#include "engine/ExactFunctions.h"
#include "engine/Percentiles.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace korvel::engine {

namespace {

constexpr double fillCorrelation = 0.9;
constexpr double highestQuality = 1e9; // mg/l; gap filling stops there
constexpr double mostTaken = 0.9;      // share of the river that an abstraction or a loss may take

Water stillWater(const Catchment& catchment, std::size_t shots) {
    return {Shots(shots), std::vector<Shots>(catchment.determinands.size(), Shots(shots))};
}

BalanceItem balanceItemOfInflow(FeatureType type) {
    switch (type) {
    case FeatureType::sewageDischarge: return BalanceItem::sewage;
    case FeatureType::industrialEffluent: return BalanceItem::industry;
    case FeatureType::stormOverflow: return BalanceItem::overflows;
    default: return BalanceItem::streams;
    }
}

void scaleFlow(Shots& flow, double factor) {
    for (double& value : flow)
        value *= factor;
}

} // namespace

Amounts amountsOf(const Water& water) {
    Amounts amounts{meanOf(water.flow), {}};
    for (const Shots& quality : water.quality) {
        double sum = 0;
        for (std::size_t i = 0; i < quality.size(); ++i)
            sum += water.flow[i] * quality[i];
        amounts.loads.push_back(sum / static_cast<double>(std::max<std::size_t>(quality.size(), 1)));
    }
    return amounts;
}

void add(Amounts& to, const Amounts& amounts, double sign) {
    to.flow += sign * amounts.flow;
    to.loads.resize(amounts.loads.size());
    for (std::size_t i = 0; i < amounts.loads.size(); ++i)
        to.loads[i] += sign * amounts.loads[i];
}

void mix(Water& first, const Water& second) {
    for (std::size_t d = 0; d < first.quality.size(); ++d)
        for (std::size_t i = 0; i < first.flow.size(); ++i) {
            const double sum = first.flow[i] + second.flow[i];
            if (sum <= 0) continue;
            first.quality[d][i] =
                (first.flow[i] * first.quality[d][i] + second.flow[i] * second.quality[d][i]) / sum;
        }
    for (std::size_t i = 0; i < first.flow.size(); ++i)
        first.flow[i] += second.flow[i];
}

// The walk itself: the river's water at the place reached so far.
class ReachWalk {
  public:
    ReachWalk(const ReachRun& run, const GapFills& fills, Balance* balance)
        : m_run(run), m_river(run.m_upstream), m_balance(balance) {
        drawFills(fills);
        book(BalanceItem::upstream, m_river);
        book(BalanceItem::head, run.m_head);
        mix(m_river, run.m_head);
    }

    // Down to a point, and past what enters or leaves there.
    void moveTo(std::size_t place, const EffluentTreatment& treat) {
        const Point& point = m_run.m_points[place];
        carryTo(point.distance);
        if (point.side == Side::downstream) meet(*point.feature, m_run.m_inflows[place], treat);
    }

    void finish() { book(BalanceItem::downstream, m_river); }
    const Water& river() const { return m_river; }
    Water take() { return std::move(m_river); }

  private:
    struct DrawnFill {
        Stretch stretch;
        Shots gain;
    };

    void carryTo(double distance) {
        const double step = distance - m_distance;
        if (step <= 0) return;
        // Diffuse water enters over the whole step: it is mixed in half way.
        const std::vector<Shots> remains = halfStepRemains(step);
        decay(remains);
        addDiffuse(step);
        decay(remains);
        fillFlow(step);
        fillQuality(step);
        m_distance = distance;
    }

    void meet(const Feature& feature, const Water& inflow, const EffluentTreatment& treat) {
        if (feature.type == FeatureType::abstraction) return abstract(inflow.flow);
        Water effluent = inflow;
        if (treat && isEffluent(feature.type)) treat(feature, m_river, effluent);
        book(balanceItemOfInflow(feature.type), effluent);
        mix(m_river, effluent);
    }

    void drawFills(const GapFills& fills) {
        for (const FlowFill& fill : fills.flows) {
            if (fill.stretch.reach != m_run.m_reach.number) continue;
            const FlowSet set{std::abs(fill.mean), fill.low, fillCorrelation};
            const int number = fill.stretch.reach * 1000 + static_cast<int>(m_flowFills.size());
            Shots gain = m_run.m_monteCarlo.flow(set, {Source::gapFilling, number});
            scaleFlow(gain, (fill.mean < 0 ? -1 : 1) / fill.stretch.length());
            m_flowFills.push_back({fill.stretch, std::move(gain)});
        }
        for (const QualityFill& fill : fills.qualities)
            if (fill.stretch.reach == m_run.m_reach.number) m_qualityFills.push_back(fill);
    }

    // What remains of each decaying determinand after half the step, by shot.
    std::vector<Shots> halfStepRemains(double step) const {
        const Reach& reach = m_run.m_reach;
        std::vector<Shots> remains(m_river.quality.size());
        Shots days(m_river.flow.size());
        for (std::size_t i = 0; i < days.size(); ++i) {
            const double velocity = reach.velocity * power(m_river.flow[i], reach.velocityExponent);
            days[i] = velocity > 0 ? step / 2 / velocity : 0;
        }
        for (std::size_t d = 0; d < remains.size(); ++d) {
            const double rate = m_run.m_catchment.determinands[d].decay;
            if (rate <= 0) continue;
            for (const double time : days)
                remains[d].push_back(exponential(-rate * time));
        }
        return remains;
    }

    void decay(const std::vector<Shots>& remains) {
        const Amounts before = booked();
        for (std::size_t d = 0; d < remains.size(); ++d)
            for (std::size_t i = 0; i < remains[d].size(); ++i)
                m_river.quality[d][i] *= remains[d][i];
        bookChange(BalanceItem::decay, before);
    }

    void addDiffuse(double step) {
        if (m_run.m_reach.diffuseFlow == 0) return;
        Water part = m_run.m_diffuse;
        scaleFlow(part.flow, step / m_run.m_reach.length);
        book(BalanceItem::diffuse, part);
        mix(m_river, part);
    }

    // Water gained or lost in gap filling has the quality of the river where that happens.
    void fillFlow(double step) {
        for (const DrawnFill& fill : m_flowFills) {
            if (!fill.stretch.holds(m_distance + step / 2)) continue;
            const Amounts before = booked();
            for (std::size_t i = 0; i < m_river.flow.size(); ++i)
                m_river.flow[i] =
                    std::max(m_river.flow[i] + step * fill.gain[i], m_river.flow[i] * (1 - mostTaken));
            bookChange(BalanceItem::gapFilling, before);
        }
    }

    void fillQuality(double step) {
        if (m_qualityFills.empty()) return;
        const Amounts before = booked();
        for (const QualityFill& fill : m_qualityFills) {
            if (!fill.stretch.holds(m_distance + step / 2)) continue;
            const double factor = exponential(fill.rate * step);
            for (double& value : m_river.quality[static_cast<std::size_t>(fill.determinand - 1)])
                value = value > 0 ? std::min(value * factor, highestQuality) : 0;
        }
        bookChange(BalanceItem::gapFilling, before);
    }

    void abstract(const Shots& demand) {
        const Amounts before = booked();
        for (std::size_t i = 0; i < demand.size(); ++i)
            m_river.flow[i] -= std::min(demand[i], m_river.flow[i] * mostTaken);
        bookChange(BalanceItem::abstractions, before);
    }

    Amounts booked() const { return m_balance == nullptr ? Amounts{} : amountsOf(m_river); }

    void bookChange(BalanceItem item, const Amounts& before) {
        if (m_balance == nullptr) return;
        add(entry(item), amountsOf(m_river), 1);
        add(entry(item), before, -1);
    }

    void book(BalanceItem item, const Water& water) {
        if (m_balance != nullptr) add(entry(item), amountsOf(water), 1);
    }

    Amounts& entry(BalanceItem item) { return (*m_balance)[static_cast<std::size_t>(item)]; }

    const ReachRun& m_run;
    Water m_river;
    Balance* m_balance;
    double m_distance = 0;
    std::vector<DrawnFill> m_flowFills;
    std::vector<QualityFill> m_qualityFills;
};

ReachRun::ReachRun(const Catchment& catchment, const MonteCarlo& monteCarlo, const Reach& reach,
                   Water upstream)
    : m_catchment(catchment),
      m_monteCarlo(monteCarlo),
      m_reach(reach),
      m_points(pointsOfReach(catchment, reach)),
      m_upstream(upstream.flow.empty() ? stillWater(catchment, monteCarlo.shots()) : std::move(upstream)),
      m_head(monteCarlo.water(catchment, reach.headFlow, reach.headQuality, {Source::head, reach.number})),
      m_diffuse(monteCarlo.water(catchment, reach.diffuseFlow, reach.diffuseQuality,
                                 {Source::diffuse, reach.number})),
      m_inflows(m_points.size()) {
    for (std::size_t i = 0; i < m_points.size(); ++i) {
        if (m_points[i].side != Side::downstream) continue;
        const Feature& feature = *m_points[i].feature;
        m_inflows[i] =
            monteCarlo.water(catchment, feature.flow, feature.quality, {Source::feature, feature.number});
    }
}

Water ReachRun::pass(const GapFills& fills, const EffluentTreatment& treat, const PointObserver& observe,
                     Balance* balance) const {
    ReachWalk walk(*this, fills, balance);
    for (std::size_t i = 0; i < m_points.size(); ++i) {
        walk.moveTo(i, treat);
        if (observe) observe(m_points[i], walk.river());
    }
    walk.finish();
    return walk.take();
}

Water ReachRun::riverAt(const Point& wanted, const GapFills& fills) const {
    ReachWalk walk(*this, fills, nullptr);
    for (std::size_t i = 0; i < m_points.size() && &m_points[i] <= &wanted; ++i)
        walk.moveTo(i, {});
    return walk.take();
}

} // namespace korvel::engine
