#include "results/PointLayout.h"

#include "basic/ListInput.h"
#include "results/PointValues.h"
#include "results/ReaderFixture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <random>

namespace korvel {

namespace {

// One caption with two numbers, one with one.
constexpr std::array numbersByCaption = {2, 1};
constexpr std::size_t numbers = 3;
const std::string learnt = "\"Flow mean\",    12.500,     3.25\r\n\"Target\",       40\r\n";

struct Read {
    std::size_t length = 0;
    std::vector<double> values = std::vector<double>(numbers, notReadYet);
};

Read readAs(PointLayout& layout, const std::string& text) {
    Read read;
    TextSource source(text);
    ListInput input(source);
    input.hasLine(); // brings the bytes
    read.length = layout.read(input.ahead(), read.values);
    return read;
}

PointLayout layoutOf(const std::string& text) {
    PointLayout layout;
    layout.learn(text, numbersByCaption);
    return layout;
}

Read readAs(const std::string& first, const std::string& next) {
    PointLayout layout = layoutOf(first);
    return readAs(layout, next);
}

std::string changed(const std::string& from, const std::string& to) {
    std::string text = learnt;
    const std::size_t at = text.find(from);
    EXPECT_NE(at, std::string::npos) << from;
    return text.replace(at, from.size(), to);
}

TEST(PointLayout, ReadsWhatItHasLearnt) {
    const Read read = readAs(learnt, learnt + "1, 2, \"Next\"");
    EXPECT_EQ(read.length, learnt.size());
    EXPECT_EQ(read.values, (std::vector<double>{12.5, 3.25, 40}));
}

TEST(PointLayout, ReadsOtherNumbersInTheSamePlaces) {
    const std::vector<std::pair<std::pair<const char*, const char*>, double>> cases = {
        {{"    12.500", "     0.001"}, 0.001},      {{"    12.500", "      .125"}, 0.125},
        {{"    12.500", "123456.789"}, 123456.789}, {{"    12.500", "    -1.500"}, -1.5},
        {{"    12.500", "    +1.500"}, 1.5},        {{"    12.500", "    -0.000"}, -0.0},
        {{"    12.500", "\t\t\t\t12.500"}, 12.5},   {{"    12.500", "000012.500"}, 12.5},
    };
    for (const auto& [texts, value] : cases) {
        const Read read = readAs(learnt, changed(texts.first, texts.second));
        EXPECT_EQ(read.length, learnt.size()) << texts.second;
        EXPECT_EQ(std::bit_cast<std::uint64_t>(read.values[0]), std::bit_cast<std::uint64_t>(value))
            << texts.second;
    }
}

TEST(PointLayout, LeavesAnyDoubtToTheGeneralReader) {
    const std::vector<std::pair<const char*, const char*>> cases = {
        {"12.500", "12.5 0"}, {"12.500", "1 .500"},  {"12.500", "12,500"},    {"    12.500", "    12.50 "},
        {"12.500", "12.50x"}, {"12.500", "!2.500"},  {"12.500", "1e.500"},    {"    12.500", "  1 12.500"},
        {"12.500", "--.500"}, {" 40", "   "},        {" 40", " 4,"},          {"Flow", "Flaw"},
        {", ", "; "},         {"\r\n\"T", "\n \"T"}, {"Target\"", "Target "},
    };
    for (const auto& [from, to] : cases) {
        const Read read = readAs(learnt, changed(from, to));
        EXPECT_EQ(read.length, 0u) << to;
        EXPECT_TRUE(std::ranges::all_of(read.values, [](double value) { return std::isnan(value); })) << to;
    }
}

TEST(PointLayout, TakesNoTwoNumbersFromOneThatFillsTheBlankBetweenThem) {
    const std::string text = "\"Flow\" 12  34\n\"Target\" 5\n";
    EXPECT_EQ(readAs(text, "\"Flow\" 12 134\n\"Target\" 5\n").values, (std::vector<double>{12, 134, 5}));
    EXPECT_EQ(readAs(text, "\"Flow\" 121234\n\"Target\" 5\n").length, 0u);
}

TEST(PointLayout, LeavesAPointThatGoesOnBehindTheText) {
    for (std::size_t size = 0; size < learnt.size(); ++size)
        EXPECT_EQ(readAs(learnt, learnt.substr(0, size)).length, 0u) << size;
}

TEST(PointLayout, ReadsNumbersWithManyDigitsAndExponents) {
    const std::string text = "\"Flow\", 1.5E+02 123456789.25\n\"Target\" 0.123456789\n";
    const Read read = readAs(text, "\"Flow\", 2.5E-02 987654321.75\n\"Target\" 0.987654321\n");
    EXPECT_EQ(read.length, text.size());
    EXPECT_EQ(read.values, (std::vector<double>{0.025, 987654321.75, 0.987654321}));
}

TEST(PointLayout, LearnsNothingFromAPointWhoseFieldsMightMoveUnseen) {
    for (const char* text : {
             "\"Flow\", 1, 2\r\n\"Target\", 3",         // the last field may go on
             "\"Flow\", 1, 2\r\n\"Target\", 3\r",       // a line feed may follow
             "\"Flow\", 1, 2\r\n\"Target\", 3 ",        // a comma may follow
             "Flow, 1, 2\r\n\"Target\", 3\r\n",         // a caption that could be a number
             "\"Flow\", 1, \r\n\"Target\", 3\r\n",      // an empty field
             "\"Flow\", 1, 2\r\n\"Target\", \"3\"\r\n", // too many quoted ones
             "12.5 \"Flow\",,3\r\n\"Target\", 40\r\n",  // a caption without quotes that holds some
             "\"Flow\",,1\r\n5 \"Target\",40\r\n",
             "7 \"a\" \"b, 1, 2\nT\" 8, 3\n",
         }) {
        const std::string again = text;
        EXPECT_EQ(readAs(again, again).length, 0u) << text;
    }
}

TEST(PointLayout, LearnsNothingFromALoneQuoteInATextWithoutQuotes) {
    const std::string text = "Flow in \"x, 1, 2\r\nTarget, 3\r\n";
    EXPECT_EQ(readAs(text, text).length, 0u);
}

TEST(PointLayout, LooksEverMoreRarelyAtPointsThatDiffer) {
    PointLayout layout;
    const auto widths = [](int width) {
        return "\"Flow\"," + std::string(static_cast<std::size_t>(width), ' ') + "1, 2\n\"Target\", 3\n";
    };
    std::vector<int> learntPoints;
    for (int point = 0; point < 40; ++point) {
        EXPECT_EQ(readAs(layout, widths(point)).length, 0u);
        layout.learn(widths(point), numbersByCaption);
        PointLayout copy = layout;
        if (readAs(copy, widths(point)).length > 0) learntPoints.push_back(point);
    }
    EXPECT_EQ(learntPoints, (std::vector<int>{0, 1, 3, 7, 15, 31}));
}

TEST(PointLayout, LooksAtEveryPointAgainOnceOneWasLikeTheLast) {
    PointLayout layout = layoutOf(learnt);
    const std::string other = changed("Flow", "Inflow");
    layout.learn(other, numbersByCaption);
    EXPECT_GT(readAs(layout, other).length, 0u);
    layout.learn(learnt, numbersByCaption);
    EXPECT_GT(readAs(layout, learnt).length, 0u);
}

} // namespace

} // namespace korvel
