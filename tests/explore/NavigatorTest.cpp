#include "explore/Navigator.h"
#include "explore/ThreeReaches.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

// A river of two reaches, 10 and 8 km, with a works between two pairs of points, and interpolated points.
ResultsFileBuilder river() {
    return ResultsFileBuilder()
        .determinand(1, "BOD")
        .reach(1, "Upper", 10, 2)
        .reach(2, "Lower", 8, 0)
        .point(1, 0, "Head", 10)
        .point(1, 2, "...", InterpolatedPointType)
        .point(1, 4, "U/S Works", 3)
        .point(1, 4, "D/S Works", 3)
        .point(2, 1, "Weir", 20)
        .point(2, 8, "Mouth", 20);
}

struct Cursor : testing::Test {
    ExploreState state;
    ExploreScene scene;
    Navigator navigator{state, scene};

    Cursor() {
        addRun(state, runOf(river(), "Z:\\data\\a.sgr"));
        scene.show(state);
    }

    double km() const { return scene.path().places.at(navigator.place().value()).km; }
    Changed step(CursorStep step) {
        const Changed changed = navigator.step(step);
        if (changed == Changed::view) scene.show(state);
        return changed;
    }
};

} // namespace

TEST_F(Cursor, SnapsToTheNearestPoint) {
    for (const auto& [pointed, expected] : {std::pair{-3.0, 0.0},
                                            {0.9, 0.0},
                                            {1.1, 2.0},
                                            {3.5, 4.0},
                                            {8.0, 11.0},
                                            {17.0, 18.0},
                                            {99.0, 18.0}}) {
        navigator.pointAt(pointed, {});
        EXPECT_EQ(km(), expected) << pointed;
    }
}

TEST_F(Cursor, LeavesInterpolatedPointsOutWhereTheyAreNotShown) {
    state.interpolated = false;
    scene.show(state);
    navigator.pointAt(1.9, {});
    EXPECT_EQ(km(), 0);
}

TEST_F(Cursor, TellsOnlyOfAnotherPointOrPanel) {
    EXPECT_EQ(navigator.pointAt(4.1, 0), Changed::cursor);
    EXPECT_EQ(navigator.pointAt(4.2, 0), Changed::nothing);
    EXPECT_EQ(navigator.pointAt(4.2, 1), Changed::cursor);
    EXPECT_EQ(navigator.panel(), 1u);
    EXPECT_EQ(navigator.pointAt(4.2, {}), Changed::nothing);
    EXPECT_EQ(navigator.panel(), 1u);
}

TEST_F(Cursor, StaysWhereAClickHasPutIt) {
    navigator.click(4.1, 0);
    EXPECT_TRUE(state.cursorPinned);
    EXPECT_EQ(navigator.pointAt(11, 0), Changed::nothing);
    EXPECT_EQ(navigator.pointerLeft(), Changed::nothing);
    EXPECT_EQ(km(), 4);
    navigator.click(11, 0);
    EXPECT_EQ(km(), 11);
    EXPECT_TRUE(state.cursorPinned);
    navigator.click(11, 0); // again there
    EXPECT_FALSE(state.cursorPinned);
}

TEST_F(Cursor, GoesWithThePointerOrWhenItIsLetGo) {
    navigator.pointAt(4, 0);
    EXPECT_EQ(navigator.pointerLeft(), Changed::cursor);
    EXPECT_EQ(state.cursor, std::nullopt);
    EXPECT_EQ(navigator.pointerLeft(), Changed::nothing);
    navigator.click(4, 0);
    EXPECT_EQ(navigator.letGo(), Changed::cursor);
    EXPECT_EQ(state.cursor, std::nullopt);
    EXPECT_FALSE(state.cursorPinned);
    EXPECT_EQ(navigator.letGo(), Changed::nothing);
}

TEST_F(Cursor, StepsPointByPointAndStopsAtTheEnds) {
    std::vector<double> seen;
    while (step(CursorStep::right) != Changed::nothing)
        seen.push_back(km());
    EXPECT_EQ(seen.front(), 0);
    EXPECT_EQ(seen.back(), 18);
    EXPECT_EQ(std::ranges::count(seen, 4.0), 2) << "both sides of the works";
    step(CursorStep::left);
    EXPECT_EQ(km(), 11);
}

TEST_F(Cursor, BeginsAtTheEndOfWhatIsSeen) {
    state.visible = ExploreStretch{3, 12};
    scene.show(state);
    step(CursorStep::left);
    EXPECT_EQ(km(), 11);
    navigator.letGo();
    step(CursorStep::right);
    EXPECT_EQ(km(), 4);
}

TEST_F(Cursor, GoesToTheEnds) {
    step(CursorStep::last);
    EXPECT_EQ(km(), 18);
    step(CursorStep::first);
    EXPECT_EQ(km(), 0);
}

TEST_F(Cursor, StepsFromFeatureToFeature) {
    step(CursorStep::first);
    step(CursorStep::featureRight);
    EXPECT_EQ(km(), 4);
    step(CursorStep::featureRight);
    EXPECT_EQ(km(), 11);
    step(CursorStep::featureLeft);
    EXPECT_EQ(km(), 4);
}

