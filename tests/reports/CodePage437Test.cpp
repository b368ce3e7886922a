#include "reports/CodePage437.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace korvel {

namespace {

std::string shown(int code) {
    return utf8OfCodePage437(std::string(1, static_cast<char>(code)));
}

std::string edgesOf(const BoxStrokes& strokes) {
    return std::string(strokes.left ? "L" : "") + (strokes.right ? "R" : "") + (strokes.top ? "T" : "") +
           (strokes.bottom ? "B" : "");
}

struct Box {
    int code;
    const char* character;
    const char* edges;
    double penWidth;
};

const Box boxes[] = {{218, "┌", "RB", 1},  {201, "╔", "RB", 2},  {194, "┬", "LRB", 1}, {191, "┐", "LB", 1},
                     {187, "╗", "LB", 2},  {195, "├", "RTB", 1}, {199, "╟", "RTB", 2}, {180, "┤", "LTB", 1},
                     {182, "╢", "LTB", 2}, {192, "└", "RT", 1},  {200, "╚", "RT", 2},  {193, "┴", "LRT", 1},
                     {217, "┘", "LT", 1},  {188, "╝", "LT", 2},  {196, "─", "LR", 1},  {205, "═", "LR", 2},
                     {179, "│", "TB", 1}};

} // namespace

TEST(CodePage437, ShowsItsCharacters) {
    EXPECT_EQ(utf8OfCodePage437("BOD = 1.5 ~{}"), "BOD = 1.5 ~{}");
    EXPECT_EQ(shown(1), "☺");
    EXPECT_EQ(shown(9), "○");
    EXPECT_EQ(shown(31), "▼");
    EXPECT_EQ(shown(127), "⌂");
    EXPECT_EQ(shown(128), "Ç");
    EXPECT_EQ(shown(156), "£");
    EXPECT_EQ(shown(176), "░");
    EXPECT_EQ(shown(186), "║");
    EXPECT_EQ(shown(197), "┼");
    EXPECT_EQ(shown(219), "█");
    EXPECT_EQ(shown(225), "ß");
    EXPECT_EQ(shown(241), "±");
    EXPECT_EQ(shown(248), "°");
    EXPECT_EQ(shown(253), "²");
}

TEST(CodePage437, ShowsEveryCodeAsTheCharacterOfThePage) {
    const std::string low = "☺☻♥♦♣♠•◘○◙♂♀♪♫☼►◄↕‼¶§▬↨↑↓→←∟↔▲▼";
    const std::string high = "ÇüéâäàåçêëèïîìÄÅÉæÆôöòûùÿÖÜ¢£¥₧ƒ"
                             "áíóúñÑªº¿⌐¬½¼¡«»░▒▓│┤╡╢╖╕╣║╗╝╜╛┐"
                             "└┴┬├─┼╞╟╚╔╩╦╠═╬╧╨╤╥╙╘╒╓╫╪┘┌█▄▌▐▀"
                             "αßΓπΣσµτΦΘΩδ∞φε∩≡±≥≤⌠⌡÷≈°∙·√ⁿ²■\u00A0";
    std::string codes;
    for (int code = 1; code < 32; ++code)
        codes.push_back(static_cast<char>(code));
    EXPECT_EQ(utf8OfCodePage437(codes), low);
    codes.clear();
    for (int code = 128; code < 256; ++code)
        codes.push_back(static_cast<char>(code));
    EXPECT_EQ(utf8OfCodePage437(codes), high);
}

TEST(CodePage437, HasAnotherCharacterForEveryCode) {
    std::set<std::string> characters;
    for (int code = 1; code < 256; ++code)
        characters.insert(shown(code));
    EXPECT_EQ(characters.size(), 255U);
    EXPECT_EQ(shown(0), " ");
}

TEST(BoxStrokes, AreThoseOfTheTable) {
    for (const Box& box : boxes) {
        const auto strokes = boxStrokesOf(static_cast<char>(box.code));
        ASSERT_TRUE(strokes) << box.code;
        EXPECT_EQ(edgesOf(*strokes), box.edges) << box.code;
        EXPECT_EQ(strokes->penWidth, box.penWidth) << box.code;
        EXPECT_EQ(shown(box.code), box.character);
    }
}

TEST(BoxStrokes, AreNoneForAllOtherCharacters) {
    int drawn = 0;
    for (int code = 0; code < 256; ++code)
        drawn += boxStrokesOf(static_cast<char>(code)) ? 1 : 0;
    EXPECT_EQ(drawn, static_cast<int>(std::size(boxes)));
    EXPECT_FALSE(boxStrokesOf(static_cast<char>(186)));
    EXPECT_FALSE(boxStrokesOf(static_cast<char>(197)));
}

} // namespace korvel
