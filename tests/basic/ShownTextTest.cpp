#include "basic/ShownText.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

TEST(ShownText, ShowsALineWithoutControlCharacters) {
    EXPECT_EQ(shownLine(std::string("a\x1b[31mb\x7f\0c", 10)), "a[31mbc");
    EXPECT_EQ(shownLine("a\u0085b\u009bc"), "abc");
    EXPECT_EQ(shownLine("a\tb\r\nc"), "a b  c");
    EXPECT_EQ(shownLine("a\uffffb\ufffec\ufffd"), "abc\ufffd");
    EXPECT_EQ(shownLine("\x85\x80\x81."), "\u2026\u20ac.") << "of Windows-1252";
    EXPECT_EQ(shownLine("caf\u00e9 \U0001f41f"), "caf\u00e9 \U0001f41f");
    EXPECT_EQ(shownLine(""), "");
}

TEST(ShownText, KeepsNamesFromRightToLeftApart) {
    EXPECT_EQ(shownName("Alder\x01 caf\u00e9"), "Alder caf\u00e9");
    EXPECT_EQ(shownName("\u05e9\u05dc\u05d5\u05dd"), "\u2068\u05e9\u05dc\u05d5\u05dd\u2069");
    EXPECT_EQ(shownName("ALDER \u0646\u0647\u0631"), "\u2068ALDER \u0646\u0647\u0631\u2069");
    EXPECT_EQ(shownName("a\u202eb"), "\u2068a\u202eb\u2069");
    EXPECT_EQ(shownName("\U00010A00"), "\u2068\U00010A00\u2069");
    EXPECT_EQ(shownName("\u058f\u0900"), "\u058f\u0900") << "the letters on both sides of those";
}

} // namespace

} // namespace korvel
