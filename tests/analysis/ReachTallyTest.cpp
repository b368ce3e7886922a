#include "analysis/ReachTally.h"

#include "analysis/RiverSample.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

// Reaches 1, 2 and so on, each with one point: value, target, limits.
SharedRun riverWith(const std::vector<PointSample>& points, const std::string& determinand = "BOD") {
    std::vector<std::pair<int, double>> reaches;
    for (std::size_t k = 0; k < points.size(); ++k)
        reaches.emplace_back(static_cast<int>(k) + 1, 5.0);
    ResultsFileBuilder file = riverOf(reaches, 1, determinand);
    for (std::size_t k = 0; k < points.size(); ++k)
        addPoints(file, static_cast<int>(k) + 1, {points[k]});
    return runOf(file);
}

const PointSample surelyFails{0, 6, 4, 5, 7}, failsUnsure{0, 6, 4, 3, 7}, surelyPasses{0, 3, 4, 2, 3.5},
    passesUnsure{0, 3, 4, 2, 5}, hasNoTarget{0, 3, 0, 2, 5};

} // namespace

TEST(RunVerdict, CountsReachesThatMissATarget) {
    const RunVerdict verdict =
        verdictOf(riverWith({surelyFails, failsUnsure, surelyPasses, passesUnsure, hasNoTarget}));
    EXPECT_EQ(verdict.brief, "2 of 4 reaches miss a target");
    EXPECT_EQ(verdict.words, "2 of 4 reaches miss at least one target, 1 of them for sure; 1 pass for sure, "
                             "1 pass but unsure.");
}

TEST(RunVerdict, SaysThatAllMeetTheirs) {
    const RunVerdict verdict = verdictOf(riverWith({surelyPasses, surelyPasses}));
    EXPECT_EQ(verdict.brief, "All of 2 reaches meet their targets");
    EXPECT_EQ(verdict.words, "All of 2 reaches meet their targets; 2 pass for sure.");
}

TEST(RunVerdict, CountsOneAsOne) {
    EXPECT_EQ(verdictOf(riverWith({surelyPasses})).brief, "The one reach judged meets its targets");
    EXPECT_EQ(verdictOf(riverWith({surelyFails, surelyPasses})).brief, "1 of 2 reaches misses a target");
}

TEST(RunVerdict, SaysThatThereIsNothingToJudgeBy) {
    const RunVerdict verdict = verdictOf(riverWith({hasNoTarget}));
    EXPECT_EQ(verdict.brief, "No targets to judge by");
    EXPECT_EQ(verdict.words, "Nothing is judged: there are no targets.");
}

TEST(RunVerdict, NamesWhatItTookAsBadWhenLow) {
    const RunVerdict verdict = verdictOf(riverWith({surelyPasses}, "Dissolved oxygen"));
    EXPECT_EQ(verdict.brief, "The one reach judged misses a target");
    EXPECT_TRUE(verdict.words.ends_with(" Bad when low: Dissolved oxygen.")) << verdict.words;
}

} // namespace korvel
