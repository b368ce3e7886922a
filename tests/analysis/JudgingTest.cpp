#include "analysis/Judging.h"

#include "analysis/RiverSample.h"

#include <gtest/gtest.h>

namespace korvel {

TEST(BadSide, IsLowForOxygenButNotForItsDemand) {
    for (const char* name : {"DO", "do", "DO (mg/l)", "D.O.", "d.o. sat", "Diss. DO", "Dissolved Oxygen",
                             "OXYGEN", "DO-sat", "x DO.", "Oxygen demand DO", "(D.O.)"})
        EXPECT_TRUE(isLowBadByName(name)) << name;
    for (const char* name : {"BOD", "DOC", "Ado", "DO2", "1DO", "Biochemical Oxygen Demand", "oxygen demand",
                             "d.o", "D.O.C", "Phosphate", "", "DO\xC3\xA9"})
        EXPECT_FALSE(isLowBadByName(name)) << name;
}

TEST(JudgedStatistic, FollowsTheDeterminandsCode) {
    using enum Statistic;
    const struct {
        int code, mode;
        Statistic statistic;
    } cases[] = {{1, 0, mean}, {2, 3, p95}, {3, 0, p90}, {6, 0, p99}, {0, 0, p95},
                 {4, 2, p90},  {9, 3, p99}, {7, 1, p95}, {5, 8, p95}};
    for (const auto& [code, mode, statistic] : cases) {
        const SharedRun run = runOf(riverOf({{1, 10}}, code).mode(mode));
        EXPECT_EQ(judgedStatistic(run->results, 1), statistic) << code << ' ' << mode;
    }
}

TEST(JudgedDeterminands, AreThoseOfOtherTypesThan4) {
    const SharedRun run = runOf(ResultsFileBuilder()
                                    .determinand(1, "BOD", 3)
                                    .determinand(4, "Temperature", 1)
                                    .determinand(2, "DO", 1));
    EXPECT_EQ(lowBadByName(run->results), (std::set<int>{3}));
    const auto judged = judgedDeterminands(run->results, {3});
    ASSERT_EQ(judged.size(), 2u);
    EXPECT_EQ(judged[0].number, 1);
    EXPECT_EQ(judged[0].statistic, Statistic::p90);
    EXPECT_EQ(judged[0].side, BadSide::high);
    EXPECT_EQ(judged[1].number, 3);
    EXPECT_EQ(judged[1].side, BadSide::low);
}

TEST(PointJudgement, WeighsValueAndLimitsByTheTarget) {
    using enum Sureness;
    using enum BadSide;
    const struct {
        PointSample point; // distance, value, target, low, high
        BadSide side;
        bool fails;
        std::optional<Sureness> sure;
        std::optional<double> ratio;
    } cases[] = {
        {{0, 5, 4, 4.5, 6}, high, true, fail, 1.25},
        {{0, 5, 4, 4, 6}, high, true, unsure, 1.25}, // the lower limit is the target itself
        {{0, 4, 4, 3, 6}, high, false, unsure, 1},
        {{0, 2, 4, 1, 4}, high, false, pass, 0.5},
        {{0, 2, 4, 1, 4.1}, high, false, unsure, 0.5},
        {{0, 5, 4, 0, 0}, high, true, std::nullopt, 1.25},
        {{0, -1, 4, 0, 0}, high, false, std::nullopt, -0.25},
        {{0, 5, 8, 4, 7}, low, true, fail, 1.6},
        {{0, 5, 8, 4, 8}, low, true, unsure, 1.6},
        {{0, 8, 8, 7, 9}, low, false, unsure, 1},
        {{0, 10, 8, 8, 12}, low, false, pass, 0.8},
        {{0, 0, 8, 0, 0}, low, true, std::nullopt, std::nullopt},
    };
    for (const auto& [point, side, fails, sure, ratio] : cases) {
        const SharedRun run = runOf(oneReach({point}));
        const PointJudgement judgement = judgePoint(seriesValues(run->results, 1, Statistic::mean), 1, side);
        EXPECT_EQ(judgement.fails, fails) << point.value << ' ' << point.target;
        EXPECT_EQ(judgement.sure, sure) << point.value << ' ' << point.target << ' ' << point.high;
        EXPECT_EQ(judgement.ratio, ratio) << point.value << ' ' << point.target;
    }
}

TEST(PointJudgement, RanksNoRatioWorst) {
    PointJudgement none, half, two;
    half.ratio = 0.5;
    two.ratio = 2;
    EXPECT_TRUE(none.isWorseThan(two));
    EXPECT_FALSE(two.isWorseThan(none));
    EXPECT_TRUE(two.isWorseThan(half));
    EXPECT_FALSE(two.isWorseThan(two));
    EXPECT_FALSE(none.isWorseThan(none));
}

TEST(JudgedPoints, LeaveInterpolatedOnesOutWhereThereIsAnother) {
    const int between = InterpolatedPointType;
    const auto judged = [](const std::vector<PointSample>& points) {
        const SharedRun run = runOf(oneReach(points));
        return judgedPointsOf(*run, 0, seriesValues(run->results, 1, Statistic::mean));
    };
    using Points = std::vector<int>;
    EXPECT_EQ(judged({{0, 1, 2}, {1, 1, 2, 0, 0, between}, {2, 1, -2}, {3, 1, 2}}), (Points{1, 4}));
    EXPECT_EQ(judged({{0, 1, 0}, {1, 1, 2, 0, 0, between}, {2, 1, 2, 0, 0, between}}), (Points{2, 3}));
    EXPECT_EQ(judged({{0, 1, 0}}), Points{});
}

} // namespace korvel
