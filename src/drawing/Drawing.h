// A picture as a list of plain commands, in the units of a graph (twips) or a page (inches): y runs downward
// from the top left. What is drawn first lies below; texts lie above everything else. One painter plays it to
// a window, an image, an SVG or a PDF page.
#pragma once

#include "basic/Palette.h"
#include "drawing/TextMetrics.h"

#include <string>
#include <variant>
#include <vector>

namespace korvel {

enum class Dash { solid, dash, dot, dashDot, dashDotDot };

struct Pen {
    Rgb colour;
    double width = 1; // pixels on screen, printer dots (1/300 inch) on paper
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

// A cross of two slanting strokes, as an observed value has.
struct DrawnMarker {
    DrawnPoint centre;
    double half = 0; // of its width and height
    Pen pen;
    bool operator==(const DrawnMarker&) const = default;
};

struct Fill {
    Rgb colour;
    double opacity = 1;
    bool operator==(const Fill&) const = default;
};

// What lies between two runs of points, filled.
struct DrawnBand {
    std::vector<DrawnPoint> above;
    std::vector<DrawnPoint> below;
    Fill fill;
    bool operator==(const DrawnBand&) const = default;
};

enum class TextAlign { left, right, centre };

// `corner`: the top left of the text's box. Horizontal text only.
struct DrawnText {
    DrawnPoint corner;
    double width = 0; // as drawn
    double height = 0;
    std::string text;
    Font font;
    Rgb colour;
    double narrowing = 1; // of its natural width; the height stays
    bool operator==(const DrawnText&) const = default;
};

using DrawnCommand = std::variant<DrawnLine, DrawnRun, DrawnMarker, DrawnBand, DrawnText>;

struct Drawing {
    double width = 0;
    double height = 0;
    double unitsPerInch = 1440; // twips; 1 where the page is in inches
    std::vector<DrawnCommand> commands;

    void clear() { commands.clear(); }
    bool operator==(const Drawing&) const = default;
};

} // namespace korvel
