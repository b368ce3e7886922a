// What the tables take of the window's palette, light or dark.
#pragma once

#include <QColor>
#include <QPalette>

#include <string_view>

namespace korvel {

struct TableColours {
    QColor pass, unsure, fail, bar, ink, faint, points;
};

bool isDark(const QPalette& palette);
TableColours tableColours(const QPalette& palette);

// Of a verdict's word; the ink for any other.
QColor colourOf(std::string_view verdict, const TableColours& colours);

} // namespace korvel
