// The network of a run's reaches: what runs into what, its rivers, and how far it is to the mouth. Reaches
// are named by their place in the run's ReachPoints.
#pragma once

#include "study/RunFile.h"

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace korvel {

struct River {
    std::string name;         // of its last reach
    std::vector<int> reaches; // from the head down
    int joins = -1;           // the reach that it runs into; -1 at a mouth
    double length = 0;
};

struct Network {
    std::vector<int> next;                 // -1 at a mouth
    std::vector<std::vector<int>> inflows; // in file order
    std::vector<int> nextWithoutLine;      // reaches whose next one is named but has no line
    std::vector<int> mouths;
    std::vector<int> heads;
    std::vector<std::vector<int>> circles; // each from its first reach in file order along the flow

    // Empty where there are circles.
    std::vector<int> downward;   // every reach after those that run into it, the first in file order first
    std::vector<double> toMouth; // from the reach's lower end
    std::vector<River> rivers;   // a river, then its tributaries from the mouth upward, each with its own
    std::vector<int> riverOf;

    bool hasCircles() const { return !circles.empty(); }
    // The river that a reach is part of; not where there are circles.
    const River& riverAt(int place) const {
        return rivers[static_cast<std::size_t>(riverOf[static_cast<std::size_t>(place)])];
    }
};

Network networkOf(const RunFile& run);

// "Reach 7 runs in a circle"
std::string circleText(const std::vector<int>& circle, const RunFile& run);

// "Reaches 3, 5, 4 run in a circle; Reach 7 runs in a circle"; nothing without circles.
std::optional<std::string> circlesIn(const Network& network, const RunFile& run);

// The reaches from one down to another along the flow, both included; nothing where the second isn't
// downstream of the first.
std::optional<std::vector<int>> pathBetween(const Network& network, int from, int to);

// What leaves each reach: the value at its last point; of a reach without points what runs into it. By place;
// 0 throughout where there are circles.
std::vector<double> outflowsOf(const RunFile& run, const Network& network, std::span<const double> values);

} // namespace korvel