TEST_F(Cursor, StepsPanelByPanel) {
    EXPECT_EQ(step(CursorStep::panelUp), Changed::nothing);
    EXPECT_EQ(step(CursorStep::panelDown), Changed::cursor);
    EXPECT_EQ(navigator.panel(), 1u);
    EXPECT_EQ(step(CursorStep::panelDown), Changed::nothing) << "flow and one concentration";
}

TEST_F(Cursor, TakesWhatIsSeenAlong) {
    state.visible = ExploreStretch{0, 5};
    scene.show(state);
    navigator.click(4, 0);
    step(CursorStep::right);
    EXPECT_EQ(step(CursorStep::right), Changed::view);
    EXPECT_EQ(km(), 11);
    EXPECT_EQ(state.visible, (ExploreStretch{6, 11}));
}

TEST_F(Cursor, GoesToAPlaceThatWasChosenElsewhere) {
    EXPECT_EQ(navigator.goTo({2, 1, ""}), Changed::cursor);
    EXPECT_EQ(km(), 11);
    EXPECT_TRUE(state.cursorPinned);
}

TEST_F(Cursor, KeepsItsPlaceWhenTheRunIsReadAnew) {
    navigator.click(11, 0);
    replaceRun(state, 0, runOf(river(), "Z:\\data\\a.sgr"));
    scene.show(state);
    EXPECT_EQ(km(), 11);
}

TEST_F(Cursor, GoesToTheNearestPointOfItsReachWhereItsOwnIsGone) {
    EXPECT_EQ(scene.path().places.at(scene.placeOf({2, 6.5, ""}).value()).km, 18);
    EXPECT_EQ(scene.placeOf({7, 6.5, ""}), std::nullopt);
    const ExplorePlace downstream = scene.placeAt(scene.placeOf({1, 4, "D/S"}).value());
    EXPECT_EQ(downstream, (ExplorePlace{1, 4, "D/S"}));
}

TEST_F(Cursor, GoesBackToWhatWasSeenBeforeADrag) {
    navigator.zoomTo(2, 8);
    navigator.beginDrag();
    navigator.drag(1);
    navigator.drag(3);
    EXPECT_EQ(state.visible, (ExploreStretch{5, 11}));
    EXPECT_EQ(navigator.goBack(), Changed::view);
    EXPECT_EQ(state.visible, (ExploreStretch{2, 8}));
    navigator.goBack();
    EXPECT_EQ(state.visible, std::nullopt);
    EXPECT_EQ(navigator.goBack(), Changed::nothing);
}

TEST_F(Cursor, ZoomsWhereItStandsOrInTheMiddle) {
    navigator.zoomAtCursor(2, 0);
    EXPECT_EQ(state.visible, (ExploreStretch{4.5, 13.5}));
    navigator.showAll();
    navigator.click(0, 0);
    navigator.zoomAtCursor(2, 5000);
    EXPECT_EQ(state.visible, (ExploreStretch{0, 9}));
}

TEST_F(Cursor, ForgetsViewsOfAnotherWay) {
    navigator.zoomTo(2, 8);
    navigator.wayChanged();
    EXPECT_EQ(state.visible, std::nullopt);
    EXPECT_EQ(navigator.goBack(), Changed::nothing);
}

TEST(CursorWithoutRuns, IsNowhere) {
    ExploreState state;
    const ExploreScene scene;
    Navigator navigator(state, scene);
    EXPECT_EQ(navigator.place(), std::nullopt);
    EXPECT_EQ(navigator.pointAt(1, 0), Changed::nothing);
    EXPECT_EQ(navigator.click(1, 0), Changed::nothing);
    EXPECT_EQ(navigator.step(CursorStep::right), Changed::nothing);
}

TEST(Scene, MakesTheWayAnewOnlyWhereRunsOrEndsChange) {
    ExploreState state = stateOf("ab");
    ExploreScene scene;
    scene.show(state);
    const StudyPath* const path = &scene.path();
    state.visible = ExploreStretch{1, 5};
    scene.show(state);
    state.statistic = Statistic::p95;
    scene.show(state);
    EXPECT_EQ(&scene.path(), path);
    EXPECT_EQ(scene.view().fromKm, 1);
    EXPECT_EQ(scene.data().view.statistic, Statistic::p95);
    state.from = 2;
    scene.show(state);
    EXPECT_NE(&scene.path(), path);
    EXPECT_EQ(scene.length(), 13);
}

TEST(Scene, TakesWhatIsBadWhenLowFromTheNamesBeforeTheUserSaysSo) {
    ExploreState state = stateOf("a");
    EXPECT_EQ(lowIsBadOf(state), (std::set<int>{3}));
    state.lowIsBad = std::set<int>{};
    EXPECT_EQ(lowIsBadOf(state), (std::set<int>{}));
    EXPECT_TRUE(lowIsBadOf(ExploreState()).empty());
}

} // namespace korvel
