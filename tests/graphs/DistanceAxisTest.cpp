#include "graphs/draw/DistanceAxis.h"

#include "fakes/FixedTextMetrics.h"
#include "graphs/DrawnThings.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

struct TickCase {
    double highest, width, room, step;
    std::size_t count;
};

struct DistanceAxisTest : testing::Test {
    Drawing drawing{.width = 9600, .height = 6780, .commands = {}};
    FixedTextMetrics metrics;
    GraphPrimitives primitives{drawing, GraphForm::graph, metrics, metrics};
    GraphSheet sheet{primitives, OutputTarget::screen};
};

} // namespace

TEST_F(DistanceAxisTest, ChoosesRoundSteps) {
    const TickCase cases[] = {{33.6, 1000, 100, 5, 7},  {10, 1000, 100, 1, 11}, {10, 1000, 101, 2, 6},
                              {0.05, 1000, 10, 0.1, 1}, {1, 1000, 10, 0.1, 11}, {900, 1000, 200, 200, 5}};
    for (const TickCase& one : cases) {
        const std::vector<AxisTick> ticks = distanceAxis({{0, one.highest, 0, one.width}}, one.room).ticks;
        ASSERT_EQ(ticks.size(), one.count) << one.highest;
        EXPECT_EQ(ticks[0].value, 0);
        if (ticks.size() > 1) {
            EXPECT_DOUBLE_EQ(ticks[1].value, one.step) << one.highest;
        }
    }
}

TEST_F(DistanceAxisTest, HasTicksAtBothEndsInSpiteOfRoundingErrors) {
    EXPECT_EQ(distanceAxis({{0, 0.3, 0, 1000}}, 100).ticks.size(), 4u) << "three tenths are more than 0.3";
    const std::vector<AxisTick> ticks = distanceAxis({{0.1 * 3, 1, 0, 1000}}, 100).ticks;
    ASSERT_EQ(ticks.size(), 8u);
    EXPECT_DOUBLE_EQ(ticks.front().value, 0.3);
    EXPECT_EQ(distanceAxis({{0.31, 1, 0, 1000}}, 100).ticks.size(), 7u);
    EXPECT_EQ(distanceAxis({{0.31, 0.99, 0, 1000}}, 100).ticks.size(), 6u);
}

TEST_F(DistanceAxisTest, WritesKmWithOneDecimal) {
    paintDistanceAxis(sheet, distanceAxis({{0, 10, 1000, 9000}}, 4000), 500);
    EXPECT_EQ(textsOf(drawing), (std::vector<std::string>{"0.0", "5.0", "10.0", "km"}));
}

TEST_F(DistanceAxisTest, WritesReachNamesInTheMiddleOfTheirReaches) {
    paintReachNames(sheet, {{0, 10, 0, 9600}}, {{0, 5, "Upper"}, {5, 10, "Lower"}}, {300, 250});
    const DrawnText upper = textsReading(drawing, "Upper").front();
    EXPECT_DOUBLE_EQ(upper.corner.x + upper.width / 2, 2400);
    EXPECT_EQ(upper.font.name, "Arial Narrow");
    ASSERT_EQ(allOf<DrawnLine>(drawing).size(), 1u);
    EXPECT_EQ(allOf<DrawnLine>(drawing)[0].from.x, 4800);
}

TEST_F(DistanceAxisTest, CutsANameThatIsTooLongForItsReach) {
    paintReachNames(sheet, {{0, 10, 0, 9600}}, {{0, 1, "Upper Mill Stream"}, {1, 1.1, "Tiny"}}, {300, 250});
    EXPECT_EQ(textsOf(drawing), std::vector<std::string>{"Upper Mi.."});
}

} // namespace korvel
