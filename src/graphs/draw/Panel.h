// One panel: a series over the points of a column, on its own vertical scale.
#pragma once

#include "graphs/draw/CurveDrawing.h"
#include "graphs/draw/GraphInputs.h"
#include "graphs/draw/GraphSheet.h"
#include "graphs/draw/PanelCurves.h"
#include "graphs/draw/VerticalScale.h"

#include <string>
#include <vector>

namespace korvel {

struct Panel {
    std::string axisLabel;   // the series without its " (Conc)" or " (Load)"
    std::string kindOfValue; // "(Conc)", "(Load)" or "", beside the axis label
    std::string heading;     // display mode 2
    std::vector<PanelCurve> curves;
    VerticalScale scale;
};

// `reach`: the panel's reach in display mode 2, 0 in mode 1.
Panel makePanel(const GraphInputs& inputs, const PlottedColumn& column, int series, int reach);

// The room left of a panel's axis.
double gutterOf(const GraphSheet& sheet, const Panel& panel);

// What the panels of one column have in common.
struct PanelColumn {
    const PlottedColumn& points;
    const DistanceScale& scale;
    std::vector<double> ticks;      // x of those of the distance axis
    std::vector<double> boundaries; // x of those between reaches
};

struct PanelText {
    double height = 0;
    int largeTextMode = 1;
};

void drawPanel(const GraphSheet& sheet, const Panel& panel, const PlotArea& area, const PanelColumn& column,
               const PanelText& text);

} // namespace korvel
