#include "explore/PathChoice.h"

#include "analysis/MainRiver.h"

#include <algorithm>

namespace korvel {

namespace {

PathEnds endsOf(const RunFile& run, const River& river) {
    return {run.reaches.number(river.reaches.front()), run.reaches.number(river.reaches.back())};
}

} // namespace

std::optional<std::vector<int>> reachesBetween(const RunFile& run, const Network& network, PathEnds ends) {
    const int from = run.reaches.placeOf(ends.from), to = run.reaches.placeOf(ends.to);
    if (from < 0 || to < 0) return std::nullopt;
    return pathBetween(network, from, to);
}

std::vector<int> pathOf(const ExploreState& state) {
    return reachesBetween(*state.study->base().file, *state.network, {state.from, state.to})
        .value_or(std::vector<int>());
}

bool isPath(const RunFile& run, const Network& network, PathEnds ends) {
    return reachesBetween(run, network, ends).has_value();
}

PathEnds firstPath(const RunFile& run, const Network& network) {
    if (run.reaches.count() == 0) return {};
    if (const River* const river = mainRiver(run, network)) return endsOf(run, *river);
    const int first = run.reaches.number(0);
    return {first, first};
}

PathEnds riverThrough(const RunFile& run, const Network& network, int reach) {
    const int place = run.reaches.placeOf(reach);
    if (place < 0) return {};
    return network.rivers.empty() ? PathEnds{reach, reach} : endsOf(run, network.riverAt(place));
}

std::optional<PathEnds> withEndAt(const RunFile& run, const Network& network, PathEnds ends, int reach) {
    for (const PathEnds changed : {PathEnds{ends.from, reach}, PathEnds{reach, ends.to}})
        if (isPath(run, network, changed)) return changed;
    return {};
}

std::vector<int> reachesFrom(const RunFile& run, const Network& network, int reach) {
    std::vector<int> below;
    for (int place = run.reaches.placeOf(reach); place >= 0;
         place = network.next[static_cast<std::size_t>(place)]) {
        const int number = run.reaches.number(place);
        if (std::ranges::find(below, number) != below.end()) break; // a circle
        below.push_back(number);
    }
    return below;
}

PathEnds withUpperEnd(const RunFile& run, const Network& network, PathEnds ends, int reach) {
    if (isPath(run, network, {reach, ends.to})) return {reach, ends.to};
    return {reach, riverThrough(run, network, reach).to};
}

} // namespace korvel
