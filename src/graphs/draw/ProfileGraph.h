// The longitudinal profile graph: one run of reaches with a panel for each series, or one series with a panel
// for each reach.
#pragma once

#include "graphs/draw/GraphInputs.h"
#include "graphs/draw/GraphPrimitives.h"

namespace korvel {

// Panels are numbered from the first down the first column, then down the next.
struct PanelGrid {
    int rows = 1;
    int columns = 1;
    int row(int panel) const { return panel % rows; }
    int column(int panel) const { return panel / rows; }
};

PanelGrid panelGrid(bool displayMode1, int panels);

// Draws the whole graph; the drawing's size is the drawing area's.
void drawProfileGraph(GraphPrimitives& primitives, bool pr, const GraphInputs& inputs);

// Draws what the set-up form handed over, from the shared state.
void DrawGraphs(GraphPrimitives& primitives, bool pr, const DrawingArea& area, const std::string& date);

} // namespace korvel
