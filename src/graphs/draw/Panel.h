// One panel: a series over the points of a column, on its own vertical scale.
#pragma once

#include "drawing/Axis.h"
#include "drawing/Curve.h"
#include "graphs/draw/GraphInputs.h"
#include "graphs/draw/GraphSheet.h"
#include "graphs/draw/PanelCurves.h"
#include "graphs/draw/VerticalScale.h"

#include <string>
#include <vector>

namespace korvel {

struct Panel {
    int series = 0;
    std::string axisLabel;   // the series without its " (Conc)" or " (Load)"
    std::string kindOfValue; // "(Conc)", "(Load)" or "", beside the axis label
    std::string heading;     // display mode 2
    std::vector<PanelCurve> curves;
    VerticalScale scale;

    // Set where the panel has found its place.
    PlotArea area; // graph coordinates
    Axis values;
};

// `reach`: the panel's reach in display mode 2, 0 in mode 1.
Panel makePanel(const GraphInputs& inputs, const PlottedColumn& column, int series, int reach);

// The room left of a panel's axis.
double gutterOf(const GraphSheet& sheet, const Panel& panel);

// `textHeight`: of a line.
void placePanel(Panel& panel, const PlotArea& area, double textHeight, int largeTextMode);

// What the panels of one column have in common.
struct PanelColumn {
    const PlottedColumn& points;
    const DistanceScale& scale;
    const Axis& distances;
    const std::vector<double>& boundaries; // x of those between reaches
};

void paintPanel(const GraphSheet& sheet, const Panel& panel, const PanelColumn& column);

// A curve over the points of a column, which must outlive it.
Curve curveOver(const PanelCurve& curve, const PlottedColumn& column);

} // namespace korvel
