#include "help/HelpPage.h"

#include "fakes/FakePlatform.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

std::string linesTo(int count) {
    std::string text;
    for (int k = 1; k <= count; ++k)
        text += "line " + std::to_string(k) + "\r\n";
    return text;
}

std::vector<std::string> rowsOf(const std::string& page, const std::string& text) {
    TextSource source(text);
    return helpPageRows(source, helpPageLayout(page));
}

int errorOf(const std::string& page, const std::string& text) {
    try {
        rowsOf(page, text);
    } catch (const RunTimeError& error) {
        return error.number;
    }
    return 0;
}

using Rows = std::vector<std::string>;

} // namespace

TEST(HelpPage, KnowsTheLayoutsOfPages4To10) {
    const struct {
        const char* page;
        int headerLines;
        bool showsLastLine;
    } pages[] = {{"4", 3, false}, {"5", 6, false},  {"6", 4, false}, {"7", 4, false}, {"8", 4, false},
                 {"9", 4, false}, {"10", 4, false}, {"3", 0, true},  {"11", 0, true}, {"12", 0, true},
                 {"", 0, true},   {"04", 0, true},  {"4 ", 0, true}, {"1", 0, true},  {"0", 0, true}};
    for (const auto& [page, headerLines, showsLastLine] : pages) {
        EXPECT_EQ(helpPageLayout(page).headerLines, headerLines) << page;
        EXPECT_EQ(helpPageLayout(page).showsLastLine, showsLastLine) << page;
    }
}

TEST(HelpPage, ShowsNineRowsOfPage5WithSixHeaderLinesAndTenMore) {
    const Rows rows = rowsOf("5", linesTo(16));
    ASSERT_EQ(rows.size(), 9u);
    EXPECT_EQ(rows.front(), "line 7");
    EXPECT_EQ(rows.back(), "line 15");
}

TEST(HelpPage, ShowsEveryLineOfPage12) {
    EXPECT_EQ(rowsOf("12", "\r\none\r\n\r\nlast, \"as it stands\"\r\n"),
              (Rows{"", "one", "", "last, \"as it stands\""}));
    EXPECT_EQ(rowsOf("12", "one\r\n\r\n"), (Rows{"one", ""}));
    EXPECT_EQ(rowsOf("12", "no line end"), (Rows{"no line end"}));
    EXPECT_TRUE(rowsOf("12", "").empty());
}

TEST(HelpPage, ShowsNoRowsOfPage4WithThreeHeaderLinesAndOneMore) {
    EXPECT_TRUE(rowsOf("4", linesTo(4)).empty());
}

TEST(HelpPage, ShowsNoRowsOfAPageThatIsOnlyItsHeader) {
    EXPECT_TRUE(rowsOf("4", linesTo(3)).empty());
    EXPECT_TRUE(rowsOf("10", linesTo(4)).empty());
}

TEST(HelpPage, FailsAtTheEndOfAFileShorterThanItsHeader) {
    EXPECT_EQ(errorOf("4", linesTo(2)), errors::inputPastEndOfFile);
    EXPECT_EQ(errorOf("5", linesTo(5)), errors::inputPastEndOfFile);
    EXPECT_EQ(errorOf("7", ""), errors::inputPastEndOfFile);
    EXPECT_EQ(errorOf("12", ""), 0);
}

TEST(HelpPage, KeepsCommasQuotesAndBlanks) {
    EXPECT_EQ(rowsOf("11", "  a, \"b\"  ,c\t\r\n"), (Rows{"  a, \"b\"  ,c\t"}));
}

TEST(HelpPage, TakesEveryKindOfLineEnd) {
    EXPECT_EQ(rowsOf("11", "a\nb\r\nc\rd"), (Rows{"a", "b", "c", "d"}));
}

TEST(HelpPage, IsReadFromTheApplicationFolder) {
    FakePlatform world;
    world.putFile("KORDAT7.TXT", linesTo(6));
    EXPECT_EQ(readHelpPage(world, "7"), (Rows{"line 5"}));
}

TEST(HelpPage, WithoutAFileIsAFailureThatNothingTraps) {
    FakePlatform world;
    try {
        readHelpPage(world, "7");
        FAIL() << "read a page that is not there";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.number, errors::fileNotFound);
    }
}

TEST(HelpPage, TurnsToThePagesThatAreThere) {
    FakePlatform world;
    for (const char* page : {"KORDAT4.TXT", "KORDAT6.TXT", "KORDAT10.TXT", "KORDAT12.TXT"})
        world.putFile(page, "");
    const Rows there = helpPagesThere(world);
    EXPECT_EQ(there, (Rows{"4", "6", "10"}));
    EXPECT_EQ(turnedPage(there, "4", PageTurn::forth), "6");
    EXPECT_EQ(turnedPage(there, "6", PageTurn::forth), "10");
    EXPECT_EQ(turnedPage(there, "10", PageTurn::forth), "10");
    EXPECT_EQ(turnedPage(there, "10", PageTurn::back), "6");
    EXPECT_EQ(turnedPage(there, "6", PageTurn::back), "4");
    EXPECT_EQ(turnedPage(there, "4", PageTurn::back), "4");
    EXPECT_EQ(turnedPage(there, "12", PageTurn::back), "4");
    EXPECT_EQ(turnedPage(there, "12", PageTurn::forth), "4");
    EXPECT_EQ(turnedPage({}, "12", PageTurn::forth), "12");
}

} // namespace korvel
