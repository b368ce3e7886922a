// The longitudinal profile graph: one run of reaches with a panel for each series, or one series with a panel
// for each reach.
#pragma once

#include "graphs/draw/GraphLayout.h"

#include <string>

namespace korvel {

// Lays out the whole graph and paints it; the drawing's size is the drawing area's.
GraphLayout drawProfileGraph(GraphPrimitives& primitives, OutputTarget target, const GraphInputs& inputs);

// The same of what the set-up form handed over, from the shared state.
GraphLayout DrawGraphs(GraphPrimitives& primitives, OutputTarget target, const DrawingArea& area,
                       const std::string& date);

} // namespace korvel
