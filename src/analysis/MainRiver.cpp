#include "analysis/MainRiver.h"

#include "analysis/Sources.h"

namespace korvel {

const River* mainRiver(const RunFile& run, const Network& network) {
    constexpr int flow = 0;
    if (network.hasCircles()) return nullptr;
    const auto mouth = largestMouth(run, network, flow);
    return mouth ? &network.riverAt(run.reaches.placeOf(mouth->reach)) : nullptr;
}

} // namespace korvel
