// The stretching of a form's controls from the screen that forms are designed for (9600 by 6780 twips) to the
// work area, as a rule from places to places. Applying it to real controls is left to the toolkit.
#pragma once

#include <string>

namespace korvel {

struct Place { // twips
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;
    bool operator==(const Place&) const = default;
};

struct ControlLayout {
    std::string typeName;                  // "Label", "CommandButton", "Line" ...
    double left = 0, top = 0;              // twips
    double width = 0, height = 0;          // twips
    double x1 = 0, y1 = 0, x2 = 0, y2 = 0; // end points of a "Line", twips
    double fontSize = 0;                   // points
    bool operator==(const ControlLayout&) const = default;
};

// The smaller of the two factors.
double fontFactor(double scaleX, double scaleY);

// The whole part of (size x factor + 0.1): truncated, except within a tenth below the next whole point.
double scaledFontSize(double size, double factor);

ControlLayout scaledControl(const ControlLayout& control, double scaleX, double scaleY);

} // namespace korvel
