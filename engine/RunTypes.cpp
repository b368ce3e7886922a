#include "engine/RunTypes.h"

#include <array>

namespace korvel::engine {

const RunPlan& runPlan(int runType) {
    static const std::array<RunPlan, 10> plans{{
        {"basic run", {}, false, false, {}},
        {"gap filling of river flows", {GapSearch::flows}, false, false, {}},
        {"use of the gap filled river flows", {}, true, false, {}},
        {"gap filling of water quality", {GapSearch::qualities}, true, false, {}},
        {"full gap filled model", {}, true, true, {}},
        {"gap filling of flows, then of quality", {GapSearch::flows, GapSearch::qualities}, false, false, {}},
        {"gap filling, then the full model", {GapSearch::flows, GapSearch::qualities}, false, false, {}},
        {"effluent standards that meet river targets", {}, true, true, StandardsRule::meetTargets},
        {"effluent standards without deterioration", {}, true, true, StandardsRule::noDeterioration},
        {"effluent standards, mid-class upstream", {}, true, true, StandardsRule::midClassUpstream},
    }};
    return plans.at(static_cast<std::size_t>(runType));
}

} // namespace korvel::engine
