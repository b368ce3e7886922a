#include "engine/MonteCarlo.h"

#include "engine/ExactFunctions.h"
#include "engine/Percentiles.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace korvel {

using namespace engine;

namespace {

double correlationOf(const Shots& a, const Shots& b) {
    const double meanA = meanOf(a), meanB = meanOf(b);
    double both = 0, ownA = 0, ownB = 0;
    for (std::size_t i = 0; i < a.size(); ++i) {
        both += (a[i] - meanA) * (b[i] - meanB);
        ownA += (a[i] - meanA) * (a[i] - meanA);
        ownB += (b[i] - meanB) * (b[i] - meanB);
    }
    return both / std::sqrt(ownA * ownB);
}

Shots sorted(Shots values) {
    std::sort(values.begin(), values.end());
    return values;
}

} // namespace

TEST(ExactFunctions, AgreeWithTheMachinesOwn) {
    for (double x = -60; x <= 60; x += 0.37)
        EXPECT_NEAR(exponential(x) / std::exp(x), 1, 2e-15) << x;
    for (double x = 1e-9; x < 1e12; x *= 1.7) {
        const double expected = std::log(x);
        EXPECT_NEAR(naturalLog(x), expected, 2e-15 * std::max(1.0, std::abs(expected))) << x;
    }
    EXPECT_EQ(naturalLog(1), 0);
    EXPECT_EQ(exponential(0), 1);
    EXPECT_EQ(exponential(-1000), 0);
    EXPECT_NEAR(power(17.5, 0.35), std::pow(17.5, 0.35), 1e-14);
    EXPECT_EQ(power(0, 0.35), 0);
}

TEST(ExactFunctions, GiveTheNormalQuantile) {
    // The normal distribution at the quantile is the probability again, far into both tails.
    for (double p = 1e-12; p < 0.5; p *= 1.9) {
        EXPECT_NEAR(std::erfc(-normalQuantile(p) / std::sqrt(2)) / 2 / p, 1, 1e-11) << p;
    }
    for (double p = 1e-6; p < 0.5; p *= 1.9) {
        EXPECT_NEAR(normalQuantile(1 - p), -normalQuantile(p), 1e-8) << p;
    }
    EXPECT_NEAR(normalQuantile(0.95), 1.6448536269514722, 1e-15);
    EXPECT_EQ(normalQuantile(0.5), 0);
}

TEST(MonteCarlo, DrawsFlowsWithTheMeanAndLowFlowAskedFor) {
    Settings settings;
    settings.shots = 2000;
    const Shots flow = MonteCarlo(settings).flow({20, 3, 0.9}, {Source::head, 1});
    EXPECT_NEAR(meanOf(flow), 20, 0.5);
    EXPECT_NEAR(percentileOf(sorted(flow), 0.05), 3, 0.1);
}

TEST(MonteCarlo, DrawsQualitiesWithTheMeanAndDeviationAskedFor) {
    Settings settings;
    settings.shots = 2000;
    Catchment catchment;
    catchment.determinands.resize(1);
    catchment.determinands[0].number = 1;
    catchment.flows[1] = {10, 2, 0.9};
    catchment.qualities[{1, 1}] = {5, 3, -0.6};
    const Water water = MonteCarlo(settings).water(catchment, 1, 1, {Source::head, 1});
    const Summary summary = summarise(water.quality[0], 36);
    EXPECT_NEAR(summary.mean, 5, 0.1);
    EXPECT_NEAR(summary.deviation, 3, 0.2);
    EXPECT_LT(correlationOf(water.flow, water.quality[0]), -0.3);
}

TEST(MonteCarlo, TiesFlowsToTheCatchmentsFlow) {
    Settings settings;
    settings.shots = 2000;
    const MonteCarlo monteCarlo(settings);
    const Shots one = monteCarlo.flow({20, 5, 0.95}, {Source::head, 1});
    EXPECT_GT(correlationOf(one, monteCarlo.flow({10, 3, 0.95}, {Source::head, 2})), 0.8);
    EXPECT_NEAR(correlationOf(one, monteCarlo.flow({10, 3, 0}, {Source::head, 2})), 0, 0.1);
}

