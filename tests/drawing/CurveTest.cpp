#include "drawing/Curve.h"

#include <gtest/gtest.h>

#include <cmath>

namespace korvel {

namespace {

using Points = std::vector<DrawnPoint>;

// An area of 100 by 100 units at (0, 0), one unit of value 10 high.
struct CurveTest : testing::Test {
    Scale distance{0, 100, 0, 100};
    Scale value{0, 10, 0, 100};
    PlotArea area{0, 100, 0, 100};

    CurvePlace place() const { return {area, distance, value, 5}; }
    TracedCurve trace(CurveKind kind, std::vector<double> values, const std::vector<double>& x) const {
        return traceCurve({kind, CurveValues(std::move(values))}, x, place());
    }
};

} // namespace

TEST_F(CurveTest, JoinsTheValues) {
    const TracedCurve traced = trace(CurveKind::joined, {1, 5, 10}, {0, 50, 100});
    ASSERT_EQ(traced.runs.size(), 1u);
    EXPECT_EQ(traced.runs[0], (Points{{0, 10}, {50, 50}, {100, 100}}));
    EXPECT_TRUE(traced.strokes.empty() && traced.marks.empty());
}

TEST_F(CurveTest, LaysValuesBelowTheBottomOnIt) {
    EXPECT_EQ(trace(CurveKind::joined, {1, -7, 2}, {0, 50, 100}).runs[0],
              (Points{{0, 10}, {50, 0}, {100, 20}}));
    value = {-5, 5, 0, 100};
    EXPECT_EQ(trace(CurveKind::joined, {1, -7, -2}, {0, 50, 100}).runs[0],
              (Points{{0, 60}, {50, 0}, {100, 30}}));
}

TEST_F(CurveTest, CutsLinesOffAtTheTop) {
    const TracedCurve traced = trace(CurveKind::joined, {5, 15, 5, 5}, {0, 20, 40, 60});
    ASSERT_EQ(traced.runs.size(), 2u);
    EXPECT_EQ(traced.runs[0], (Points{{0, 50}, {10, 100}}));
    EXPECT_EQ(traced.runs[1], (Points{{30, 100}, {40, 50}, {60, 50}}));
}

TEST_F(CurveTest, CutsLinesOffWhereTheDrawingRunsDownward) {
    area = {0, 100, 100, 0};
    value = {0, 10, 100, 0};
    const TracedCurve traced = trace(CurveKind::joined, {5, 15, 5, 5}, {0, 20, 40, 60});
    ASSERT_EQ(traced.runs.size(), 2u);
    EXPECT_EQ(traced.runs[0], (Points{{0, 50}, {10, 0}}));
    EXPECT_EQ(traced.runs[1], (Points{{30, 0}, {40, 50}, {60, 50}}));
}

TEST_F(CurveTest, HasNothingOfWhatLiesWhollyAboveTheTop) {
    const TracedCurve traced = trace(CurveKind::joined, {15, 20, 15}, {0, 20, 40});
    EXPECT_TRUE(traced.runs.empty() && traced.strokes.empty());
}

TEST_F(CurveTest, ShowsASinglePointAsAShortStroke) {
    EXPECT_EQ(trace(CurveKind::joined, {5}, {50}).strokes, (std::vector<CurveStroke>{{{45, 50}, {55, 50}}}));
}

TEST_F(CurveTest, MakesStrokesOfRunsOfEqualValue) {
    EXPECT_EQ(trace(CurveKind::runsOfEqualValue, {4, 4, 4, 0, 6, 6, 7}, {0, 10, 20, 30, 40, 50, 60}).strokes,
              (std::vector<CurveStroke>{{{0, 40}, {20, 40}}, {{40, 60}, {50, 60}}, {{55, 70}, {65, 70}}}));
}

TEST_F(CurveTest, LeavesOutRunsOfEqualValueAboveTheTop) {
    const TracedCurve traced =
        trace(CurveKind::runsOfEqualValue, {4, 4, 15, 15, 10, 10}, {0, 10, 20, 30, 40, 50});
    ASSERT_EQ(traced.strokes.size(), 2u);
    EXPECT_EQ(traced.strokes[0].from, (DrawnPoint{0, 40}));
    EXPECT_EQ(traced.strokes[1].from, (DrawnPoint{40, 100})) << "at the top it is drawn";
}

TEST_F(CurveTest, MarksTheValuesThatThereAre) {
    EXPECT_EQ(trace(CurveKind::crosses, {3, 0, 12}, {10, 20, 30}).marks, (Points{{10, 30}}));
}

TEST_F(CurveTest, HasNothingWithoutPoints) {
    for (const CurveKind kind : {CurveKind::joined, CurveKind::runsOfEqualValue, CurveKind::crosses}) {
        const TracedCurve traced = trace(kind, {}, {});
        EXPECT_TRUE(traced.runs.empty() && traced.strokes.empty() && traced.marks.empty());
    }
}

TEST_F(CurveTest, LeavesOutWhatALogarithmicScaleHasNoPlaceFor) {
    value = {1, 100, 0, 100, ScaleKind::logarithmic};
    const std::vector<DrawnPoint> run = trace(CurveKind::joined, {10, 0, -1, 0.5}, {0, 1, 2, 3}).runs.at(0);
    EXPECT_DOUBLE_EQ(run[0].y, 50);
    EXPECT_TRUE(std::isnan(run[1].y) && std::isnan(run[2].y));
    EXPECT_EQ(run[3].y, 0);
}

TEST(CurveValues, SeesOwnsOrMakesItsValues) {
    const std::vector<double> base = {1, 2, 4, 8}, run = {2, 2, 2, 2};
    const std::vector<int> entries = {3, 1};
    const CurveValues cases[] = {
        {base, entries},
        CurveValues(std::vector<double>{8, 2}),
        {2, [](std::size_t j) { return j == 0 ? 8.0 : 2.0; }},
    };
    for (const CurveValues& values : cases) {
        ASSERT_EQ(values.size(), 2u);
        EXPECT_EQ(values[0], 8);
        EXPECT_EQ(values[1], 2);
    }
    const CurveValues change(base.size(), [&](std::size_t j) { return run[j] - base[j]; });
    EXPECT_EQ(change[3], -6);
    EXPECT_EQ(CurveValues().size(), 0u);
}

TEST_F(CurveTest, ABandsEdgeStaysInTheArea) {
    EXPECT_EQ(
        curveEdge(CurveValues(std::vector<double>{-3, 5, 20}), std::vector<double>{0, 50, 100}, place()),
        (Points{{0, 0}, {50, 50}, {100, 100}}));
}

TEST_F(CurveTest, TellsWhereAPointIs) {
    const Curve joined{CurveKind::joined, CurveValues(std::vector<double>{5, 0, 20})};
    EXPECT_EQ(placeOf(joined, 0, 30, place()), (DrawnPoint{30, 50}));
    EXPECT_EQ(placeOf(joined, 1, 30, place()), (DrawnPoint{30, 0}));
    EXPECT_TRUE(std::isnan(placeOf(joined, 2, 30, place()).y)) << "cut off";
    const Curve crosses{CurveKind::crosses, CurveValues(std::vector<double>{0})};
    EXPECT_TRUE(std::isnan(placeOf(crosses, 0, 30, place()).y)) << "no value";
}

} // namespace korvel
