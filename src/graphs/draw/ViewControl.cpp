#include "graphs/draw/ViewControl.h"

#include <cmath>

namespace korvel {

namespace {

constexpr std::string_view smallText = "Small text";
constexpr std::string_view largeText = "Large text";
constexpr double tolerance = 0.01;

double stepOf(const GraphView& view, double extent) {
    return view.ZoomFactor * (extent / 4);
}

int wholeSteps(double moved, double step) {
    return step > 0 ? static_cast<int>(std::lround(moved / step)) : 0;
}

} // namespace

void zoomIn(GraphView& view) {
    if (view.ZoomFactor >= 0.5) view.ZoomFactor /= 2;
}

void zoomOut(GraphView& view) {
    if (view.ZoomFactor <= 2) view.ZoomFactor *= 2;
}

void scroll(GraphView& view, ScrollDirection direction, double width, double height) {
    const double acrossStep = stepOf(view, width);
    const double upStep = stepOf(view, height);
    switch (direction) {
    case ScrollDirection::up: view.ScrollOffsetY += upStep; break;
    case ScrollDirection::down: view.ScrollOffsetY -= upStep; break;
    case ScrollDirection::left: view.ScrollOffsetX -= acrossStep; break;
    case ScrollDirection::right: view.ScrollOffsetX += acrossStep; break;
    }
}

void scroll(GraphView& view, QuarterSteps steps, double width, double height) {
    const auto repeat = [&](int times, ScrollDirection direction) {
        for (int k = 0; k < times; ++k)
            scroll(view, direction, width, height);
    };
    repeat(steps.right, ScrollDirection::right);
    repeat(-steps.right, ScrollDirection::left);
    repeat(steps.up, ScrollDirection::up);
    repeat(-steps.up, ScrollDirection::down);
}

QuarterSteps stepsOfDrag(const GraphView& view, double right, double down, double width, double height) {
    return {-wholeSteps(right, stepOf(view, width)), wholeSteps(down, stepOf(view, height))};
}

bool isDefaultView(const GraphView& view) {
    return std::abs(view.ScrollOffsetX) <= tolerance && std::abs(view.ScrollOffsetY) <= tolerance &&
           std::abs(1 - view.ZoomFactor) <= tolerance;
}

std::string toggleTextSize(GraphView& view, std::string_view caption) {
    const bool toSmall = caption == smallText;
    view.LargeTextMode = toSmall ? 0 : 1;
    return std::string(toSmall ? largeText : smallText);
}

std::string textSizeToolTip(std::string_view caption) {
    if (caption == smallText)
        return "This allows the graph to be displayed in more detail in a smaller font - suitable for "
               "printing.";
    return "This allows the graph to be displayed in less detail in a larger font - to provide improved "
           "legibility on screen.";
}

} // namespace korvel
