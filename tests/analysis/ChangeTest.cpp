#include "analysis/Change.h"

#include "analysis/RiverSample.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

ChangeSummary summaryOf(const ResultsFileBuilder& base, const ResultsFileBuilder& run,
                        const std::vector<int>& places = {0}) {
    const SharedRun first = runOf(base), second = runOf(run);
    return RunChange(*first, *second).over(places, 1, Statistic::mean);
}

ChangeSummary summaryOf(const std::vector<PointSample>& base, const std::vector<PointSample>& run) {
    return summaryOf(oneReach(base), oneReach(run));
}

PointChange changeBetween(const PointSample& base, const PointSample& run) {
    const SharedRun first = runOf(oneReach({base})), second = runOf(oneReach({run}));
    return changeAt(seriesValues(first->results, 1, Statistic::mean), 1,
                    seriesValues(second->results, 1, Statistic::mean), 1);
}

} // namespace

TEST(PointChange, IsADifferenceAndItsShare) {
    const PointChange change = changeBetween({0, 4}, {0, 3});
    EXPECT_EQ(change.change, -1);
    EXPECT_EQ(change.percent, -25);
    EXPECT_EQ(changeBetween({0, 0}, {0, 3}).percent, std::nullopt);
    EXPECT_EQ(changeBetween({0, -2}, {0, -3}).percent, 50);
}

TEST(PointChange, IsClearWhereTheLimitsAreApart) {
    using enum ClearChange;
    const struct {
        PointSample base, run;
        std::optional<ClearChange> clear;
    } cases[] = {
        {{0, 2, 0, 1, 3}, {0, 5, 0, 3.5, 6}, rise},
        {{0, 2, 0, 1, 3}, {0, 5, 0, 3, 6}, unclear}, // they touch
        {{0, 2, 0, 1, 3}, {0, 5, 0, 6, 3.5}, rise},  // in any order
        {{0, 5, 0, 4, 6}, {0, 2, 0, 1, 3.9}, fall},
        {{0, 5, 0, 4, 6}, {0, 2, 0, 1, 4}, unclear},
        {{0, 2, 0, 1, 3}, {0, 2, 0, 1, 3}, unclear},
        {{0, 2}, {0, 5, 0, 4, 6}, std::nullopt},
        {{0, 2, 0, 1, 3}, {0, 9, 0, 4, 6}, std::nullopt}, // the value lies beside its limits
    };
    for (const auto& [base, run, clear] : cases)
        EXPECT_EQ(changeBetween(base, run).clear, clear) << base.value << ' ' << run.low << ' ' << run.high;
}

TEST(ReachChange, WeighsWithLengthByTrapezoids) {
    // Base: 1 km at (2+4)/2 and 3 km at (4+8)/2: (3 + 18) / 4. Run: all 6.
    const ChangeSummary summary = summaryOf({{0, 2}, {1, 4}, {4, 8}}, {{0, 6}, {1, 6}, {4, 6}});
    EXPECT_EQ(summary.baseMean, 5.25);
    EXPECT_EQ(summary.runMean, 6);
    EXPECT_EQ(summary.change, 0.75);
    EXPECT_EQ(summary.percent, 100 * 0.75 / 5.25);
    EXPECT_EQ(summary.points, 3);
}

TEST(ReachChange, PassesOverPointsWithoutAPartner) {
    // The base's point at 1 km has none: its interval runs from 0 to 4 km.
    const ChangeSummary summary = summaryOf({{0, 2}, {1, 100}, {4, 8}}, {{0, 1}, {2, 100}, {4, 3}});
    EXPECT_EQ(summary.baseMean, 5);
    EXPECT_EQ(summary.runMean, 2);
    EXPECT_EQ(summary.points, 2);
}

TEST(ReachChange, TakesPlainMeansWithoutLength) {
    const ChangeSummary summary =
        summaryOf({{3, 2, 0, 0, 0, 10, 0, "U/S Mill"}, {3, 4, 0, 0, 0, 10, 0, "D/S Mill"}},
                  {{3, 5, 0, 0, 0, 10, 0, "U/S Mill"}, {3, 9, 0, 0, 0, 10, 0, "D/S Mill"}});
    EXPECT_EQ(summary.baseMean, 3);
    EXPECT_EQ(summary.runMean, 7);
}

TEST(ReachChange, HasNoLengthWhereDistancesGoBack) {
    // 0 to 2 km counts, back to 1 km does not, 1 to 2 km counts.
    const ChangeSummary summary =
        summaryOf({{0, 1}, {2, 3}, {1, 9}, {2, 5}}, {{0, 0}, {2, 0}, {1, 0}, {2, 0}});
    EXPECT_EQ(summary.baseMean, (2 * 2 + 1 * 7) / 3.0);
}

