#include "engine/RiverModel.h"

#include "engine/GapFilling.h"

#include <utility>

namespace korvel::engine {

void RiverModel::walk(const ReachVisitor& visit, const ReachProgress& progress) const {
    std::map<int, Water> arriving; // by reach number; given up as soon as the reach has taken it
    std::size_t place = 0;
    for (const Reach& reach : m_catchment.reaches) {
        progress(++place, reach);
        Water upstream = std::move(arriving[reach.number]);
        arriving.erase(reach.number);
        Water end = visit(ReachRun(m_catchment, m_monteCarlo, reach, std::move(upstream)));
        if (reach.next == 0) continue;
        const auto [entry, isFirst] = arriving.try_emplace(reach.next);
        if (isFirst)
            entry->second = std::move(end);
        else
            mix(entry->second, end);
    }
}

void RiverModel::search(GapSearch what, GapFills& fills, const ReachProgress& progress) const {
    const ReachVisitor visit = [&](const ReachRun& run) {
        if (what == GapSearch::flows) fillFlowsOf(run, m_catchment, fills);
        if (what == GapSearch::qualities) fillQualitiesOf(run, m_catchment, fills);
        return run.pass(fills, {}, {});
    };
    walk(visit, progress);
}

ModelResult RiverModel::run(const GapFills& fills, EffluentStandards* standards,
                            const ReachProgress& progress) const {
    ModelResult result;
    EffluentTreatment treat;
    if (standards != nullptr)
        treat = [standards](const Feature& feature, const Water& river, Water& effluent) {
            standards->treat(feature, river, effluent);
        };
    const PointObserver observe = [&](const Point& point, const Water& river) {
        result.points.push_back(resultAt(point, river));
    };
    walk(
        [&](const ReachRun& run) {
            result.reaches.push_back({&run.reach(), {}});
            return run.pass(fills, treat, observe, &result.reaches.back().balance);
        },
        progress);
    if (standards != nullptr) result.standards = standards->standards();
    return result;
}

PointResult RiverModel::resultAt(const Point& point, const Water& river) const {
    const int samples = m_catchment.settings.samples;
    PointResult result{point, summariseFlow(river.flow), {}, {}};
    for (const Shots& quality : river.quality) {
        Shots loads = quality;
        for (std::size_t i = 0; i < loads.size(); ++i)
            loads[i] *= river.flow[i];
        result.concentrations.push_back(summarise(quality, samples));
        result.loads.push_back(summarise(std::move(loads), samples));
    }
    return result;
}

} // namespace korvel::engine
