// The frame in which the graph stands, in graph coordinates, set from the view: zooming divides every
// position about the bottom left corner, scrolling shifts the whole picture.
#pragma once

#include "global/GraphView.h"

namespace korvel {

struct DrawingArea { // twips
    double width = 0;
    double height = 0;
    double rightEdge = 0; // of the graph: where the frame beside the buttons begins
};

struct PlotFrame {
    double unit = 0; // the vertical unit
    double bottom = 0;
    double top = 0;
    double left = 0;
    double right = 0;

    double width() const { return right - left; }
    double height() const { return top - bottom; }
};

PlotFrame plotFrame(const DrawingArea& area, double scaleY, const GraphView& view);

} // namespace korvel
