// All that a graph is made from.
#pragma once

#include "global/GraphHandOver.h"
#include "global/GraphView.h"
#include "global/SharedConstants.h"
#include "graphs/draw/PlotFrame.h"
#include "results/ResultsDataSet.h"

#include <string>

namespace korvel {

struct GraphInputs {
    const ResultsDataSet& results;
    const GraphHandOver& graph;
    const GraphView& view;
    const SharedConstants& constants;
    DrawingArea area;
    std::string date; // "dd/mm/yyyy"
};

} // namespace korvel
