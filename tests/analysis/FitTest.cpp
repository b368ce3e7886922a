#include "analysis/Fit.h"

#include "analysis/RiverSample.h"

#include <gtest/gtest.h>

#include <cmath>

namespace korvel {

namespace {

FitFigures figuresOf(const std::vector<std::pair<double, double>>& valuesAndObserved) {
    std::vector<ObservedPoint> points;
    for (const auto& [value, observed] : valuesAndObserved)
        points.push_back({value, observed, 0, false, false});
    return fitOf(points);
}

} // namespace

TEST(Fit, GivesTheFiguresOfThreeStations) {
    // Errors 1, -1, 3 on observed 2, 4, 6 (mean 4, squares about it 4 + 0 + 4).
    const FitFigures fit = figuresOf({{3, 2}, {3, 4}, {9, 6}});
    EXPECT_EQ(fit.n, 3);
    EXPECT_EQ(fit.meanError, 1);
    EXPECT_EQ(fit.percentBias, 25);
    EXPECT_NEAR(fit.meanAbsoluteError, 5 / 3.0, 1e-15);
    EXPECT_NEAR(fit.rootMeanSquareError, std::sqrt(11 / 3.0), 1e-15);
    EXPECT_EQ(fit.efficiency, 1 - 11 / 8.0);
    // Values about their mean 5: -2, -2, 4 (squares 24); products with -2, 0, 2: 4 + 0 + 8.
    EXPECT_EQ(fit.rSquared, 144 / (24 * 8.0));
    const double logs = std::pow(std::log(1.5), 2) + std::pow(std::log(0.75), 2) + std::pow(std::log(1.5), 2);
    EXPECT_NEAR(*fit.typicalFactor, std::exp(std::sqrt(logs / 3)), 1e-15);
}

TEST(Fit, LeavesOutWhatHasNoMeaning) {
    const FitFigures one = figuresOf({{3, 2}});
    EXPECT_EQ(one.percentBias, 50);
    EXPECT_EQ(one.efficiency, std::nullopt);
    EXPECT_EQ(one.rSquared, std::nullopt);
    EXPECT_NEAR(*one.typicalFactor, 1.5, 1e-15);
    const FitFigures sameObserved = figuresOf({{3, 2}, {4, 2}});
    EXPECT_EQ(sameObserved.efficiency, std::nullopt);
    EXPECT_EQ(sameObserved.rSquared, std::nullopt);
    const FitFigures sameValues = figuresOf({{3, 2}, {3, 4}});
    EXPECT_EQ(sameValues.efficiency, 0);
    EXPECT_EQ(sameValues.rSquared, std::nullopt);
    const FitFigures noSum = figuresOf({{3, -2}, {-1, 2}});
    EXPECT_EQ(noSum.percentBias, std::nullopt);
    EXPECT_EQ(noSum.typicalFactor, std::nullopt);
    EXPECT_EQ(figuresOf({{0, 2}, {4, 2}}).typicalFactor, std::exp(std::log(2.0)));
    EXPECT_EQ(figuresOf({}).n, 0);
}

TEST(Fit, CountsSamplesWithinTheLimits) {
    const SharedRun run = runOf(oneReach({{0, 3, 0, 2, 4, 1, 4},
                                          {1, 3, 0, 2, 4, 1, 5},
                                          {2, 3, 0, 0, 0, 1, 3}, // not bounded
                                          {3, 3, 0, 4, 2, 1, 2}}));
    const FitFigures fit =
        fitOf(observedPoints(*run, ordinaryPointsOf(*run, std::vector<int>{0}), 1, Statistic::mean));
    EXPECT_EQ(fit.n, 4);
    EXPECT_EQ(fit.bounded, 3);
    EXPECT_EQ(fit.withinLimits, 2);
}

TEST(Fit, TakesObservedPointsOfReachesWithALine) {
    ResultsFileBuilder file = riverOf({{1, 10}, {2, 10}});
    addPoints(file, 1, {{0, 3, 0, 0, 0, 1, 2}, {1, 3}, {2, 3, 0, 0, 0, InterpolatedPointType, 2}});
    addPoints(file, 2, {{0, 3, 0, 0, 0, 1, -2}});
    addPoints(file, 9, {{0, 3, 0, 0, 0, 1, 2}});
    const SharedRun run = runOf(file);
    EXPECT_EQ(observedPoints(*run, ordinaryPointsOf(*run, std::vector<int>{0, 1}), 1, Statistic::mean).size(),
              2u);
    EXPECT_EQ(
        observedPoints(*run, ordinaryPointsOf(*run, std::vector<int>{1}), 1, Statistic::mean)[0].observed,
        -2);
    EXPECT_TRUE(
        observedPoints(*run, ordinaryPointsOf(*run, std::vector<int>{0, 1}), 1, Statistic::p95).empty());
}

TEST(FitErrors, PutTheWorstFirstAndEqualOnesInFileOrder) {
    const SharedRun run = runOf(oneReach({{0, 3, 0, 0, 0, 1, 2},    // +50 %
                                          {1, 1, 0, 0, 0, 1, 4},    // -75 %
                                          {2, 2, 0, 0, 0, 1, 4},    // -50 %
                                          {3, 1, 0, 0, 0, 1, 1}})); // 0
    const auto errors = fitErrors(*run, {}, {1}, {Statistic::mean});
    ASSERT_EQ(errors.size(), 4u);
    const int order[] = {2, 1, 3, 4};
    for (std::size_t k = 0; k < 4; ++k)
        EXPECT_EQ(errors[k].point, order[k]);
    EXPECT_EQ(errors[0].percent, -75);
    EXPECT_EQ(errors[0].error, -3);
    EXPECT_TRUE(fitErrors(*run, ReachChoice({7}), {1}, {Statistic::mean}).empty());
}

TEST(FitErrors, OrderEqualOnesByPointThenSeriesThenStatistic) {
    using enum ValueField;
    ResultsFileBuilder file = oneReach({{0, 2, 0, 0, 0, 1, 1}, {1, 2, 0, 0, 0, 1, 1}});
    file.set(meanValue, 0, 4)
        .set(observedMean, 0, 2)
        .set(percentileValues, 0, 6, 0)
        .set(observedPercentiles, 0, 3, 0);
    const SharedRun run = runOf(file);
    const auto errors = fitErrors(*run, {}, {0, 1}, {Statistic::mean, Statistic::p90});
    ASSERT_EQ(errors.size(), 4u);
    EXPECT_EQ(errors[0].point, 1);
    EXPECT_EQ(errors[1].series, 0);
    EXPECT_EQ(errors[1].statistic, Statistic::mean);
    EXPECT_EQ(errors[2].statistic, Statistic::p90);
    EXPECT_EQ(errors[3].series, 1);
}

} // namespace korvel
