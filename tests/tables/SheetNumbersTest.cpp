#include "tables/SheetNumbers.h"

#include <gtest/gtest.h>

namespace korvel {

TEST(SheetNumbers, ShowAboutFourFiguresByTheirSize) {
    const struct {
        double value;
        const char* format;
        double width; // of what is then shown
    } cases[] = {
        {0, "General", 1},           {5.4187, "0.000", 5},       {-5.4187, "0.000", 6},
        {12.3456, "0.00", 5},        {999.96, "0.0", 5},         {1000, "#,##0", 5},
        {1234567, "#,##0", 9},       {0.5, "0.0000", 6},         {0.0123, "0.00000", 7},
        {0.00001, "0.00000000", 10}, {0.000001, "0.000E+00", 9}, {2e9, "0.000E+00", 9},
    };
    for (const auto& [value, format, width] : cases) {
        const std::size_t look = numberLook(value);
        EXPECT_STREQ(numberLooks[look].format, format) << value;
        EXPECT_EQ(shownWidth(value, look), width) << value;
    }
}

TEST(SheetNumbers, ShowPlacesAsTheyWereRead) {
    EXPECT_EQ(shownWidth(24.3, generalLook), 4);
    EXPECT_EQ(shownWidth(0, generalLook), 1);
    EXPECT_EQ(shownWidth(23.700000000000003, generalLook), 12);
}

} // namespace korvel
