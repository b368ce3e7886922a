// Which way down the network is looked at: its ends, as reach numbers.
#pragma once

#include "explore/ExploreState.h"

#include <optional>
#include <vector>

namespace korvel {

struct PathEnds {
    int from = 0; // 0 where there is none
    int to = 0;
    bool operator==(const PathEnds&) const = default;
};

// The reaches of the path by their places in the run, from its upper end; nothing where the second reach
// isn't the first or below it.
std::optional<std::vector<int>> reachesBetween(const RunFile& run, const Network& network, PathEnds ends);

// Of a state that isn't empty, by their places in the base; none where it has no path.
std::vector<int> pathOf(const ExploreState& state);

// Whether the second reach is the first or lies below it.
bool isPath(const RunFile& run, const Network& network, PathEnds ends);

// The main river, from its head; the first reach alone in a network with circles.
PathEnds firstPath(const RunFile& run, const Network& network);

// The river that the reach is part of, from its head to where it ends; the reach alone in a network with
// circles.
PathEnds riverThrough(const RunFile& run, const Network& network, int reach);

// The path with another reach as one of its ends: the lower one where it lies below the upper end, else the
// upper one where it lies above the lower end; nothing where it does neither.
std::optional<PathEnds> withEndAt(const RunFile& run, const Network& network, PathEnds ends, int reach);

// The reach and those below it, down to the mouth.
std::vector<int> reachesFrom(const RunFile& run, const Network& network, int reach);

// Another upper end: the lower one stays where it lies below, else it is that of the new one's river.
PathEnds withUpperEnd(const RunFile& run, const Network& network, PathEnds ends, int reach);

} // namespace korvel
