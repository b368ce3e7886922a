#include "analysis/ReachGroups.h"

namespace korvel {

std::vector<ReachGroup> groupsByReach(const RunFile& run, const ReachChoice& reaches) {
    std::vector<ReachGroup> groups;
    for (int place = 0; place < run.reaches.count(); ++place) {
        const int number = run.reaches.number(place);
        if (reaches.holds(number)) groups.push_back({number, "", {place}});
    }
    return groups;
}

std::vector<ReachGroup> groupsByRiver(const RunFile& run, const Network& network,
                                      const ReachChoice& reaches) {
    std::vector<ReachGroup> groups;
    for (const River& river : network.rivers) {
        groups.push_back({0, river.name, {}, true});
        for (const int place : river.reaches)
            if (reaches.holds(run.reaches.number(place))) groups.back().places.push_back(place);
    }
    return groups;
}

ReachGroup wholeGroup(const RunFile& run, const ReachChoice& reaches) {
    ReachGroup whole;
    for (const ReachGroup& reach : groupsByReach(run, reaches))
        whole.places.push_back(reach.places.front());
    return whole;
}

} // namespace korvel
