// Pages for the tests of paper.
#pragma once

#include "platform/Paper.h"

namespace korvel {

inline Drawing emptyPage(Orientation orientation = Orientation::portrait) {
    const bool landscape = orientation == Orientation::landscape;
    return {landscape ? printableLongSide : printableShortSide,
            landscape ? printableShortSide : printableLongSide,
            1,
            {}};
}

inline DrawnText textAt(double x, double y, const std::string& text, const Font& font = {}) {
    return {{x, y}, 0, 0, text, font, {0, 0, 0}};
}

inline Drawing pageWith(const std::string& text, Orientation orientation = Orientation::portrait) {
    Drawing page = emptyPage(orientation);
    page.commands.emplace_back(textAt(1, 1, text));
    return page;
}

} // namespace korvel
