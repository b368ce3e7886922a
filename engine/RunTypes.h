// The ten run types: what each one does, step by step.
#pragma once

#include "engine/EffluentStandards.h"
#include "engine/RiverModel.h"

#include <optional>
#include <vector>

namespace korvel::engine {

struct RunPlan {
    const char* name;
    std::vector<GapSearch> searches; // gap filling to be worked out, in this order
    bool usesKeptFlows = false;      // gap filling worked out by an earlier run is used ...
    bool usesKeptQualities = false;
    std::optional<StandardsRule> standards;
};

// Run types 0 to 9.
const RunPlan& runPlan(int runType);

} // namespace korvel::engine
