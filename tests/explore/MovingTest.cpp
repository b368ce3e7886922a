#include "explore/Moving.h"

#include <gtest/gtest.h>

#include <ostream>

namespace korvel {

void PrintTo(const ExploreStretch& stretch, std::ostream* out) {
    *out << stretch.from << " to " << stretch.to;
}

namespace {

using Move = ViewHistory::Move;
constexpr double length = 100;

VisibleStretch stretch(double from, double to) {
    return ExploreStretch{from, to};
}

} // namespace

TEST(Moving, ZoomsAboutAPlaceThatStays) {
    EXPECT_EQ(zoomedAbout({}, length, 50, 2), stretch(25, 75));
    EXPECT_EQ(zoomedAbout({}, length, 0, 2), stretch(0, 50));
    EXPECT_EQ(zoomedAbout(stretch(20, 60), length, 30, 2), stretch(25, 45));
    EXPECT_EQ(zoomedAbout(stretch(25, 45), length, 30, 0.5), stretch(20, 60));
}

TEST(Moving, ShowsAllWhereNoMoreIsLeftOut) {
    EXPECT_EQ(zoomedAbout(stretch(20, 80), length, 50, 0.5), std::nullopt);
    EXPECT_EQ(zoomedTo({}, length, -5, 105), std::nullopt);
}

TEST(Moving, StaysWithinThePath) {
    EXPECT_EQ(zoomedAbout(stretch(80, 100), length, 100, 0.5), stretch(60, 100));
    EXPECT_EQ(scrolledBy(stretch(80, 90), length, 50), stretch(90, 100));
    EXPECT_EQ(scrolledBy(stretch(10, 30), length, -50), stretch(0, 20));
    EXPECT_EQ(scrolledBy({}, length, 10), std::nullopt);
}

TEST(Moving, ZoomsNoFartherThanATinyStretch) {
    VisibleStretch seen;
    for (int turn = 0; turn < 100; ++turn)
        seen = zoomedAbout(seen, length, 50, 2);
    ASSERT_TRUE(seen);
    EXPECT_NEAR(seen->to - seen->from, length / 2000, 1e-9);
}

TEST(Moving, ZoomsToABoxWhicheverWayItWasDrawn) {
    EXPECT_EQ(zoomedTo({}, length, 30, 10), stretch(10, 30));
    EXPECT_EQ(zoomedTo(stretch(10, 30), length, 20, 20), stretch(10, 30));
    EXPECT_EQ(zoomedTo({}, length, 90, 130), stretch(90, 100));
}

TEST(Moving, ScrollsAsLittleAsAPlaceNeeds) {
    EXPECT_EQ(scrolledTo(stretch(10, 30), length, 20), stretch(10, 30));
    EXPECT_EQ(scrolledTo(stretch(10, 30), length, 5), stretch(5, 25));
    EXPECT_EQ(scrolledTo(stretch(10, 30), length, 45), stretch(25, 45));
    EXPECT_EQ(scrolledTo({}, length, 45), std::nullopt);
}

TEST(ViewHistory, GoesBackViewByView) {
    ViewHistory history;
    EXPECT_FALSE(history.canGoBack());
    history.leave({}, Move::jump, 0);
    history.leave(stretch(10, 30), Move::jump, 10);
    EXPECT_EQ(history.goBack(), stretch(10, 30));
    EXPECT_EQ(history.goBack(), std::nullopt);
    EXPECT_FALSE(history.canGoBack());
}

TEST(ViewHistory, TakesQuickTurnsForOneStep) {
    ViewHistory history;
    history.leave({}, Move::turn, 0);
    history.leave(stretch(10, 90), Move::turn, 500);
    history.leave(stretch(20, 80), Move::turn, 1000);
    history.leave(stretch(30, 70), Move::turn, 1700); // after a rest
    EXPECT_EQ(history.goBack(), stretch(30, 70));
    EXPECT_EQ(history.goBack(), std::nullopt);
    EXPECT_FALSE(history.canGoBack());
}

TEST(ViewHistory, TakesAJumpAfterATurnForAStepOfItsOwn) {
    ViewHistory history;
    history.leave({}, Move::turn, 0);
    history.leave(stretch(10, 90), Move::jump, 100);
    history.leave(stretch(20, 80), Move::turn, 200);
    EXPECT_EQ(history.goBack(), stretch(20, 80));
    EXPECT_EQ(history.goBack(), stretch(10, 90));
    EXPECT_EQ(history.goBack(), std::nullopt);
}

TEST(ViewHistory, KeepsNoViewTwiceAndForgetsOnAnotherPath) {
    ViewHistory history;
    history.leave({}, Move::jump, 0);
    history.leave({}, Move::jump, 1);
    EXPECT_EQ(history.goBack(), std::nullopt);
    EXPECT_FALSE(history.canGoBack());
    history.leave({}, Move::jump, 2);
    history.clear();
    EXPECT_FALSE(history.canGoBack());
}

} // namespace korvel
