#include "graphs/draw/ProfileGraph.h"

#include "global/GLOBAL.h"

namespace korvel {

GraphLayout drawProfileGraph(GraphPrimitives& primitives, OutputTarget target, const GraphInputs& inputs) {
    const GraphSheet sheet(primitives, target);
    GraphLayout layout = layOutGraph(inputs, sheet);
    paint(layout, sheet);
    return layout;
}

GraphLayout DrawGraphs(GraphPrimitives& primitives, OutputTarget target, const DrawingArea& area,
                       const std::string& date) {
    return drawProfileGraph(primitives, target, {RESULTS, GLOBAL, GLOBAL, GLOBAL, area, date});
}

} // namespace korvel
