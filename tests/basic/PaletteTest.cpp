#include "basic/Palette.h"

#include "basic/RunTimeError.h"

#include <cstdio>
#include <gtest/gtest.h>
#include <string>

namespace korvel {

namespace {

std::string hexOf(Rgb colour) {
    char text[7];
    std::snprintf(text, sizeof text, "%02X%02X%02X", colour.red, colour.green, colour.blue);
    return text;
}

TEST(Palette, HasTheSixteenClassicColours) {
    const char* const expected[] = {"000000", "000080", "008000", "008080", "800000", "800080",
                                    "808000", "C0C0C0", "808080", "0000FF", "00FF00", "00FFFF",
                                    "FF0000", "FF00FF", "FFFF00", "FFFFFF"};
    for (int number = 0; number <= 15; ++number)
        EXPECT_EQ(hexOf(paletteColour(number)), expected[number]);
}

TEST(Palette, NamesItsColours) {
    EXPECT_EQ(hexOf(paletteColour(colours::black)), "000000");
    EXPECT_EQ(hexOf(paletteColour(colours::blue)), "000080");
    EXPECT_EQ(hexOf(paletteColour(colours::green)), "008000");
    EXPECT_EQ(hexOf(paletteColour(colours::red)), "800000");
    EXPECT_EQ(hexOf(paletteColour(colours::lightGrey)), "C0C0C0");
    EXPECT_EQ(hexOf(paletteColour(colours::lightBlue)), "0000FF");
    EXPECT_EQ(hexOf(paletteColour(colours::lightRed)), "FF0000");
    EXPECT_EQ(hexOf(paletteColour(colours::yellow)), "FFFF00");
    EXPECT_EQ(hexOf(paletteColour(colours::white)), "FFFFFF");
}

TEST(Palette, RefusesOtherNumbers) {
    for (const int number : {-1, 16, 255}) {
        try {
            paletteColour(number);
            ADD_FAILURE() << number;
        } catch (const RunTimeError& error) {
            EXPECT_EQ(error.number, 5);
        }
    }
}

} // namespace

} // namespace korvel
