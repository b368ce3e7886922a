#include "SmallCatchment.h"

#include "engine/GapFills.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace korvel {

using namespace engine;
using namespace std::string_literals;

namespace {

// "line: message", or "" where the text is in order.
std::string problemOf(const std::string& text) {
    const auto result = parseCatchment(text);
    const auto* error = std::get_if<DataError>(&result);
    return error == nullptr ? "" : std::to_string(error->line) + ": " + error->message;
}

} // namespace

TEST(CatchmentParser, ReadsEverySection) {
    const Catchment catchment = smallCatchment::parsed(smallCatchment::text());
    EXPECT_EQ(catchment.settings.title, "Small River");
    EXPECT_EQ(catchment.settings.shots, 200);
    EXPECT_EQ(catchment.settings.spacing, 1);
    ASSERT_EQ(catchment.determinands.size(), 2u);
    EXPECT_EQ(catchment.determinands[1].name, "BOD");
    EXPECT_EQ(catchment.determinands[1].statistic, StandardStatistic::percentile90);
    EXPECT_EQ(catchment.determinands[1].decay, 0.5);
    ASSERT_EQ(catchment.reaches.size(), 2u);
    EXPECT_EQ(catchment.reaches[0].next, 2);
    EXPECT_EQ(catchment.reaches[1].length, 10);
    EXPECT_EQ(catchment.flow(2).mean, 30);
    EXPECT_EQ(catchment.quality(3, 2).mean, 40);
    EXPECT_EQ(catchment.target(1, 2).better, 6);
    EXPECT_EQ(catchment.observedAt(3, 2).percentile99, 12);
    EXPECT_EQ(catchment.observedAt(4, 0).percentile90, 40);
    EXPECT_EQ(catchment.observedAt(4, 1).mean, 0);
}

TEST(CatchmentParser, PutsFeaturesInRiverOrder) {
    const Catchment catchment = smallCatchment::parsed(smallCatchment::text());
    std::vector<std::string> names;
    for (const Feature& feature : catchment.features)
        names.push_back(feature.name);
    EXPECT_EQ(names, (std::vector<std::string>{"Weir, upper", "Works", "Intake", "Bridge", "Gauge"}));
}

TEST(CatchmentParser, TakesCommentsQuotesBlankLinesAndEveryLineEnd) {
    const std::string text = smallCatchment::text();
    std::string crlf;
    for (const char character : text)
        crlf += character == '\n' ? std::string("  ; remark, \"quoted\"\r\n\r\n") : std::string(1, character);
    EXPECT_EQ(problemOf(crlf + "\x1A"), "");
    EXPECT_EQ(problemOf("; a remark first\n" + text), "");
    EXPECT_EQ(smallCatchment::parsed(smallCatchment::replaced(text, "sewage, Works", "SEWAGE, \"A; B\""))
                  .features[1]
                  .name,
              "A; B");
}

