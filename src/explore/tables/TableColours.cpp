#include "explore/tables/TableColours.h"

#include "panels/PanelLook.h"

namespace korvel {

namespace {

QColor colour(Rgb rgb) {
    return {rgb.red, rgb.green, rgb.blue};
}

} // namespace

bool isDark(const QPalette& palette) {
    return palette.color(QPalette::Base).lightness() < palette.color(QPalette::Text).lightness();
}

// As in the panels; on a light ground darker than lines are, since these are words.
TableColours tableColours(const QPalette& palette) {
    const bool dark = isDark(palette);
    const PanelLook look = panelLook(dark ? Theme::dark : Theme::light);
    const auto ofWords = [&](Rgb rgb) { return dark ? colour(rgb) : colour(rgb).darker(130); };
    QColor faint = palette.color(QPalette::Text), bar = colour(look.accent);
    faint.setAlphaF(0.15F);
    bar.setAlphaF(0.4F);
    return {ofWords(look.pass),
            ofWords(look.unsure),
            ofWords(look.fail),
            bar,
            palette.color(QPalette::Text),
            faint,
            colour(look.accent)};
}

QColor colourOf(std::string_view verdict, const TableColours& colours) {
    if (verdict == "pass") return colours.pass;
    if (verdict == "unsure") return colours.unsure;
    if (verdict == "fail") return colours.fail;
    return colours.ink;
}

} // namespace korvel