TEST(MonteCarlo, GivesEverySourceDrawsOfItsOwn) {
    Settings settings;
    const MonteCarlo monteCarlo(settings);
    const FlowSet set{20, 5, 0};
    const Shots flow = monteCarlo.flow(set, {Source::head, 1});
    EXPECT_EQ(flow, MonteCarlo(settings).flow(set, {Source::head, 1}));
    EXPECT_NE(flow, monteCarlo.flow(set, {Source::head, 2}));
    EXPECT_NE(flow, monteCarlo.flow(set, {Source::feature, 1}));
    settings.seed = 2;
    EXPECT_NE(flow, MonteCarlo(settings).flow(set, {Source::head, 1}));
}

TEST(MonteCarlo, GivesTheSameDrawsOnEveryMachine) {
    RandomNumbers random(1957);
    EXPECT_EQ(random.next(), 0x0B83AB8A8CF420F2U);
    Settings settings;
    settings.shots = 20;
    const Shots flow = MonteCarlo(settings).flow({20, 5, 0.5}, {Source::head, 1});
    // Worked out apart from this program, then to the last bit.
    EXPECT_NEAR(flow[0], 21.05502105896178, 1e-12);
    EXPECT_NEAR(flow[1], 5.771932083329828, 1e-12);
    EXPECT_EQ(flow[0], 0x1.50e15dc30d507p+4);
}

TEST(Percentiles, InterpolateBetweenRanks) {
    Shots values;
    for (int i = 1; i <= 99; ++i)
        values.push_back(i);
    EXPECT_DOUBLE_EQ(percentileOf(values, 0.90), 90);
    EXPECT_DOUBLE_EQ(percentileOf(values, 0.955), 95.5);
    EXPECT_DOUBLE_EQ(percentileOf(values, 0.05), 5);
    EXPECT_DOUBLE_EQ(percentileOf(values, 0.999), 99);
    EXPECT_DOUBLE_EQ(percentileOf({7}, 0.9), 7);
    EXPECT_DOUBLE_EQ(percentileOf({}, 0.9), 0);
}

TEST(Percentiles, SummariseAKnownSample) {
    Shots values;
    for (int i = 99; i >= 1; --i)
        values.push_back(i);
    const Summary summary = summarise(values, 25);
    EXPECT_DOUBLE_EQ(summary.mean, 50);
    EXPECT_NEAR(summary.deviation, std::sqrt(99.0 * 100 / 12), 1e-9);
    EXPECT_DOUBLE_EQ(summary.percentiles[0], 90);
    EXPECT_DOUBLE_EQ(summary.percentiles[1], 95);
    EXPECT_DOUBLE_EQ(summary.percentiles[2], 99);
    // 1.645 standard errors of the mean of 25 samples on either side.
    EXPECT_NEAR(summary.meanLimits.upper - 50, 1.6448536 * 28.7228132 / 5, 1e-5);
    EXPECT_NEAR(50 - summary.meanLimits.lower, 1.6448536 * 28.7228132 / 5, 1e-5);
    // The 95 percentile's limits by hand: sigma^2 = ln(1 + 0.33), z = 1.645.
    const double sigma = std::sqrt(std::log(1 + 0.33));
    const double factor = std::exp(1.6448536 * sigma * std::sqrt((1 + 1.6448536 * 1.6448536 / 2) / 25));
    EXPECT_NEAR(summary.percentileLimits[1].upper, 95 * factor, 1e-4);
    EXPECT_NEAR(summary.percentileLimits[1].lower, 95 / factor, 1e-4);
}

TEST(Percentiles, OfAConstantHaveNoWidth) {
    const Summary summary = summarise(Shots(50, 3.5), 36);
    EXPECT_EQ(summary.meanLimits.lower, 3.5);
    EXPECT_EQ(summary.percentileLimits[2].upper, 3.5);
    EXPECT_EQ(summarise(Shots(50, 0.0), 36).percentileLimits[2].upper, 0);
}

TEST(Percentiles, OfAFlowAreItsLowFlow) {
    Shots flows;
    for (int i = 1; i <= 99; ++i)
        flows.push_back(i);
    const Summary summary = summariseFlow(flows);
    EXPECT_DOUBLE_EQ(summary.mean, 50);
    for (const double value : summary.percentiles)
        EXPECT_DOUBLE_EQ(value, 5);
}

} // namespace korvel
