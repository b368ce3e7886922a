#include "graphs/draw/GraphHeading.h"

#include "fakes/FixedTextMetrics.h"
#include "graphs/DrawnThings.h"
#include "graphs/GraphSample.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

// A line of ordinary text is 7 points, 168 units high; a title of 10.8 points 259.2. A letter is half as wide
// as its font is high: "KORVEL RESULTS" and "Date: 01/02/2026" are 980 and 1120 wide.
struct GraphHeadingTest : testing::Test {
    GraphSample sample;
    Drawing drawing{.width = 20000, .height = 0, .commands = {}};
    FixedTextMetrics metrics;
    GraphPrimitives primitives{drawing, GraphForm::graph, metrics, metrics};
    GraphSheet sheet{primitives, OutputTarget::screen};
    PlotFrame frame{.unit = 6, .bottom = 240, .top = 5000, .left = 100, .right = 10100};

    GraphHeadingTest() { sample.area.rightEdge = 10100; }

    double ends() {
        const GraphHeading heading = layOutHeading(sheet, sample.inputs(), frame);
        paintHeading(sheet, heading, ordinaryFontSize(sample.inputs()));
        return heading.bottom;
    }
    // Its box in graph coordinates, where the surface's y is the negative one.
    double bottomOf(const std::string& text) {
        const DrawnText found = textsReading(drawing, text).at(0);
        return -(found.corner.y + found.height);
    }
};

const std::string name = "KORVEL RESULTS", date = "Date: 01/02/2026";
constexpr double top = 5000 - 0.2 * 168;

} // namespace

TEST_F(GraphHeadingTest, EndsUnderTheTitles) {
    sample.graph.graphTitle = "River";
    EXPECT_NEAR(ends(), top - 259.2, 1e-6);
    sample.graph.graphSubTitle = " in summer ";
    EXPECT_NEAR(ends(), top - 2 * 259.2, 1e-6);
    EXPECT_NEAR(bottomOf("in summer"), top - 2 * 259.2, 1e-6);
    EXPECT_DOUBLE_EQ(primitives.GraphFontSize, 7);
    EXPECT_FALSE(primitives.GraphFontBold);
}

TEST_F(GraphHeadingTest, HasALineOfItsOwnWithoutTitles) {
    sample.graph.graphTitle = "  ";
    EXPECT_NEAR(ends(), top - 168, 1e-6);
    EXPECT_NEAR(bottomOf(name), top - 168, 1e-6);
}

TEST_F(GraphHeadingTest, StandsALittleAboveTheBottomOfTheFirstTitle) {
    sample.graph.graphTitle = "River";
    ends();
    EXPECT_NEAR(bottomOf(name), top - 259.2 + 0.18 * (259.2 - 168), 1e-6);
    EXPECT_NEAR(bottomOf(date), bottomOf(name), 1e-6);
}

TEST_F(GraphHeadingTest, KeepsHalfALineFromTheSides) {
    ends();
    EXPECT_NEAR(textsReading(drawing, name).at(0).corner.x, 100 + 84, 1e-6);
    EXPECT_NEAR(textsReading(drawing, date).at(0).corner.x + 1120, 10100 - 84, 1e-6);
}

// Half the title, the date and a line must be less than half the frame.
TEST_F(GraphHeadingTest, StandsAboveATitleThatIsTooWide) {
    sample.graph.graphTitle = std::string(20, 'm'); // 2160 wide
    const double enough = 2 * (1080 + 1120 + 168);
    frame.right = frame.left + enough + 1;
    EXPECT_NEAR(ends(), top - 259.2, 1e-6);
    frame.right = frame.left + enough - 1;
    EXPECT_NEAR(ends(), top - 168 - 259.2, 1e-6);
    drawing.clear();
    ends();
    EXPECT_NEAR(bottomOf(date), top - 168, 1e-6);
}

TEST_F(GraphHeadingTest, ShrinksTheTitlesByTenthsUntilTheWiderOneFits) {
    sample.graph.graphTitle = "River";
    sample.graph.graphSubTitle = std::string(20, 'm'); // 200 wide a point
    sample.area.rightEdge = 200 + 200 * 12 * 0.9 * 0.9 + 0.01;
    setTitleFont(sheet, sample.inputs());
    EXPECT_NEAR(primitives.GraphFontSize, 12 * 0.9 * 0.9, 1e-9);
    sample.area.rightEdge -= 0.02;
    setTitleFont(sheet, sample.inputs());
    EXPECT_NEAR(primitives.GraphFontSize, 12 * 0.9 * 0.9 * 0.9, 1e-9);
    EXPECT_TRUE(primitives.GraphFontBold);
}

TEST_F(GraphHeadingTest, FindsTheTitlesSizeForTheWholeGraphAndZoomsItThen) {
    sample.graph.graphTitle = "River";
    sample.constants.ScaleX = 2;
    sample.view.ZoomFactor = 0.5;
    setTitleFont(sheet, sample.inputs());
    EXPECT_NEAR(primitives.GraphFontSize, 2 * 12 * 0.9 / 0.5, 1e-9);
    setOrdinaryFont(sheet, sample.inputs());
    EXPECT_NEAR(primitives.GraphFontSize, 2 * 7 / 0.5, 1e-9);
}

TEST_F(GraphHeadingTest, MakesTitlesNoSmallerThanHalfAPoint) {
    sample.graph.graphTitle = "River";
    sample.area.rightEdge = 0;
    setTitleFont(sheet, sample.inputs());
    EXPECT_LE(primitives.GraphFontSize, 0.5);
    EXPECT_GT(primitives.GraphFontSize, 0.45);
}

} // namespace korvel
