#include "fakes/StudySample.h"
#include "study/SeriesValues.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

std::vector<int> pointsOf(const SharedRun& run, int reach) {
    const auto points = run->reaches.pointsOf(run->reaches.placeOf(reach));
    return {points.begin(), points.end()};
}

} // namespace

TEST(ReachPoints, GatherThePointsOfAReachWhereverTheyStand) {
    const SharedRun run = runOf(ResultsFileBuilder()
                                    .determinand(1, "BOD")
                                    .reach(4, "A")
                                    .reach(2, "B")
                                    .reach(9, "Empty")
                                    .point(2, 0, "P1")
                                    .point(4, 0, "P2")
                                    .point(7, 0, "P3")
                                    .point(2, 1, "P4"));
    EXPECT_EQ(run->reaches.numbers(), (std::vector<int>{4, 2, 9}));
    EXPECT_EQ(pointsOf(run, 4), (std::vector<int>{2}));
    EXPECT_EQ(pointsOf(run, 2), (std::vector<int>{1, 4}));
    EXPECT_EQ(pointsOf(run, 9), (std::vector<int>{}));
    EXPECT_EQ(run->reaches.placeOf(7), -1);
    EXPECT_EQ(run->reaches.placeOf(0), -1);
    EXPECT_EQ(run->reaches.placeOf(50000), -1);
}

TEST(ReachPoints, KnowReach0WhereItHasALine) {
    const SharedRun run =
        runOf(ResultsFileBuilder().determinand(1, "BOD").reach(3, "A").reach(0, "Zero").point(0, 0, "P1"));
    EXPECT_EQ(run->reaches.placeOf(0), 1);
    EXPECT_EQ(pointsOf(run, 0), (std::vector<int>{1}));
}

TEST(SeriesValues, TakeEachStatisticFromItsPlace) {
    using enum ValueField;
    const auto value = [](ValueField field, int series, int level = 0) {
        return ResultsFileBuilder::value(1, field, series, level);
    };
    const SharedRun run = runOf(ResultsFileBuilder().determinand(1, "BOD").reach(1, "A").point(1, 0, "P"));
    const SeriesValues mean = seriesValues(run->results, 1, Statistic::mean);
    EXPECT_EQ(mean.value[1], value(meanValue, 1));
    EXPECT_EQ(mean.limit1[1], value(meanLimit1, 1));
    EXPECT_EQ(mean.limit2[1], value(meanLimit2, 1));
    EXPECT_EQ(mean.observed[1], value(observedMean, 1));
    const Statistic percentiles[] = {Statistic::p90, Statistic::p95, Statistic::p99};
    for (int level : {0, 1, 2}) {
        const SeriesValues values = seriesValues(run->results, 2, percentiles[level]);
        EXPECT_EQ(values.value[1], value(percentileValues, 2, level));
        EXPECT_EQ(values.limit1[1], value(percentileLimit1, 2, level));
        EXPECT_EQ(values.limit2[1], value(percentileLimit2, 2, level));
        EXPECT_EQ(values.observed[1], value(observedPercentiles, 2, level));
    }
}

TEST(SeriesValues, OfFlowHaveNoLimitsAndNoTarget) {
    const SharedRun run = runOf(ResultsFileBuilder().determinand(1, "BOD").reach(1, "A").point(1, 0, "P"));
    const SeriesValues flow = seriesValues(run->results, 0, Statistic::p95);
    EXPECT_EQ(flow.value[1], ResultsFileBuilder::value(1, ValueField::percentileValues, 0, 1));
    EXPECT_FALSE(flow.hasLimits());
    EXPECT_FALSE(flow.isBounded(1));
    EXPECT_FALSE(flow.hasTarget(1));
}

TEST(SeriesValues, AreBoundedByTwoLimitsInAnyOrder) {
    const struct {
        double limit1, value, limit2;
        bool bounded;
    } cases[] = {{1, 2, 3, true},  {3, 2, 1, true},  {1, 1, 3, true},  {1, 3, 3, true},
                 {2, 2, 2, false}, {0, 0, 0, false}, {1, 4, 3, false}, {1, 0.5, 3, false}};
    for (const auto& [limit1, value, limit2, bounded] : cases) {
        const SharedRun run = runOf(ResultsFileBuilder()
                                        .determinand(1, "BOD")
                                        .reach(1, "A")
                                        .point(1, 0, "P")
                                        .set(ValueField::meanLimit1, 1, limit1)
                                        .set(ValueField::meanValue, 1, value)
                                        .set(ValueField::meanLimit2, 1, limit2));
        const SeriesValues mean = seriesValues(run->results, 1, Statistic::mean);
        EXPECT_EQ(mean.isBounded(1), bounded) << limit1 << ' ' << value << ' ' << limit2;
        EXPECT_EQ(mean.low(1), std::min(limit1, limit2));
        EXPECT_EQ(mean.high(1), std::max(limit1, limit2));
    }
}

} // namespace korvel