TEST(ReachChange, TellsTheLargestRiseAndFallOfEqualsTheFirst) {
    const ChangeSummary summary =
        summaryOf({{0, 5}, {1, 5}, {2, 5}, {3, 5}, {4, 5}}, {{0, 6}, {1, 7}, {2, 7}, {3, 1}, {4, 1}});
    EXPECT_EQ(summary.largestRise->value, 2);
    EXPECT_EQ(summary.largestRise->point, 2);
    EXPECT_EQ(summary.largestFall->value, -4);
    EXPECT_EQ(summary.largestFall->point, 4);
}

TEST(ReachChange, HasNoLargestRiseWhereNothingRises) {
    const ChangeSummary summary = summaryOf({{0, 5}, {1, 5}}, {{0, 5}, {1, 4}});
    EXPECT_FALSE(summary.largestRise);
    EXPECT_TRUE(summary.largestFall);
}

TEST(ReachChange, TakesInterpolatedPointsAsTheLargestOnlyWhereThereAreNoOthers) {
    const int between = InterpolatedPointType;
    const ChangeSummary both =
        summaryOf({{0, 5}, {1, 5, 0, 0, 0, between}, {2, 5}}, {{0, 6}, {1, 9, 0, 0, 0, between}, {2, 5}});
    EXPECT_EQ(both.largestRise->point, 1);
    EXPECT_EQ(both.points, 3);
    EXPECT_EQ(both.runMean, (7.5 + 7) / 2); // means take them
    const ChangeSummary alone = summaryOf({{1, 5, 0, 0, 0, between}}, {{1, 9}});
    EXPECT_EQ(alone.largestRise->point, 1);
    // An ordinary point that falls leaves no room for one between that rises.
    const ChangeSummary falls = summaryOf({{0, 5}, {1, 5, 0, 0, 0, between}}, {{0, 4}, {1, 9}});
    EXPECT_FALSE(falls.largestRise);
}

TEST(ReachChange, CountsClearChanges) {
    const ChangeSummary summary =
        summaryOf({{0, 2, 0, 1, 3}, {1, 2, 0, 1, 3}, {2, 2, 0, 1, 3, InterpolatedPointType}, {3, 2}},
                  {{0, 5, 0, 4, 6}, {1, 2, 0, 1, 3}, {2, 0.5, 0, 0.4, 0.6}, {3, 9}});
    EXPECT_EQ(summary.clearRises, 1);
    EXPECT_EQ(summary.clearFalls, 1);
    EXPECT_EQ(summary.points, 4);
}

TEST(ReachChange, OfAReachWithoutMatchedPointsIsEmpty) {
    const ChangeSummary summary = summaryOf({{0, 5}}, {{1, 5}});
    EXPECT_EQ(summary.points, 0);
    EXPECT_EQ(summary.baseMean, std::nullopt);
    EXPECT_EQ(summary.change, std::nullopt);
    EXPECT_FALSE(summary.largestRise);
}

TEST(ReachChange, HasNoShareOfAMeanOf0) {
    const ChangeSummary summary = summaryOf({{0, 0}}, {{0, 5}});
    EXPECT_EQ(summary.change, 5);
    EXPECT_EQ(summary.percent, std::nullopt);
}

TEST(RiverChange, HasIntervalsWithinReachesOnly) {
    ResultsFileBuilder base = riverOf({{1, 10}, {2, 10}}), run = base;
    addPoints(base, 1, {{0, 1}, {2, 3}});
    addPoints(base, 2, {{4, 5}, {8, 7}});
    addPoints(run, 1, {{0, 2}, {2, 4}});
    addPoints(run, 2, {{4, 5}, {8, 9}});
    const ChangeSummary river = summaryOf(base, run, {0, 1});
    EXPECT_EQ(river.baseMean, (2 * 2 + 4 * 6) / 6.0);
    EXPECT_EQ(river.runMean, (2 * 3 + 4 * 7) / 6.0);
    EXPECT_EQ(river.largestRise->point, 4);
    EXPECT_EQ(river.points, 4);
}

TEST(RunChange, CountsPointsWithoutAPartner) {
    ResultsFileBuilder base = riverOf({{1, 10}, {2, 10}}), run = base;
    addPoints(base, 1, {{0, 1}, {2, 3}, {3, 3, 0, 0, 0, InterpolatedPointType}});
    addPoints(base, 2, {{4, 5}});
    addPoints(base, 7, {{4, 5}}); // no line, not counted
    addPoints(run, 1, {{0, 2}});
    addPoints(run, 2, {{4, 5}, {5, 5}});
    const SharedRun first = runOf(base), second = runOf(run);
    const RunChange change(*first, *second);
    EXPECT_EQ(change.onlyInBase({}), 2);
    EXPECT_EQ(change.onlyInRun({}), 1);
    EXPECT_EQ(change.onlyInBase(ReachChoice({2})), 0);
    EXPECT_EQ(change.onlyInRun(ReachChoice({2})), 1);
}

} // namespace korvel
