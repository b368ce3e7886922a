// Moving about in the graph: the rules of zoom, scrolling and text size. Drawing anew is the caller's.
#pragma once

#include "global/GraphView.h"

#include <string>
#include <string_view>

namespace korvel {

enum class ScrollDirection { up, down, left, right };

// Both change nothing at their limit.
void zoomIn(GraphView& view);
void zoomOut(GraphView& view);

// By a quarter of what is seen of a drawing area of that size (twips). There is no limit.
void scroll(GraphView& view, ScrollDirection direction, double width, double height);

// Whole steps of that, to the right and up.
struct QuarterSteps {
    int right = 0;
    int up = 0;
    bool operator==(const QuarterSteps&) const = default;
};
void scroll(GraphView& view, QuarterSteps steps, double width, double height);

// The steps that come nearest to a picture dragged so far, to the right and down (twips).
QuarterSteps stepsOfDrag(const GraphView& view, double right, double down, double width, double height);

// The whole graph, not zoomed: only this can be printed.
bool isDefaultView(const GraphView& view);

// The text size button says what a click changes to: its caption decides, and the new caption is returned.
std::string toggleTextSize(GraphView& view, std::string_view caption);
std::string textSizeToolTip(std::string_view caption);

} // namespace korvel
