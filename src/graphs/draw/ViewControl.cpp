#include "graphs/draw/ViewControl.h"

#include <cmath>

namespace korvel {

namespace {

constexpr std::string_view smallText = "Small text";
constexpr std::string_view largeText = "Large text";
constexpr double tolerance = 0.01;

} // namespace

void zoomIn(GraphView& view) {
    if (view.ZoomFactor >= 0.5) view.ZoomFactor /= 2;
}

void zoomOut(GraphView& view) {
    if (view.ZoomFactor <= 2) view.ZoomFactor *= 2;
}

void scroll(GraphView& view, ScrollDirection direction, double width, double height) {
    const double acrossStep = view.ZoomFactor * (width / 4);
    const double upStep = view.ZoomFactor * (height / 4);
    switch (direction) {
    case ScrollDirection::up: view.ScrollOffsetY += upStep; break;
    case ScrollDirection::down: view.ScrollOffsetY -= upStep; break;
    case ScrollDirection::left: view.ScrollOffsetX -= acrossStep; break;
    case ScrollDirection::right: view.ScrollOffsetX += acrossStep; break;
    }
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
