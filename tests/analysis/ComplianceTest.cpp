#include "analysis/Compliance.h"

#include "analysis/RiverSample.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

const int between = InterpolatedPointType;

ReachCompliance judged(const std::vector<PointSample>& points, BadSide side = BadSide::high) {
    const SharedRun run = runOf(oneReach(points));
    return judgeReach(*run, 0, {1, Statistic::mean, side});
}

std::optional<bool> deteriorated(const std::vector<PointSample>& base, const std::vector<PointSample>& run,
                                 BadSide side = BadSide::high, double percent = DefaultDeterioration) {
    const SharedRun first = runOf(oneReach(base)), second = runOf(oneReach(run));
    return hasDeteriorated(*first, *second, matchPoints(*first, *second), 0, {1, Statistic::mean, side},
                           percent);
}

} // namespace

TEST(FailingLength, RunsStraightToTheCrossing) {
    const struct {
        double from, to, share;
    } cases[] = {{5, 6, 1}, {1, 2, 0},   {6, 2, 0.5},  {2, 6, 0.5}, {4, 8, 1},
                 {8, 4, 1}, {3, 5, 0.5}, {1, 5, 0.25}, {4, 4, 0},   {4, 2, 0}};
    for (const auto& [from, to, share] : cases) {
        EXPECT_EQ(shareBeyond(from, to, 4, BadSide::high), share) << from << ' ' << to;
        EXPECT_EQ(shareBeyond(8 - from, 8 - to, 4, BadSide::low), share) << from << ' ' << to; // mirrored
    }
}

TEST(ReachCompliance, JudgesIntervalsByTheirUpperPointsTarget) {
    // 0-2 km: target 4, from 6 to 2: half fails, 1 km. 2-5 km: no target. 5-7 km: target 1, all of it fails.
    const ReachCompliance reach = judged({{0, 6, 4}, {2, 2, 0}, {5, 3, 1}, {7, 3, 9}});
    EXPECT_EQ(reach.sums.judgedLength, 4);
    EXPECT_EQ(reach.sums.failingLength, 3);
    EXPECT_EQ(reach.sums.judgedPoints, 3);
    EXPECT_EQ(reach.sums.failingPoints, 2);
}

TEST(ReachCompliance, TakesInterpolatedPointsForLengthsOnly) {
    const ReachCompliance reach = judged({{0, 2, 4}, {1, 8, 4, 0, 0, between}, {2, 2, 4}});
    EXPECT_EQ(reach.sums.judgedLength, 2);
    EXPECT_NEAR(reach.sums.failingLength, 4 / 3.0, 1e-12); // 4 of 6 up and 4 of 6 down
    EXPECT_EQ(reach.sums.judgedPoints, 2);
    EXPECT_EQ(reach.verdict, Verdict::pass);
    EXPECT_EQ(reach.worst->point, 1);
}

TEST(ReachCompliance, TellsTheWorstPointOfEqualsTheFirst) {
    const ReachCompliance reach = judged({{0, 2, 4}, {1, 6, 4}, {2, 3, 2}, {3, 12, 16}});
    EXPECT_EQ(reach.worst->point, 2);
    EXPECT_EQ(reach.worst->judgement.ratio, 1.5);
    const ReachCompliance low = judged({{0, 4, 8}, {1, 0, 8}, {2, -1, 8}}, BadSide::low);
    EXPECT_EQ(low.worst->point, 2); // without a ratio
    EXPECT_EQ(low.worst->judgement.ratio, std::nullopt);
}

