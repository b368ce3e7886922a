// Draws the curves of a panel into its plot area.
#pragma once

#include "graphs/draw/GraphSheet.h"
#include "graphs/draw/PanelCurves.h"
#include "graphs/draw/PlottedColumn.h"

namespace korvel {

struct PlotArea { // graph coordinates
    double left = 0;
    double right = 0;
    double bottom = 0;
    double top = 0;
    double height() const { return top - bottom; }
};

struct CurvePlace {
    PlotArea area;
    double largest = 1; // the value at the top of the area
    double mark = 0;    // half the size of a cross, and of the stroke that shows a single point
};

// What rises above the top is cut off there; negative values lie on the axis.
void drawCurve(const GraphSheet& sheet, const PanelCurve& curve, const PlottedColumn& column,
               const DistanceScale& scale, const CurvePlace& place);

} // namespace korvel
