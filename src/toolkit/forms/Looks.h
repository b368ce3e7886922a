// The one small table of what the forms look like: fonts, spacing, and colours of our own beside those of the
// desktop's theme (toolkit/desktop/Theme). Places of given controls are in their forms' listings.
#pragma once

#include "basic/Palette.h"
#include "drawing/Theme.h"

#include <QFont>

namespace korvel::looks {

inline constexpr const char* textFamily = "Arial";
inline constexpr const char* fixedFamily = "Courier New";

// Points. The text of a form's design grows with the screen, that of menus, messages and our own windows
// does not.
inline constexpr double designText = 8;
inline constexpr double windowText = 10;
inline constexpr double readoutText = 7; // of a design, too

// Pixels, of windows without a design.
inline constexpr int margin = 12;
inline constexpr int gap = 8;
inline constexpr int wideGap = 24; // between what does not belong together

// Of a screen's line of text, for boxes of one line and for buttons.
inline constexpr double lineBox = 1.5;
inline constexpr double betweenLines = 0.25;

struct ThemedColour {
    Rgb light, dark;
    constexpr Rgb in(Theme theme) const { return theme == Theme::dark ? dark : light; }
};
inline constexpr ThemedColour title = {{11, 60, 93}, {138, 196, 219}};
inline constexpr ThemedColour titleShadow = {{213, 221, 226}, {10, 12, 14}};
inline constexpr ThemedColour rule = {{196, 211, 218}, {60, 69, 74}};
inline constexpr ThemedColour warning = {{122, 74, 0}, {240, 183, 97}};
inline constexpr ThemedColour done = {{20, 102, 58}, {116, 205, 148}};

inline QFont windowFont() {
    return {textFamily, static_cast<int>(windowText)};
}

// Every character has the same width.
inline QFont fixedFont(double points = windowText) {
    QFont font(fixedFamily);
    font.setStyleHint(QFont::Monospace);
    font.setPointSizeF(points);
    return font;
}

} // namespace korvel::looks