TEST(ReachCompliance, GivesVerdictsWithAndWithoutConfidence) {
    using enum Verdict;
    const PointSample fails{0, 5, 4}, surelyFails{0, 5, 4, 4.5, 6}, failsUnsure{0, 5, 4, 3, 6},
        passes{0, 3, 4}, surelyPasses{0, 3, 4, 2, 3.5}, passesUnsure{0, 3, 4, 2, 5}, without{0, 5, 0, 4, 6};
    const struct {
        std::vector<PointSample> points;
        Verdict verdict, confident;
    } cases[] = {
        {{}, none, none},
        {{without}, none, none},
        {{fails}, fail, none},
        {{passes}, pass, none},
        {{passes, without}, pass, none},
        {{surelyFails, passes}, fail, fail},
        {{failsUnsure, surelyFails, surelyPasses}, fail, fail},
        {{failsUnsure}, fail, unsure},
        {{surelyPasses, surelyPasses}, pass, pass},
        {{surelyPasses, passes}, pass, unsure}, // one is not bounded
        {{surelyPasses, passesUnsure}, pass, unsure},
        {{fails, surelyPasses}, fail, unsure},
    };
    for (const auto& [points, verdict, confident] : cases) {
        const ReachCompliance reach = judged(points);
        EXPECT_EQ(nameOf(reach.verdict), nameOf(verdict)) << points.size();
        EXPECT_EQ(nameOf(reach.confident), nameOf(confident)) << points.size();
    }
}

TEST(ReachCompliance, CountsHowSureItsPointsAre) {
    const ReachCompliance reach =
        judged({{0, 5, 4, 4.5, 6}, {1, 5, 4, 3, 6}, {2, 3, 4, 2, 5}, {3, 3, 4, 2, 4}, {4, 3, 4}});
    EXPECT_EQ(reach.sums.sureFails, 1);
    EXPECT_EQ(reach.sums.surePasses, 1);
    EXPECT_EQ(reach.sums.unsure, 2);
    EXPECT_EQ(reach.sums.judgedPoints, 5);
    EXPECT_EQ(reach.sums.failingPoints, 2);
}

TEST(ReachCompliance, TellsWhatIsNeededAndWhatRoomThereIs) {
    using Number = std::optional<double>;
    const auto expect = [](const ReachCompliance& reach, Number needed, Number headroom) {
        EXPECT_EQ(reach.needed, needed);
        EXPECT_EQ(reach.headroom, headroom);
    };
    expect(judged({{0, 5, 4}, {1, 1, 4}}), 20, 0);
    expect(judged({{0, 2, 4}}), 0, 100);
    expect(judged({{0, 4, 4}}), 0, 0);
    expect(judged({{0, 0, 4}}), 0, std::nullopt);
    expect(judged({{0, 5, 0}}), std::nullopt, std::nullopt);
    expect(judged({{0, 5, 8}}, BadSide::low), 60, 0);
    expect(judged({{0, 10, 8}}, BadSide::low), 0, 20);
    expect(judged({{0, 0, 8}, {1, 9, 8}}, BadSide::low), std::nullopt, std::nullopt);
}

TEST(ComplianceSums, AddUp) {
    ComplianceSums sums{1, 2, 3, 4, 5, 6, 7};
    sums += {10, 20, 30, 40, 50, 60, 70};
    EXPECT_EQ(sums.judgedLength, 11);
    EXPECT_EQ(sums.failingLength, 22);
    EXPECT_EQ(sums.judgedPoints, 33);
    EXPECT_EQ(sums.failingPoints, 44);
    EXPECT_EQ(sums.sureFails, 55);
    EXPECT_EQ(sums.surePasses, 66);
    EXPECT_EQ(sums.unsure, 77);
}

TEST(OverallVerdict, IsOneOutAllOut) {
    using enum Verdict;
    const struct {
        std::vector<DeterminandVerdict> verdicts;
        Verdict verdict, confident;
        std::vector<int> failing;
    } cases[] = {
        {{}, none, none, {}},
        {{{1, none, none}}, none, none, {}},
        {{{1, pass, pass}, {2, none, none}}, pass, pass, {}},
        {{{1, pass, pass}, {2, pass, none}}, pass, unsure, {}},
        {{{1, pass, unsure}, {2, pass, pass}}, pass, unsure, {}},
        {{{1, pass, pass}, {2, fail, unsure}}, fail, unsure, {2}},
        {{{1, fail, fail}, {2, fail, none}, {3, pass, unsure}}, fail, fail, {1, 2}},
    };
    for (const auto& [verdicts, verdict, confident, failing] : cases) {
        const OverallVerdict overall = overallVerdict(verdicts);
        EXPECT_EQ(overall.verdict, verdict);
        EXPECT_EQ(overall.confident, confident);
        EXPECT_EQ(overall.failing, failing);
    }
}

