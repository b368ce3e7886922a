// A picture as a list of plain commands, in the units of a graph (twips) or a page (inches): y runs downward from the
// top left. What is drawn first lies below. One painter plays it to a window, an image, an SVG or a PDF page.
#pragma once

#include "basic/Palette.h"
#include "platform/TextMetrics.h"

#include <string>
#include <variant>
#include <vector>

enum class Dash { solid, dash, dot, dashDot, dashDotDot };

struct Pen {
    Rgb colour;
    double width = 1; // device pixels on screen, printer dots (1/300 inch) on paper
    Dash dash = Dash::solid;
    bool operator==(const Pen&) const = default;
};

struct DrawnPoint {
    double x = 0;
    double y = 0;
    bool operator==(const DrawnPoint&) const = default;
};

struct DrawnLine {
    DrawnPoint from;
    DrawnPoint to;
    Pen pen;
    bool operator==(const DrawnLine&) const = default;
};

// Points joined by straight lines. Long runs are thinned by the painter for the device's resolution.
struct DrawnRun {
    std::vector<DrawnPoint> points;
    Pen pen;
    bool operator==(const DrawnRun&) const = default;
};

// `left`, `top`: the corner of the text's box. Lying text only.
struct DrawnText {
    DrawnPoint corner;
    double width = 0; // as measured
    double height = 0;
    std::string text;
    Font font;
    Rgb colour;
    bool operator==(const DrawnText&) const = default;
};

// From here on commands are clipped to the rectangle; an empty one ends the clipping.
struct ClipArea {
    double left = 0, top = 0, width = 0, height = 0;
    bool operator==(const ClipArea&) const = default;
};

using DrawnCommand = std::variant<DrawnLine, DrawnRun, DrawnText, ClipArea>;

struct Drawing {
    double width = 0;
    double height = 0;
    std::vector<DrawnCommand> commands;

    void clear() { commands.clear(); }
    int textCount() const;
    bool operator==(const Drawing&) const = default;
};
