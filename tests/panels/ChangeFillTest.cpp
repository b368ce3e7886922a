#include "panels/ChangeFill.h"

#include <gtest/gtest.h>

#include <vector>

namespace korvel {

namespace {

using Numbers = std::vector<double>;

VisibleBand change(Numbers km, Numbers values, bool thinned = false) {
    return {std::move(km), values, values, thinned};
}

} // namespace

TEST(FilledToZero, HasOneSideAndTouchesZeroWhereTheChangeDoes) {
    const VisibleBand both = change({0, 10, 20}, {4, -4, -2});
    const FilledEdge rises = filledToZero(both, FilledSide::above);
    EXPECT_EQ(rises.km, (Numbers{0, 5, 10, 20}));
    EXPECT_EQ(rises.values, (Numbers{4, 0, 0, 0}));
    const FilledEdge falls = filledToZero(both, FilledSide::below);
    EXPECT_EQ(falls.km, (Numbers{0, 5, 10, 20}));
    EXPECT_EQ(falls.values, (Numbers{0, 0, -4, -2}));
}

TEST(FilledToZero, IsNothingWhereNothingLiesOnThatSide) {
    EXPECT_TRUE(filledToZero(change({0, 10}, {4, 0}), FilledSide::below).isEmpty());
    EXPECT_TRUE(filledToZero(change({0, 10}, {0, 0}), FilledSide::above).isEmpty());
    EXPECT_TRUE(filledToZero(change({5}, {3}), FilledSide::above).isEmpty());
    EXPECT_TRUE(filledToZero({}, FilledSide::above).isEmpty());
}

TEST(ClearPart, IsUprightAtItsEndsAndZeroBetween) {
    const FilledEdge filled = filledToZero(change({0, 10, 20, 30}, {0, 10, 10, 0}), FilledSide::above);
    const FilledEdge part = clearPart(filled, {{5, 15}, {25, 40}}, 0.1);
    EXPECT_EQ(part.km, (Numbers{5, 5, 10, 15, 15, 25, 25, 30, 30}));
    EXPECT_EQ(part.values, (Numbers{0, 5, 10, 10, 0, 0, 5, 0, 0}));
    EXPECT_TRUE(clearPart(filled, {}, 0.1).isEmpty());
    EXPECT_TRUE(clearPart(filled, {{-9, -1}, {31, 40}}, 0.1).isEmpty());
}

TEST(ClearPart, TakesStretchesWithinAPixelAsOne) {
    const FilledEdge filled = filledToZero(change({0, 10}, {5, 5}), FilledSide::above);
    EXPECT_EQ(clearPart(filled, {{1, 2}, {2.4, 3}, {3.6, 4}}, 0.5).km, (Numbers{1, 1, 3, 3, 3.6, 3.6, 4, 4}));
}

TEST(ClearPart, TakesWholeColumnsWherePointsWereThinned) {
    const FilledEdge filled = filledToZero(change({0, 1, 2, 3}, {5, 6, 7, 8}, true), FilledSide::above);
    const FilledEdge part = clearPart(filled, {{1.2, 2.3}}, 0.1);
    EXPECT_EQ(part.km, (Numbers{1, 1, 2, 2}));
    EXPECT_EQ(part.values, (Numbers{0, 6, 7, 0}));
}

TEST(ClearPart, HasFewPointsHoweverManyStretchesThereAre) {
    Numbers km, values;
    for (int column = 0; column < 1000; ++column) {
        km.push_back(column);
        values.push_back(1 + column % 7);
    }
    std::vector<ClearStretch> stretches;
    for (int k = 0; k < 50000; ++k)
        stretches.push_back({0.02 * k, 0.02 * k + 0.01});
    const FilledEdge filled = filledToZero(change(km, values, true), FilledSide::above);
    EXPECT_LE(clearPart(filled, stretches, 1).km.size(), 1000U + 4);
    for (ClearStretch& stretch : stretches) // one in each second column
        stretch = {stretch.from * 100, stretch.from * 100 + 0.5};
    EXPECT_LE(clearPart(filled, stretches, 0.9).km.size(), 4000U);
}

} // namespace korvel
