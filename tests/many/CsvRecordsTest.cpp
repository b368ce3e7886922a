#include "many/CsvRecords.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

using Texts = std::vector<std::vector<std::string>>;

Texts textsOf(std::string_view csv) {
    Texts texts;
    for (const CsvRecord& record : csvRecords(csv).records) {
        texts.emplace_back();
        for (const CsvField& field : record)
            texts.back().push_back(field.text);
    }
    return texts;
}

struct GoodCase {
    const char* what;
    std::string csv;
    Texts texts;
};

TEST(CsvRecords, ReadsWhatSpreadsheetsAndScriptsWrite) {
    const GoodCase cases[] = {
        {"nothing", "", {}},
        {"plain", "a,b\n1,2\n", {{"a", "b"}, {"1", "2"}}},
        {"the last line end missing", "a,b\n1,2", {{"a", "b"}, {"1", "2"}}},
        {"CR LF", "a,b\r\n1,2\r\n", {{"a", "b"}, {"1", "2"}}},
        {"CR LF missing at the end", "a\r", {{"a"}}},
        {"a byte order mark",
         "\xEF\xBB\xBF"
         "a,b\n",
         {{"a", "b"}}},
        {"empty fields", ",a,\n", {{"", "a", ""}}},
        {"blanks around", "  a , b\t\n", {{"a", "b"}}},
        {"quotes", "\"a, \"\"b\"\"\",\" c \"\n", {{"a, \"b\"", " c "}}},
        {"blanks around quotes", " \"a\" , \"b\" \r\n", {{"a", "b"}}},
        {"a line end in quotes", "\"a\nb\",c\nd,e\n", {{"a\nb", "c"}, {"d", "e"}}},
        {"empty lines and comments", "\n# a plan, \"by hand\n \t \r\na\r\n\r\n#b\nc\n", {{"a"}, {"c"}}},
        {"a number sign inside", "a,#b\n \n", {{"a", "#b"}}},
        {"letters beyond ASCII", "\xC3\x84hre,b\n", {{"\xC3\x84hre", "b"}}},
    };
    for (const GoodCase& one : cases) {
        EXPECT_EQ(textsOf(one.csv), one.texts) << one.what;
        EXPECT_TRUE(csvRecords(one.csv).problems.empty()) << one.what;
    }
}

struct BadCase {
    const char* csv;
    PlaceInText place;
    const char* text;
    std::size_t records;
};

TEST(CsvRecords, TellsWhereARecordIsNone) {
    const BadCase cases[] = {
        {"a,b\nc,\"d\n", {2, 3}, "The quote is never closed.", 1},
        {"a,\"b\"c\nd\n", {1, 6}, "Text stands behind a closing quote.", 1},
        {"a,b\"c\"\nd\n", {1, 4}, "A quote stands inside a text without quotes.", 1},
        {"a\nb,\xFFz\n", {2, 3}, "The text is not UTF-8.", 1},
        {"a\n\"b\xC3\"\n", {2, 1}, "The text is not UTF-8.", 1},
    };
    for (const BadCase& one : cases) {
        const CsvRecords read = csvRecords(one.csv);
        ASSERT_EQ(read.problems.size(), 1U) << one.csv;
        EXPECT_EQ(placeInText(one.csv, read.problems[0].offset), one.place) << one.csv;
        EXPECT_EQ(read.problems[0].text, one.text);
        EXPECT_EQ(read.records.size(), one.records) << one.csv;
    }
}

TEST(CsvRecords, CountsColumnsAsShown) {
    EXPECT_EQ(placeInText("\xC3\x84\xC3\x84,b", 5), (PlaceInText{1, 4}));
    EXPECT_EQ(placeInText("\xEF\xBB\xBF"
                          "ab",
                          4),
              (PlaceInText{1, 2}));
    EXPECT_EQ(placeInText("a\r\nbc\n", 4), (PlaceInText{2, 2}));
}

} // namespace

} // namespace korvel
