// Which lane each river of a catchment takes when all are drawn as lines along their distance to the mouth.
#pragma once

#include "study/Network.h"

#include <vector>

namespace korvel {

// What a river takes of its lane. Places grow towards the mouth.
struct RiverExtent {
    double from = 0;
    double to = 0; // where it joins the river that it runs into
};

// Lanes by river, from 0 at the top. Tributaries take the lanes nearest to their river, above and below it in
// turn; a line down to the river that it joins crosses no other. `gap`: left free behind a river on its lane.
// The network has no circles.
std::vector<int> riverLanes(const Network& network, const std::vector<RiverExtent>& extents, double gap);

} // namespace korvel