TEST(ComplianceChange, IsToldInWords) {
    using enum Verdict;
    const auto words = [](Verdict before, Verdict after) {
        return ComplianceChange{before, after, 0, {}}.words();
    };
    EXPECT_EQ(words(fail, pass), "fail to pass");
    EXPECT_EQ(words(pass, fail), "pass to fail");
    EXPECT_EQ(words(fail, fail), "same");
    EXPECT_EQ(words(none, none), "same");
    EXPECT_EQ(words(none, fail), "none to fail");
    EXPECT_EQ(words(pass, none), "pass to none");
}

TEST(Deterioration, IsMoreThanATenthOfTheBaseAtAJudgedPoint) {
    EXPECT_EQ(deteriorated({{0, 10}}, {{0, 11, 4}}), false); // exactly a tenth
    EXPECT_EQ(deteriorated({{0, 10}}, {{0, 11.5, 4}}), true);
    EXPECT_EQ(deteriorated({{0, 10}, {1, 10}}, {{0, 5, 4}, {1, 12, 4}}), true);
    EXPECT_EQ(deteriorated({{0, 10}}, {{0, 12, 0}}), std::nullopt); // not judged
    EXPECT_EQ(deteriorated({{0, 10}}, {{1, 12, 4}}), std::nullopt); // no partner
    EXPECT_EQ(deteriorated({{0, 0}}, {{0, 12, 4}}), false);
    EXPECT_EQ(deteriorated({{0, -1}}, {{0, 12, 4}}), false);
    EXPECT_EQ(deteriorated({{0, 10}}, {{0, 11.5, 4}}, BadSide::high, 20), false);
    EXPECT_EQ(deteriorated({{0, 10}}, {{0, 10.1, 4}}, BadSide::high, 0), true);
    EXPECT_EQ(deteriorated({{0, 10}}, {{0, 8.5, 4}}, BadSide::low), true);
    EXPECT_EQ(deteriorated({{0, 10}}, {{0, 12, 4}}, BadSide::low), false);
    // Only points that count, by the run's types.
    EXPECT_EQ(deteriorated({{0, 10}, {1, 10}}, {{0, 10, 4}, {1, 20, 4, 0, 0, between}}), false);
    EXPECT_EQ(deteriorated({{0, 10, 0, 0, 0, between}}, {{0, 20, 4}}), true);
}

TEST(Stations, SetTheSamplesVerdictBesideTheModels) {
    const SharedRun run = runOf(oneReach({{0, 3, 4, 0, 0, 1, 2},   // both pass
                                          {1, 5, 4, 0, 0, 1, 6},   // both fail
                                          {2, 5, 4, 0, 0, 1, 3},   // the model alone
                                          {3, 3, 4, 0, 0, 1, 4.5}, // the samples alone
                                          {4, 3, 4, 0, 0, 1, 0},   // not observed
                                          {5, 3, 0, 0, 0, 1, 9},   // no target
                                          {6, 3, 4, 0, 0, between, 9}}));
    const auto stations = judgeStations(*run, 0, {1, Statistic::mean, BadSide::high});
    ASSERT_EQ(stations.size(), 4u);
    StationAgreement agreement;
    for (const StationJudgement& station : stations)
        agreement.take(station);
    EXPECT_EQ(agreement.pass, 1);
    EXPECT_EQ(agreement.fail, 1);
    EXPECT_EQ(agreement.modelOnly, 1);
    EXPECT_EQ(agreement.observedOnly, 1);
    EXPECT_EQ(stations[3].observed, 4.5);
    EXPECT_EQ(stations[3].point, 4);
}

} // namespace korvel
