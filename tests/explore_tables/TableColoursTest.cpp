#include "explore/tables/TableColours.h"

#include <gtest/gtest.h>

#include <cmath>

namespace korvel {

namespace {

double linear(double channel) {
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& colour) {
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

// Of the Web Content Accessibility Guidelines; 4.5 is enough for words.
double contrast(const QColor& a, const QColor& b) {
    const double first = luminance(a), second = luminance(b);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

QPalette paletteOf(const QColor& ground, const QColor& text) {
    QPalette palette;
    palette.setColor(QPalette::Base, ground);
    palette.setColor(QPalette::Text, text);
    return palette;
}

} // namespace

TEST(TableColours, StandOutFromALightAndADarkGround) {
    for (const bool dark : {false, true}) {
        const QColor ground = dark ? QColor(0x1d, 0x21, 0x27) : QColor(Qt::white);
        const QPalette palette = paletteOf(ground, dark ? Qt::white : Qt::black);
        EXPECT_EQ(isDark(palette), dark);
        const TableColours colours = tableColours(palette);
        for (const char* verdict : {"pass", "unsure", "fail", ""})
            EXPECT_GE(contrast(colourOf(verdict, colours), ground), 4.5) << verdict << dark;
    }
}

TEST(TableColours, TellVerdictsApart) {
    const TableColours colours = tableColours(paletteOf(Qt::white, Qt::black));
    EXPECT_NE(colourOf("pass", colours), colourOf("unsure", colours));
    EXPECT_NE(colourOf("unsure", colours), colourOf("fail", colours));
    EXPECT_NE(colourOf("fail", colours), colourOf("pass", colours));
}

} // namespace korvel
