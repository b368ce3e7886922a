#include "graphs/draw/PlotFrame.h"

namespace korvel {

PlotFrame plotFrame(const DrawingArea& area, double scaleY, const GraphView& view) {
    PlotFrame frame;
    frame.unit = 6 * scaleY / view.ZoomFactor;
    frame.bottom = 40 * frame.unit - view.ScrollOffsetY;
    frame.top = area.height / view.ZoomFactor - view.ScrollOffsetY;
    frame.left = 0 - view.ScrollOffsetX;
    frame.right = area.rightEdge / view.ZoomFactor - view.ScrollOffsetX;
    return frame;
}

} // namespace korvel
