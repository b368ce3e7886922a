#include "explore/tables/TableColours.h"

namespace korvel {

bool isDark(const QPalette& palette) {
    return palette.color(QPalette::Base).lightness() < palette.color(QPalette::Text).lightness();
}

TableColours tableColours(const QPalette& palette) {
    const QColor ink = palette.color(QPalette::Text);
    QColor faint = ink;
    faint.setAlphaF(0.15F);
    if (isDark(palette))
        return {QColor(0x4d, 0xc9, 0xa0),
                QColor(0xf0, 0xb4, 0x3c),
                QColor(0xff, 0x8a, 0x5c),
                QColor(0x3d, 0x6f, 0x99),
                ink,
                faint,
                QColor(0x56, 0xb4, 0xe9)};
    return {QColor(0x00, 0x6e, 0x50),
            QColor(0x8a, 0x5a, 0x00),
            QColor(0xb3, 0x3c, 0x00),
            QColor(0x9c, 0xc8, 0xe6),
            ink,
            faint,
            QColor(0x00, 0x72, 0xb2)};
}

QColor colourOf(std::string_view verdict, const TableColours& colours) {
    if (verdict == "pass") return colours.pass;
    if (verdict == "unsure") return colours.unsure;
    if (verdict == "fail") return colours.fail;
    return colours.ink;
}

} // namespace korvel
