#include "panels/ValueAxis.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <set>

namespace korvel {

namespace {

std::string ticksOf(const Axis& axis) {
    std::string texts;
    for (const AxisTick& tick : axis.ticks)
        texts += (texts.empty() ? "" : " ") + tick.text;
    return texts;
}

} // namespace

TEST(ValueAxis, HasRoundEndsAndNumbersThatReadWell) {
    using enum AxisBegin;
    const struct {
        NumberRange values;
        AxisBegin begin;
        const char* ticks;
        double bottom, top;
    } cases[] = {
        {{2, 4.2}, atZero, "0 1 2 3 4", 0, 4.5},
        {{2, 4.2}, atLowest, "2.0 2.5 3.0 3.5 4.0", 2, 4.25},
        {{0, 0}, atZero, "0.0 0.2 0.4 0.6 0.8 1.0", 0, 1},
        {{3, 3}, atLowest, "2.7 2.8 2.9 3.0 3.1 3.2 3.3", 2.7, 3.3},
        {{-3, 9}, atZero, "-2 0 2 4 6 8", -3, 9},
        {{0, 1e-6}, atZero, "0 0.2E-6 0.4E-6 0.6E-6 0.8E-6 1.0E-6", 0, 1e-6},
        {{0, 0.00042}, atZero, "0.0000 0.0001 0.0002 0.0003 0.0004", 0, 0.00045},
        {{0, 123456}, atZero, "0 20000 40000 60000 80000 100000 120000", 0, 130000},
        {{0, 2.3e6}, atZero, "0 0.5E6 1.0E6 1.5E6 2.0E6 2.5E6", 0, 2.5e6},
        {{0, 1e9}, atZero, "0 0.2E9 0.4E9 0.6E9 0.8E9 1.0E9", 0, 1e9},
    };
    for (const auto& [values, begin, ticks, bottom, top] : cases) {
        const Axis axis = valueAxis(values, ScaleKind::linear, begin, {1000, 0, 150});
        EXPECT_EQ(ticksOf(axis), ticks);
        EXPECT_NEAR(axis.scale.bottom, bottom, 1e-9 * std::abs(bottom)) << ticks;
        EXPECT_NEAR(axis.scale.top, top, 1e-9 * std::abs(top)) << ticks;
    }
}

TEST(ValueAxis, HasTwoNumbersAtLeastInALowPanel) {
    std::mt19937 random(4);
    EXPECT_EQ(ticksOf(valueAxis(NumberRange{-2.4, 2.1}, ScaleKind::linear, AxisBegin::atZero, {795, 0, 420})),
              "-2 0 2");
    for (int round = 0; round < 2000; ++round) {
        const double size = std::pow(10, std::uniform_real_distribution(-6.0, 9.0)(random));
        const NumberRange range{-size * std::uniform_real_distribution(0.0, 1.0)(random), size};
        const Axis axis = valueAxis(range, ScaleKind::linear, AxisBegin::atZero, {795, 0, 420});
        EXPECT_GE(axis.ticks.size(), 2u) << range.lowest << " to " << range.highest;
    }
}

TEST(ValueAxis, HasItsEndsNumberedWhereOneNumberAloneHasRoom) {
    const AxisRoom low{400, 0, 300};
    EXPECT_EQ(ticksOf(valueAxis(NumberRange{6e-7, 2.4e-6}, ScaleKind::logarithmic, AxisBegin::atZero, low)),
              "5E-7 5E-6");
    EXPECT_EQ(ticksOf(valueAxis(NumberRange{0.2, 4}, ScaleKind::logarithmic, AxisBegin::atZero, low)),
              "0.2 5");
}

TEST(ValueAxis, NamesTheTicksOfAGivenScaleAlike) {
    const auto ticks = [](double bottom, double top, ScaleKind kind = ScaleKind::linear) {
        return ticksOf(axisOf({bottom, top, 1000, 0, kind}, 250));
    };
    EXPECT_EQ(ticks(0, 1.9e9), "0 0.5E9 1.0E9 1.5E9");
    EXPECT_EQ(ticks(0, 2.1e-6), "0 1E-6 2E-6");
    EXPECT_EQ(ticks(-1, 12), "0 5 10");
    EXPECT_EQ(ticks(0.05, 120, ScaleKind::logarithmic), "0.1 1 10 100");
}

TEST(ValueAxis, GoesByPowersOfTenOnALogarithmicScale) {
    const struct {
        NumberRange values;
        const char* ticks;
    } cases[] = {
        {{0.3, 40}, "0.2 0.5 1 2 5 10 20 50"},
        {{1e-6, 1e9}, "1E-6 0.0001 0.01 1 100 10000 1E6 1E8"},
        {{3, 3}, "2 5"},
        {{2, 2}, "1 2"},
    };
    for (const auto& [values, ticks] : cases)
        EXPECT_EQ(ticksOf(valueAxis(values, ScaleKind::logarithmic, AxisBegin::atZero, {1000, 0, 110})),
                  ticks);
}

TEST(ValueAxis, HoldsEveryValueBetweenItsEnds) {
    std::mt19937 random(11);
    for (int round = 0; round < 3000; ++round) {
        const double size = std::pow(10.0, std::uniform_real_distribution(-30.0, 30.0)(random));
        NumberRange values{size * std::uniform_real_distribution(-1.0, 1.0)(random),
                           size * std::uniform_real_distribution(-1.0, 1.0)(random)};
        if (values.lowest > values.highest) std::swap(values.lowest, values.highest);
        const auto begin = round % 2 == 0 ? AxisBegin::atZero : AxisBegin::atLowest;
        const Axis axis = valueAxis(values, ScaleKind::linear, begin, {900, 100, 120});
        const double little = 1e-5 * (values.highest - values.lowest);
        ASSERT_LE(axis.scale.bottom, values.lowest + little);
        ASSERT_GE(axis.scale.top, values.highest - little);
        ASSERT_LE(axis.ticks.size(), 20U);
        ASSERT_GE(axis.ticks.size(), 2U);
        std::set<std::string> texts;
        for (const AxisTick& tick : axis.ticks) {
            EXPECT_LE(tick.text.size(), 10U) << tick.text;
            texts.insert(tick.text);
        }
        ASSERT_EQ(texts.size(), axis.ticks.size()) << ticksOf(axis);
    }
}

TEST(KmAxis, EndsWhereTheViewEnds) {
    const Axis axis = kmAxis(3.3, 17.7, {0, 1000, 200});
    EXPECT_EQ(ticksOf(axis), "5 10 15");
    EXPECT_EQ(axis.scale.bottom, 3.3);
    EXPECT_EQ(axis.scale.top, 17.7);
    EXPECT_EQ(ticksOf(kmAxis(3.3, 3.35, {0, 1000, 200})), "3.30 3.32 3.34");
}

} // namespace korvel