TEST(CatchmentParser, NamesTheLineAndWhatIsWrong) {
    struct Row {
        const char* old;
        const char* by;
        const char* problem;
    };
    const Row rows[] = {
        {"DEMONSTRATION RIVER DATA", "SOMETHING ELSE",
         "1: is not a data file of the demonstration engine: it must begin with \"DEMONSTRATION RIVER "
         "DATA\""},
        {"[RUN]\n", "", "2: stands before the first section"},
        {"[RUN]", "[RUNS]", "2: is not the name of a section"},
        {"title = Small River", "tittle = x",
         "3: the settings are title, shots, seed, spacing, mode and samples"},
        {"title = Small River", "title", "3: a setting must read: name = value"},
        {"title = Small River\n", "", "0: has no title in its section [RUN]"},
        {"shots = 200", "shots = 2.5", "4: the number of shots must lie between 20 and 5000"},
        {"shots = 200", "shots = 20.5", "4: the number of shots must be a whole number"},
        {"shots = 200", "shots = many", "4: the number of shots is not a number"},
        {"shots = 200", "shots = nan", "4: the number of shots is not a number"},
        {"spacing = 1", "spacing = 0.001", "5: the spacing must be 0 or at least 0.01"},
        {"1, Salt", "2, Salt", "7: determinands must be numbered 1, 2, 3 ... in this order"},
        {"Salt, mg/l, 1, 1", "Salt, mg/l, 1, 4", "7: the statistic must be 1, 2, 3 or 6"},
        {"1, 3, 0.5, 1, 50", "1, 3, 0.5, 60, 50", "8: the worst effluent is better than the best one"},
        {"2, BOD, mg/l", "2, , mg/l", "8: the determinand's name is empty"},
        {"2, BOD, mg/l", "2, B\"D, mg/l", "8: has 2 fields where 6 to 8 are wanted"},
        {"Upper, 4, 2", "Upper, 4, 7", "10: reach 1 runs into reach 7, which is not there"},
        {"Upper, 4, 2", "Upper, 4, 1", "10: reach 1 must stand before reach 1, into which it runs"},
        {"2, Lower", "1, Lower", "11: reach 1 is there twice"},
        {"Upper, 4, 2, 10, 0, 1, 1", "Upper, 4, 2, 10, 0, 0, 0",
         "10: reach 1 has no water: no head flow, and no reach runs into it"},
        {"Upper, 4, 2, 10, 0, 1, 1", "Upper, 4, 2, 10, 0, 9, 1", "10: flow set 9 is not there"},
        {"Upper, 4, 2, 10, 0, 1, 1", "Upper, 4, 2, 10, 0, 1, 9", "10: quality set 9 is not there"},
        {"1, Upper", "1, A name of 17 chars", "10: the reach's name has more than 16 characters"},
        {"1, 2, 5, sewage", "1, 2, 50, sewage", "13: lies beyond the end of reach 2"},
        {"1, 2, 5, sewage", "1, 3, 5, sewage", "13: reach 3 is not there"},
        {"1, 2, 5, sewage", "1, 2, 5, volcano",
         "13: the kind of feature must be station, stream, sewage, gauge, industry, abstraction, weir or "
         "overflow"},
        {"Works, 3, 3", "Works", "13: needs a flow set"},
        {"station, Bridge", "station, Bridge, 1", "15: takes no flow set"},
        {"2, 2, 6, abs", "1, 2, 6, abs", "14: feature 1 is there twice"},
        {"3, 10, 10, 0\n", "3, 10, 11, 0\n", "21: the low flow is above the mean"},
        {"3, 10, 10, 0\n", "3, 10, 0, 0\n", "21: the low flow is below a ten-thousandth of the mean"},
        {"3, 10, 10, 0\n", "2, 10, 10, 0\n", "21: repeats an earlier row"},
        {"3, 1, 30, 0\n", "3, 3, 30, 0\n", "26: the determinand must lie between 1 and 2"},
        {"1, 2, 9, 6", "1, 2, 5, 6", "31: the better class's limit is above the target"},
        {"Salt, mg/l, 1, 1, 0, 0, 0\n2, BOD, mg/l, 1", "Salt, mg/l, 1, 1, 0, 0, 0\n2, BOD, mg/l, 4",
         "31: a determinand of type 4 carries no targets"},
        {"4, 0, 50, 40", "44, 0, 50, 40", "0: observed values are given for feature 44, which is not there"},
        {"4, 0, 50, 40", "4, 0, 50", "34: has 3 fields where 4 are wanted"},
        {"spacing = 1", "spacing = 0.01\n[REACHES]\n9, Long, 9999, 1, 1, 0, 1, 1, 0, 0, 0",
         "0: makes more than 59999 plotting points: widen the spacing"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(problemOf(smallCatchment::replaced(smallCatchment::text(), row.old, row.by)), row.problem)
            << row.by;
}

TEST(CatchmentParser, RefusesAnEmptyFile) {
    EXPECT_NE(problemOf(""), "");
    EXPECT_NE(problemOf("\n\n"), "");
}

TEST(CatchmentParser, EndsWithACatchmentOrAnErrorOnAnyBytes) {
    const std::string good = smallCatchment::text();
    std::mt19937 random(1);
    const std::string spice = "\0\xFF\",;[]=\n\r-.e99"s;
    int refused = 0;
    for (int round = 0; round < 3000; ++round) {
        std::string text = good.substr(0, random() % 4 == 0 ? random() % good.size() : good.size());
        for (auto change = random() % 6; change > 0 && !text.empty(); --change)
            text[random() % text.size()] = spice[random() % spice.size()];
        refused += problemOf(text) != "";
    }
    EXPECT_GT(refused, 1000);
    EXPECT_LT(refused, 3000);
}

TEST(GapFills, ComeBackFromTheirText) {
    const Catchment catchment = smallCatchment::parsed(smallCatchment::text());
    const GapFills fills{{{{2, 0, 9}, -5.25, 1.5}}, {{{1, 1.5, 4}, 2, 0.125}}};
    const auto result = parseGapFills(gapFillsText(fills, "Small River"), catchment);
    const auto& back = std::get<GapFills>(result);
    ASSERT_EQ(back.flows.size(), 1u);
    EXPECT_EQ(back.flows[0].stretch.reach, 2);
    EXPECT_EQ(back.flows[0].stretch.to, 9);
    EXPECT_EQ(back.flows[0].mean, -5.25);
    EXPECT_EQ(back.flows[0].low, 1.5);
    ASSERT_EQ(back.qualities.size(), 1u);
    EXPECT_EQ(back.qualities[0].stretch.from, 1.5);
    EXPECT_EQ(back.qualities[0].determinand, 2);
    EXPECT_EQ(back.qualities[0].rate, 0.125);
}

TEST(GapFills, AreRefusedWhereTheyDoNotFitTheCatchment) {
    const Catchment catchment = smallCatchment::parsed(smallCatchment::text());
    const char* const bad[] = {
        "FLOW, 7, 0, 1, 1, 1",    "FLOW, 1, 0, 5, 1, 1",  "FLOW, 1, 3, 2, 1, 1",
        "QUALITY, 1, 0, 1, 3, 0", "OTHER, 1, 0, 1, 1, 1", "FLOW, 1",
        "FLOW, 1, 0, 1, inf, 1",  "FLOW, 1, 0, 1, 2, 3",  "FLOW, 1, 0, 1, 2, 0.000001"};
    for (const char* line : bad) {
        const auto result = parseGapFills(std::string("; remark\n") + line, catchment);
        ASSERT_TRUE(std::holds_alternative<DataError>(result)) << line;
        EXPECT_EQ(std::get<DataError>(result).line, 2) << line;
    }
}

} // namespace korvel
