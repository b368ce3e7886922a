#include "basic/Text.h"
#include "basic/Fitting.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

TEST(Text, TrimDropsBlanksOnly) {
    const struct {
        const char* text;
        const char* both;
        const char* left;
        const char* right;
    } rows[] = {
        {"  a b ", "a b", "a b ", "  a b"},
        {"", "", "", ""},
        {"   ", "", "", ""},
        {"\ta\t ", "\ta\t", "\ta\t ", "\ta\t"},
        {" \r\n ", "\r\n", "\r\n ", " \r\n"},
        {" \xA0 ", "\xA0", "\xA0 ", " \xA0"},
        {"a", "a", "a", "a"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(trim(row.text), row.both);
        EXPECT_EQ(trimLeft(row.text), row.left);
        EXPECT_EQ(trimRight(row.text), row.right);
    }
}

TEST(Text, CaseMeansTheTwentySixLettersAlone) {
    EXPECT_EQ(upperCase("azAZ019_@[`{"), "AZAZ019_@[`{");
    EXPECT_EQ(lowerCase("azAZ019_@[`{"), "azaz019_@[`{");
    EXPECT_EQ(upperCase("caf\xC3\xA9 \xE9"), "CAF\xC3\xA9 \xE9");
    EXPECT_EQ(lowerCase("CAF\xC3\x89 \xC9"), "caf\xC3\x89 \xC9");
}

TEST(Text, FindsPartsByExactSpelling) {
    EXPECT_TRUE(beginsWith("Head of", "Head"));
    EXPECT_TRUE(beginsWith("Head", ""));
    EXPECT_FALSE(beginsWith("head of", "Head"));
    EXPECT_FALSE(beginsWith("He", "Head"));
    EXPECT_TRUE(contains("a(Load)", "(Load)"));
    EXPECT_FALSE(contains("a(load)", "(Load)"));
    EXPECT_TRUE(contains("", ""));
}

TEST(Text, TakesTheEndOrAllButTheEnd) {
    EXPECT_EQ(last("TEST.DAT", 4), ".DAT");
    EXPECT_EQ(last("DAT", 4), "DAT");
    EXPECT_EQ(last("DAT", 0), "");
    EXPECT_EQ(withoutLast("TEST.DAT", 4), "TEST");
    EXPECT_EQ(withoutLast("DAT", 3), "");
    EXPECT_EQ(withoutLast("DAT", 4), "");
    EXPECT_EQ(withoutLast("DAT", 0), "DAT");
}

TEST(Text, ShowsValidUtf8AsItStands) {
    for (const char* text : {"", "plain", "caf\xC3\xA9", "\xE2\x82\xAC", "\xF0\x9F\x90\x9F", "\xC2\x80",
                             "\xDF\xBF", "\xE0\xA0\x80", "\xED\x9F\xBF", "\xEE\x80\x80", "\xEF\xBF\xBF",
                             "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF", "\x7F\x01"})
        EXPECT_EQ(shownUtf8(text), text);
    EXPECT_EQ(shownUtf8(std::string("a\0b", 3)), std::string("a\0b", 3));
}

TEST(Text, DropsASequenceCutOffAtTheEndWhereAnotherTellsThatItIsUtf8) {
    const struct {
        const char* text;
        const char* shown;
    } rows[] = {
        {"caf\xC3\xA9 \xC3", "caf\xC3\xA9 "},
        {"\xC3\xA9\xE2", "\xC3\xA9"},
        {"\xE2\x82\xAC\xE2\x82", "\xE2\x82\xAC"},
        {"\xF0\x9F\x90\x9F\xF0\x9F\x90", "\xF0\x9F\x90\x9F"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(shownUtf8(row.text), row.shown);
}

TEST(Text, ShowsAnythingElseAsWindows1252) {
    const struct {
        const char* text;
        const char* shown;
    } rows[] = {
        {"caf\xE9 au lait", "caf\xC3\xA9 au lait"},
        {"\x80", "\xE2\x82\xAC"},
        {"March\xE9", "March\xC3\xA9"}, // a letter at the end, not half of one
        {"\xE9", "\xC3\xA9"},
        {"a\xE2\x82", "a\xC3\xA2\xE2\x80\x9A"},
        {"caf\xC3\xA9 \xC3x", "caf\xC3\x83\xC2\xA9 \xC3\x83x"},
        {"\x93x\x94", "\xE2\x80\x9Cx\xE2\x80\x9D"},
        {"\x9F", "\xC5\xB8"},
        {"\xA0\xFF", "\xC2\xA0\xC3\xBF"},
        {"\x81\x8D\x8F\x90\x9D", "\xC2\x81\xC2\x8D\xC2\x8F\xC2\x90\xC2\x9D"},
        {"\xC0\x80", "\xC3\x80\xE2\x82\xAC"},                             // overlong
        {"\xC1\xBF", "\xC3\x81\xC2\xBF"},                                 // overlong
        {"\xE0\x9F\xBF", "\xC3\xA0\xC5\xB8\xC2\xBF"},                     // overlong
        {"\xF0\x8F\xBF\xBF", "\xC3\xB0\xC2\x8F\xC2\xBF\xC2\xBF"},         // overlong
        {"\xED\xA0\x80", "\xC3\xAD\xC2\xA0\xE2\x82\xAC"},                 // a surrogate
        {"\xF4\x90\x80\x80", "\xC3\xB4\xC2\x90\xE2\x82\xAC\xE2\x82\xAC"}, // beyond 10FFFF
        {"\xF5", "\xC3\xB5"},
        {"\xE0\x80", "\xC3\xA0\xE2\x82\xAC"},           // no start of any sequence
        {"\xC3x\xC3\xA9", "\xC3\x83x\xC3\x83\xC2\xA9"}, // one bad byte makes all of it Windows-1252
        {"\x80 \xC3", "\xE2\x82\xAC \xC3\x83"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(shownUtf8(row.text), row.shown);
}

TEST(Text, ShowsEveryUpperCharacterOfWindows1252) {
    const char* const expected = "€\u0081‚ƒ„…†‡ˆ‰Š‹Œ\u008DŽ\u008F\u0090‘’“”•–—˜™š›œ\u009DžŸ";
    std::string all;
    for (int code = 0x80; code < 0xA0; ++code)
        all.push_back(static_cast<char>(code));
    EXPECT_EQ(shownUtf8(all), expected);
}

TEST(Text, CountsCharactersAsShown) {
    EXPECT_EQ(shownLength(""), 0U);
    EXPECT_EQ(shownLength("abc"), 3U);
    EXPECT_EQ(shownLength("caf\xC3\xA9 \xE2\x82\xAC\xF0\x9F\x90\x9F"), 7U);
    EXPECT_EQ(firstShown("caf\xC3\xA9s", 4), "caf\xC3\xA9");
    EXPECT_EQ(firstShown("caf\xC3\xA9s", 3), "caf");
    EXPECT_EQ(firstShown("\xF0\x9F\x90\x9Fx", 1), "\xF0\x9F\x90\x9F");
    EXPECT_EQ(firstShown("ab", 60), "ab");
    EXPECT_EQ(firstShown("ab", 0), "");
    EXPECT_EQ(firstShown("", 5), "");
}

TEST(Text, ListsPartsInWords) {
    EXPECT_EQ(inWords({}, "or"), "");
    EXPECT_EQ(inWords({"a"}, "or"), "a");
    EXPECT_EQ(inWords({"a", "b"}, "and"), "a and b");
    EXPECT_EQ(inWords({"90", "95", "99"}, "or"), "90, 95 or 99");
}

} // namespace

TEST(Text, FitsAsManyCharactersAsThereIsRoomFor) {
    for (std::size_t room = 1; room < 20; ++room) {
        const auto fits = [&](std::size_t length) { return length <= room; };
        EXPECT_EQ(mostFitting(0, 12, fits), std::min<std::size_t>(room, 11)) << room;
    }
    EXPECT_EQ(mostFitting(0, 12, [](std::size_t) { return false; }), 0U);
    EXPECT_EQ(mostFitting(1, 1, [](std::size_t) { return true; }), 1U);
    int asked = 0;
    mostFitting(0, 30000, [&](std::size_t length) { return ++asked, length < 7; });
    EXPECT_LE(asked, 15);
}

} // namespace korvel
