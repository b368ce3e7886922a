// The IBM PC character set: what the characters of the engine's listings look like, and which of them are
// drawn as boxes.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace korvel {

// Every code has a character to show, the control codes included.
std::string utf8OfCodePage437(std::string_view text);

// A box character's strokes, from the middle of its cell to the middles of the cell's edges.
struct BoxStrokes {
    bool left = false, right = false, top = false, bottom = false;
    double penWidth = 1; // printer dots; 2 for the double-line forms
};

// Nothing where the character isn't drawn but printed.
std::optional<BoxStrokes> boxStrokesOf(char character);

} // namespace korvel
