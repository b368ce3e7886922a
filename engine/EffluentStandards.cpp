#include "engine/EffluentStandards.h"

#include "engine/Percentiles.h"

#include <algorithm>

namespace korvel::engine {

namespace {

constexpr int halvings = 24;

// River and effluent at one discharge, for one determinand.
struct Mixing {
    const Shots& riverFlow;
    const Shots& riverQuality;
    const Shots& effluentFlow;
    const Shots& effluentQuality;
    StandardStatistic statistic;

    // The statistic below the discharge with the effluent's quality multiplied by a factor.
    double below(double factor) const {
        Shots mixed(riverFlow.size());
        for (std::size_t i = 0; i < mixed.size(); ++i) {
            const double flow = riverFlow[i] + effluentFlow[i];
            const double load =
                riverFlow[i] * riverQuality[i] + factor * effluentFlow[i] * effluentQuality[i];
            mixed[i] = flow > 0 ? load / flow : 0;
        }
        return statisticOf(std::move(mixed), statistic);
    }

    // The largest factor between the two that meets the target, or the lowest where none does.
    double factorFor(double target, double low, double high) const {
        if (below(high) <= target) return high;
        if (below(low) > target) return low;
        for (int i = 0; i < halvings; ++i) {
            const double middle = (low + high) / 2;
            (below(middle) <= target ? low : high) = middle;
        }
        return low;
    }
};

} // namespace

double statisticOf(Shots quality, StandardStatistic statistic) {
    if (statistic == StandardStatistic::mean) return meanOf(quality);
    std::sort(quality.begin(), quality.end());
    const double share = statistic == StandardStatistic::percentile90   ? 0.90
                         : statistic == StandardStatistic::percentile99 ? 0.99
                                                                        : 0.95;
    return percentileOf(quality, share);
}

void EffluentStandards::treat(const Feature& feature, const Water& river, Water& effluent) {
    if (feature.type == FeatureType::stormOverflow) return;
    const Reach* reach = m_catchment.findReach(feature.reach);
    for (const Determinand& determinand : m_catchment.determinands) {
        const TargetValue target = m_catchment.target(reach->targets, determinand.number);
        if (target.value > 0 && determinand.worst > 0)
            treatDeterminand(feature, determinand, target, river, effluent);
    }
}

void EffluentStandards::treatDeterminand(const Feature& feature, const Determinand& determinand,
                                         const TargetValue& target, const Water& river, Water& effluent) {
    const auto d = static_cast<std::size_t>(determinand.number - 1);
    const double present = meanOf(effluent.quality[d]);
    if (present <= 0) return;
    const double best = std::min(1.0, determinand.best / present);
    const double worst =
        m_rule == StandardsRule::meetTargets ? std::max(1.0, determinand.worst / present) : 1.0;
    const Shots upstream = upstreamQuality(determinand, target, river);
    const Mixing assumed{river.flow, upstream, effluent.flow, effluent.quality[d], determinand.statistic};
    const double factor = assumed.factorFor(target.value, best, worst);
    const Mixing real{river.flow, river.quality[d], effluent.flow, effluent.quality[d],
                      determinand.statistic};
    m_standards.push_back(
        {&feature, determinand.number, present, present * factor, target.value, real.below(factor)});
    for (double& value : effluent.quality[d])
        value *= factor;
}

Shots EffluentStandards::upstreamQuality(const Determinand& determinand, const TargetValue& target,
                                         const Water& river) const {
    Shots quality = river.quality[static_cast<std::size_t>(determinand.number - 1)];
    const double present = statisticOf(quality, determinand.statistic);
    if (m_rule != StandardsRule::midClassUpstream || present <= 0) return quality;
    const double middle = (target.value + target.better) / 2;
    for (double& value : quality)
        value *= middle / present;
    return quality;
}

} // namespace korvel::engine
