#include "graphs/draw/VerticalScale.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace korvel {

namespace {

struct TopCase {
    double largest;
    double top;
    int exponent;
};

} // namespace

TEST(VerticalScale, RoundsTheTopUp) {
    const TopCase cases[] = {{4.5, 5, 0},      {1.2, 1.6, -1},  {10, 11, 0},     {0.05, 0.06, -2},
                             {1, 2 * 0.6, -1}, {0.1, 0.3, -1},  {0.3, 0.4, -1},  {0.4, 0.6, -1},
                             {0.6, 0.8, -1},   {0.8, 1, 0},     {9.9, 10, 0},    {10.1, 20 * 0.6, 0},
                             {1e9, 1.1e9, 8},  {2.5, 3, 0},     {25, 30, 1},     {0.22, 0.3, -1},
                             {0.25, 0.3, -1},  {0.26, 0.4, -1}, {0.35, 0.4, -1}, {0.36, 0.6, -1},
                             {0.55, 0.6, -1},  {0.56, 0.8, -1}, {0.74, 0.8, -1}, {0.75, 1, 0}};
    for (const TopCase& one : cases) {
        const VerticalScale scale = verticalScale(one.largest);
        EXPECT_DOUBLE_EQ(scale.top, one.top) << one.largest;
        EXPECT_EQ(scale.exponent, one.exponent) << one.largest;
    }
}

TEST(VerticalScale, IsNeverBelowTheLargestValue) {
    for (double largest = 1e-9; largest < 1e12; largest *= 1.037)
        EXPECT_GE(verticalScale(largest).top, largest) << largest;
}

TEST(VerticalScale, IsZeroToOneWithoutAnythingAboveZero) {
    for (const double largest : {0.0, -3.0, std::nan(""), std::numeric_limits<double>::infinity(),
                                 std::numeric_limits<double>::denorm_min()})
        EXPECT_EQ(verticalScale(largest), (VerticalScale{1, -1})) << largest;
}

TEST(VerticalScale, DoublesTheStepUntilALabelHasRoom) {
    const VerticalScale scale{1.6, -1};
    EXPECT_DOUBLE_EQ(tickStep(scale, 1600, 100), 0.1);
    EXPECT_DOUBLE_EQ(tickStep(scale, 1600, 101), 0.2);
    EXPECT_DOUBLE_EQ(tickStep(scale, 1600, 399), 0.4);
    EXPECT_DOUBLE_EQ(tickStep(scale, 1600, 700), 0.8);
}

TEST(VerticalScale, StopsDoublingAboveTheTop) {
    EXPECT_GE(tickStep({5, 0}, 0, 100), 5);
    EXPECT_LE(tickStep({5, 0}, -10, 100), 10);
}

TEST(VerticalScale, NeedsMoreRoomForManyDigitsAndInLargeText) {
    EXPECT_GT(tickRoom({1, -5}, 100, 0), tickRoom({1, -1}, 100, 0));
    EXPECT_GT(tickRoom({1, 5}, 100, 0), tickRoom({1, 1}, 100, 0));
    EXPECT_GT(tickRoom({1, 0}, 100, 1), tickRoom({1, 0}, 100, 0));
}

TEST(VerticalScale, NeedsAFiftiethOfALineMoreForEachDigit) {
    EXPECT_DOUBLE_EQ(tickRoom({1, 0}, 100, 0), 100);
    EXPECT_DOUBLE_EQ(tickRoom({1, -5}, 100, 0), 110);
    EXPECT_DOUBLE_EQ(tickRoom({1, 5}, 100, 1), 116);
}

TEST(VerticalScale, HasATickAtTheTopInSpiteOfRoundingErrors) {
    EXPECT_EQ(lastTick({0.3, -1}, 0.1), 3);
    EXPECT_EQ(lastTick({5, 0}, 1), 5);
    EXPECT_EQ(lastTick({1.6, -1}, 0.4), 4);
    EXPECT_EQ(lastTick({5, 0}, 8), 0);
}

TEST(VerticalScale, WritesTicksWithTheDecimalsOfTheStep) {
    EXPECT_EQ(tickText({5, 0}, 4), "4");
    EXPECT_EQ(tickText({1.6, -1}, 1.6), "1.6");
    EXPECT_EQ(tickText({1.6, -1}, 0), "0.0");
    EXPECT_EQ(tickText({0.06, -2}, 3 * 0.01), "0.03");
    EXPECT_EQ(tickText({1.1e9, 8}, 4e8), "400000000");
    EXPECT_EQ(tickText({3e-7, -7}, 1e-7), "0.0000001");
    EXPECT_EQ(tickText({1.6e-12, -13}, 8e-13), "0.8E-12");
    EXPECT_EQ(tickText({5e15, 15}, 5e15), "5E15");
    EXPECT_EQ(tickText({5e15, 15}, 0), "0");
}

} // namespace korvel
