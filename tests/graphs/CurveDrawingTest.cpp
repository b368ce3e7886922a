#include "graphs/draw/CurveDrawing.h"

#include "fakes/FixedTextMetrics.h"
#include "graphs/DrawnThings.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

// An area of 100 by 100 units at (0, 0), one unit of value 10 high; surface y is 1000 less the graph's.
struct CurveDrawingTest : testing::Test {
    Drawing drawing{.width = 1000, .height = 1000, .commands = {}};
    FixedTextMetrics metrics;
    GraphPrimitives primitives{drawing, GraphForm::graph, metrics, metrics};
    GraphSheet sheet{primitives, false};
    std::vector<double> values = {0};

    void draw(CurveKind kind, LineLook look, std::vector<double> valuesFrom1, std::vector<double> x) {
        values.insert(values.end(), valuesFrom1.begin(), valuesFrom1.end());
        PlottedColumn column;
        column.distances = x;
        for (std::size_t k = 0; k < x.size(); ++k)
            column.points.push_back(static_cast<int>(k) + 1);
        drawCurve(sheet, {kind, look, values}, column, {0, 100, 0, 100}, {{0, 100, 0, 100}, 10, 5});
    }
    std::vector<DrawnRun> runs() const { return allOf<DrawnRun>(drawing); }
    std::vector<DrawnLine> lines() const { return allOf<DrawnLine>(drawing); }
};

using Points = std::vector<DrawnPoint>;

} // namespace

TEST_F(CurveDrawingTest, JoinsTheValues) {
    draw(CurveKind::joined, looks::first, {1, 5, 10}, {0, 50, 100});
    ASSERT_EQ(runs().size(), 1u);
    EXPECT_EQ(runs()[0].points, (Points{{0, 990}, {50, 950}, {100, 900}}));
    EXPECT_EQ(runs()[0].pen.width, 4);
}

TEST_F(CurveDrawingTest, DrawsNegativeValuesDownToTheAxis) {
    draw(CurveKind::joined, looks::limits, {1, -7, 2}, {0, 50, 100});
    EXPECT_EQ(runs()[0].points, (Points{{0, 990}, {50, 1000}, {100, 980}}));
}

TEST_F(CurveDrawingTest, CutsLinesOffAtTheTop) {
    draw(CurveKind::joined, looks::first, {5, 15, 5, 5}, {0, 20, 40, 60});
    ASSERT_EQ(runs().size(), 2u);
    EXPECT_EQ(runs()[0].points, (Points{{0, 950}, {10, 900}}));
    EXPECT_EQ(runs()[1].points, (Points{{30, 900}, {40, 950}, {60, 950}}));
}

TEST_F(CurveDrawingTest, DrawsNothingOfWhatLiesWhollyAboveTheTop) {
    draw(CurveKind::joined, looks::first, {15, 20, 15}, {0, 20, 40});
    EXPECT_TRUE(drawing.commands.empty());
}

TEST_F(CurveDrawingTest, ShowsASinglePointAsAShortStroke) {
    draw(CurveKind::joined, looks::first, {5}, {50});
    ASSERT_EQ(lines().size(), 1u);
    EXPECT_EQ(lines()[0].from, (DrawnPoint{45, 950}));
    EXPECT_EQ(lines()[0].to, (DrawnPoint{55, 950}));
}

TEST_F(CurveDrawingTest, DrawsTargetsAsRunsOfEqualValue) {
    draw(CurveKind::runsOfEqualValue, looks::targets, {4, 4, 4, 0, 6, 6, 7}, {0, 10, 20, 30, 40, 50, 60});
    ASSERT_EQ(lines().size(), 3u);
    EXPECT_EQ(lines()[0].from, (DrawnPoint{0, 960}));
    EXPECT_EQ(lines()[0].to, (DrawnPoint{20, 960}));
    EXPECT_EQ(lines()[0].pen.dash, Dash::dot);
    EXPECT_EQ(lines()[1].from, (DrawnPoint{40, 940}));
    EXPECT_EQ(lines()[1].to, (DrawnPoint{50, 940}));
    EXPECT_EQ(lines()[2].from, (DrawnPoint{55, 930}));
}

TEST_F(CurveDrawingTest, LeavesOutTargetsAboveTheTop) {
    draw(CurveKind::runsOfEqualValue, looks::targets, {4, 4, 15, 15, 10, 10}, {0, 10, 20, 30, 40, 50});
    ASSERT_EQ(lines().size(), 2u);
    EXPECT_EQ(lines()[0].from, (DrawnPoint{0, 960}));
    EXPECT_EQ(lines()[1].from, (DrawnPoint{40, 900})) << "at the top it is drawn";
}

TEST_F(CurveDrawingTest, DrawsObservedValuesAsCrosses) {
    draw(CurveKind::crosses, looks::observed, {3, 0, 12}, {10, 20, 30});
    ASSERT_EQ(lines().size(), 2u);
    EXPECT_EQ(lines()[0].from, (DrawnPoint{5, 975}));
    EXPECT_EQ(lines()[0].to, (DrawnPoint{15, 965}));
    EXPECT_EQ(lines()[1].from, (DrawnPoint{5, 965}));
    EXPECT_EQ(lines()[1].to, (DrawnPoint{15, 975}));
}

TEST_F(CurveDrawingTest, DrawsNothingWithoutPoints) {
    for (const CurveKind kind : {CurveKind::joined, CurveKind::runsOfEqualValue, CurveKind::crosses})
        draw(kind, looks::first, {}, {});
    EXPECT_TRUE(drawing.commands.empty());
}

} // namespace korvel
