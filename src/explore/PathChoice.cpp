#include "explore/PathChoice.h"

#include "study/SeriesValues.h"

#include <algorithm>

namespace korvel {

namespace {

// Of its last point; -1 for a reach without points.
double flowAtEnd(const RunFile& run, int place) {
    const auto points = run.reaches.pointsOf(place);
    if (points.empty()) return -1;
    const SeriesValues flow = seriesValues(run.results, 0, Statistic::mean);
    return flow.value[SeriesValues::at(points.back())];
}

PathEnds endsOf(const RunFile& run, const River& river) {
    return {run.reaches.number(river.reaches.front()), run.reaches.number(river.reaches.back())};
}

const River& riverOf(const Network& network, int place) {
    return network.rivers[static_cast<std::size_t>(network.riverOf[static_cast<std::size_t>(place)])];
}

} // namespace

bool isPath(const RunFile& run, const Network& network, PathEnds ends) {
    const int from = run.reaches.placeOf(ends.from), to = run.reaches.placeOf(ends.to);
    return from >= 0 && to >= 0 && pathBetween(network, from, to).has_value();
}

PathEnds firstPath(const RunFile& run, const Network& network) {
    if (run.reaches.count() == 0) return {};
    const int first = run.reaches.number(0);
    if (network.rivers.empty() || network.mouths.empty()) return {first, first};
    const auto largest =
        std::ranges::max_element(network.mouths, {}, [&](int mouth) { return flowAtEnd(run, mouth); });
    return endsOf(run, riverOf(network, *largest));
}

PathEnds riverThrough(const RunFile& run, const Network& network, int reach) {
    const int place = run.reaches.placeOf(reach);
    if (place < 0) return {};
    return network.rivers.empty() ? PathEnds{reach, reach} : endsOf(run, riverOf(network, place));
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
