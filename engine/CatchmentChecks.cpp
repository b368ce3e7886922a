#include "engine/CatchmentChecks.h"

#include "engine/DataRow.h"

#include <algorithm>
#include <set>

namespace korvel::engine {

namespace {

using ReachOrder = std::map<int, std::size_t>; // place in the file by reach number

[[noreturn]] void fail(int line, const std::string& message) {
    throw DataError{line, message};
}

std::string reachText(int number) {
    return "reach " + std::to_string(number);
}

ReachOrder orderOfReaches(const Catchment& catchment) {
    ReachOrder order;
    for (const Reach& reach : catchment.reaches)
        if (!order.emplace(reach.number, order.size()).second)
            fail(reach.line, reachText(reach.number) + " is there twice");
    return order;
}

std::set<int> setsOf(const std::map<BySetAndDeterminand, QualityValue>& qualities) {
    std::set<int> sets;
    for (const auto& entry : qualities)
        sets.insert(entry.first.first);
    return sets;
}

struct SetNames {
    const Catchment& catchment;
    std::set<int> qualities = setsOf(catchment.qualities);

    void check(int line, int flow, int quality) const {
        if (flow != 0 && !catchment.flows.contains(flow))
            fail(line, "flow set " + std::to_string(flow) + " is not there");
        if (quality != 0 && !qualities.contains(quality))
            fail(line, "quality set " + std::to_string(quality) + " is not there");
    }
};

void checkReach(const Reach& reach, const ReachOrder& order, const SetNames& sets) {
    sets.check(reach.line, reach.headFlow, reach.headQuality);
    sets.check(reach.line, reach.diffuseFlow, reach.diffuseQuality);
    if (reach.next == 0) return;
    const auto next = order.find(reach.next);
    if (next == order.end())
        fail(reach.line,
             reachText(reach.number) + " runs into " + reachText(reach.next) + ", which is not there");
    if (next->second <= order.at(reach.number))
        fail(reach.line, reachText(reach.number) + " must stand before " + reachText(reach.next) +
                             ", into which it runs");
}

void checkWater(const Catchment& catchment) {
    std::set<int> fed;
    for (const Reach& reach : catchment.reaches) {
        if (reach.headFlow == 0 && !fed.contains(reach.number))
            fail(reach.line,
                 reachText(reach.number) + " has no water: no head flow, and no reach runs into it");
        fed.insert(reach.next);
    }
}

void checkFeature(const Feature& feature, const Catchment& catchment, const ReachOrder& order,
                  const SetNames& sets) {
    sets.check(feature.line, feature.flow, feature.quality);
    const auto place = order.find(feature.reach);
    if (place == order.end()) fail(feature.line, reachText(feature.reach) + " is not there");
    if (feature.distance > catchment.reaches[place->second].length)
        fail(feature.line, "lies beyond the end of " + reachText(feature.reach));
    if (changesFlow(feature.type) != (feature.flow != 0))
        fail(feature.line, changesFlow(feature.type) ? "needs a flow set" : "takes no flow set");
}

void checkFeatures(const Catchment& catchment, const ReachOrder& order, const SetNames& sets) {
    std::set<int> numbers;
    for (const Feature& feature : catchment.features) {
        if (!numbers.insert(feature.number).second)
            fail(feature.line, "feature " + std::to_string(feature.number) + " is there twice");
        checkFeature(feature, catchment, order, sets);
    }
    for (const auto& entry : catchment.observed)
        if (!numbers.contains(entry.first.first))
            fail(0, "observed values are given for feature " + std::to_string(entry.first.first) +
                        ", which is not there");
}

void sortFeatures(Catchment& catchment, const ReachOrder& order) {
    std::stable_sort(
        catchment.features.begin(), catchment.features.end(), [&](const Feature& a, const Feature& b) {
            return std::pair(order.at(a.reach), a.distance) < std::pair(order.at(b.reach), b.distance);
        });
}

// At most so many points, before any of them is made.
void checkPointCount(const Catchment& catchment) {
    const double spacing = catchment.settings.spacing;
    double count = 2 * static_cast<double>(catchment.features.size());
    for (const Reach& reach : catchment.reaches)
        count += spacing > 0 ? 3 + reach.length / spacing : 2;
    if (count > maxPoints)
        fail(0, "makes more than " + std::to_string(maxPoints) + " plotting points: widen the spacing");
}

} // namespace

void finishCatchment(Catchment& catchment) {
    if (catchment.settings.title.empty()) fail(0, "has no title in its section [RUN]");
    if (catchment.determinands.empty()) fail(0, "has no determinands");
    if (catchment.reaches.empty()) fail(0, "has no reaches");
    const ReachOrder order = orderOfReaches(catchment);
    const SetNames sets{catchment};
    for (const Reach& reach : catchment.reaches)
        checkReach(reach, order, sets);
    checkWater(catchment);
    checkFeatures(catchment, order, sets);
    checkPointCount(catchment);
    sortFeatures(catchment, order);
}

} // namespace korvel::engine
