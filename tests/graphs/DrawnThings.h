// Looking into drawings.
#pragma once

#include "drawing/Drawing.h"

#include <optional>
#include <string>
#include <vector>

namespace korvel {

template <typename Command>
std::vector<Command> allOf(const Drawing& drawing) {
    std::vector<Command> found;
    for (const DrawnCommand& command : drawing.commands)
        if (const auto* one = std::get_if<Command>(&command)) found.push_back(*one);
    return found;
}

inline std::vector<std::string> textsOf(const Drawing& drawing) {
    std::vector<std::string> texts;
    for (const DrawnText& text : allOf<DrawnText>(drawing))
        texts.push_back(text.text);
    return texts;
}

inline std::vector<DrawnText> textsReading(const Drawing& drawing, const std::string& text) {
    std::vector<DrawnText> found;
    for (const DrawnText& one : allOf<DrawnText>(drawing))
        if (one.text == text) found.push_back(one);
    return found;
}

inline bool hasText(const Drawing& drawing, const std::string& text) {
    return !textsReading(drawing, text).empty();
}

// Lines and runs with a pen of a palette colour.
inline std::vector<DrawnRun> runsOfColour(const Drawing& drawing, int colour) {
    std::vector<DrawnRun> found;
    for (const DrawnRun& run : allOf<DrawnRun>(drawing))
        if (run.pen.colour == paletteColour(colour)) found.push_back(run);
    return found;
}

inline std::vector<DrawnLine> linesOfColour(const Drawing& drawing, int colour) {
    std::vector<DrawnLine> found;
    for (const DrawnLine& line : allOf<DrawnLine>(drawing))
        if (line.pen.colour == paletteColour(colour)) found.push_back(line);
    return found;
}

} // namespace korvel
