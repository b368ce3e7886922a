// Finds what the model lacks: the flow gained or lost above a gauge, and the growth or loss of each
// determinand above a monitoring station, so that the simulated means become the observed ones.
#pragma once

#include "engine/ReachRun.h"

namespace korvel::engine {

// Both add the fills of this reach to `fills`. A gauge or station less than 0.1 km below the last one, or the
// head of its reach, is passed over.
void fillFlowsOf(const ReachRun& run, const Catchment& catchment, GapFills& fills);
void fillQualitiesOf(const ReachRun& run, const Catchment& catchment, GapFills& fills);

} // namespace korvel::engine
