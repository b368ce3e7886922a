#include "tables/SheetText.h"

#include <gtest/gtest.h>

namespace korvel {

TEST(SheetText, StaysAsItIsShown) {
    const struct {
        std::string text, sheet;
    } cases[] = {
        {"Weir", "Weir"},
        {"", ""},
        {"=1+1", "=1+1"},
        {"\xC9tang", "\xC3\x89tang"},
        {"a\001b\rc\td", "a\001b\rc\td"}, // the library writes these by their codes
        {std::string("a\0b", 3), "a_x0000_b"},
        {"_x0041_", "_x005F_x0041_"},
        {"_x004g_", "_x004g_"},
        {"_x004", "_x004"},
        {"__x0041_", "__x005F_x0041_"},
        {"a\xEF\xBF\xBF", "a\xEF\xBF\xBD"},
        {"a\xEF\xBF\xBE_", "a\xEF\xBF\xBD_"},
        {"\xEF\xBF\xBD", "\xEF\xBF\xBD"},
        {"\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D", "\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D"}, // right to left
    };
    for (const auto& [text, sheet] : cases) {
        EXPECT_EQ(sheetText(text).text, sheet);
        EXPECT_FALSE(sheetText(text).isCut);
    }
}

TEST(SheetText, IsCutWhereACellHoldsNoMore) {
    const std::string longest(longestSheetText, 'x'), ellipsis = "\xE2\x80\xA6";
    EXPECT_EQ(sheetText(longest).text, longest);
    EXPECT_FALSE(sheetText(longest).isCut);
    const SheetText cut = sheetText(longest + "y");
    EXPECT_TRUE(cut.isCut);
    EXPECT_EQ(cut.text, longest.substr(1) + ellipsis);
    EXPECT_EQ(sheetText(std::string(100000, 'x')).text, longest.substr(1) + ellipsis);
}

TEST(SheetText, CountsCharactersAsACellDoes) {
    std::string fish; // each counts twice
    for (int k = 0; k < 20000; ++k)
        fish += "\xF0\x9F\x90\x9F";
    const SheetText cut = sheetText(fish);
    EXPECT_TRUE(cut.isCut);
    EXPECT_EQ(cut.text.size(), std::size_t{4} * 16383 + 3);
    EXPECT_FALSE(sheetText(fish.substr(0, std::size_t{4} * 16383)).isCut);
}

} // namespace korvel
