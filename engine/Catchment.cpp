#include "engine/Catchment.h"

namespace korvel::engine {

namespace {

template <typename Map>
typename Map::mapped_type found(const Map& map, const typename Map::key_type& key) {
    const auto place = map.find(key);
    return place == map.end() ? typename Map::mapped_type{} : place->second;
}

} // namespace

bool isEffluent(FeatureType type) {
    return type == FeatureType::sewageDischarge || type == FeatureType::industrialEffluent ||
           type == FeatureType::stormOverflow;
}

bool isInflow(FeatureType type) {
    return isEffluent(type) || type == FeatureType::stream;
}

bool changesFlow(FeatureType type) {
    return isInflow(type) || type == FeatureType::abstraction;
}

FlowSet Catchment::flow(int set) const {
    return found(flows, set);
}

QualityValue Catchment::quality(int set, int determinand) const {
    return found(qualities, {set, determinand});
}

TargetValue Catchment::target(int set, int determinand) const {
    return found(targets, {set, determinand});
}

Observed Catchment::observedAt(int feature, int determinand) const {
    return found(observed, {feature, determinand});
}

const Reach* Catchment::findReach(int number) const {
    for (const Reach& reach : reaches)
        if (reach.number == number) return &reach;
    return nullptr;
}

} // namespace korvel::engine
