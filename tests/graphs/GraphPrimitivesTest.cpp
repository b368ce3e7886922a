#include "graphs/draw/GraphPrimitives.h"

#include "fakes/FixedTextMetrics.h"
#include "graphs/DrawnThings.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

constexpr bool onScreen = false;
constexpr bool onPrinter = true;

// Texts are twice as large on this printer.
class DoubleMetrics : public TextMetrics {
  public:
    TextSize measure(std::string_view text, const Font& font) const override {
        const TextSize size = FixedTextMetrics().measure(text, font);
        return {2 * size.width, 2 * size.height};
    }
};

struct GraphPrimitivesTest : testing::Test {
    Drawing drawing{.width = 1000, .height = 600, .commands = {}};
    FixedTextMetrics screen;
    DoubleMetrics printer;
    GraphPrimitives graph{drawing, GraphForm::graph, screen, printer};
    GraphPrimitives capture{drawing, GraphForm::capture, screen, printer};

    DrawnLine lastLine() const { return allOf<DrawnLine>(drawing).back(); }
    DrawnText lastText() const { return allOf<DrawnText>(drawing).back(); }
};

struct PenCase {
    bool pr;
    int thick, style, colour;
    double width;
    Dash dash;
};

} // namespace

TEST_F(GraphPrimitivesTest, TurnsTheVerticalAxis) {
    graph.DisplayLine(onScreen, 10, 20, 30, 600, 0, 0, colours::black);
    EXPECT_EQ(lastLine().from, (DrawnPoint{10, 580}));
    EXPECT_EQ(lastLine().to, (DrawnPoint{30, 0}));
}

TEST_F(GraphPrimitivesTest, ChoosesPensByTargetStyleAndColour) {
    const PenCase cases[] = {
        {onScreen, 4, 2, 9, 4, Dash::solid},      {onScreen, 4, 2, 10, 4, Dash::solid},
        {onScreen, 4, 2, 11, 4, Dash::solid},     {onScreen, 4, 2, 14, 4, Dash::solid},
        {onScreen, 4, 2, 4, 1, Dash::solid},      {onScreen, 4, 3, 0, 1, Dash::solid},
        {onPrinter, 4, 2, 9, 8, Dash::solid},     {onPrinter, 4, 3, 4, 12, Dash::solid},
        {onScreen, 0, 0, 9, 1, Dash::solid},      {onScreen, 0, 2, 12, 1, Dash::dot},
        {onPrinter, 1, 1, 12, 1, Dash::dash},     {onPrinter, 3, 3, 0, 1, Dash::dashDot},
        {onScreen, 2, 4, 0, 1, Dash::dashDotDot},
    };
    for (const PenCase& one : cases) {
        graph.DisplayLine(one.pr, 0, 0, 1, 1, one.thick, one.style, one.colour);
        EXPECT_EQ(lastLine().pen, (Pen{paletteColour(one.colour), one.width, one.dash}))
            << one.pr << one.thick << one.style << "/" << one.colour;
    }
}

TEST_F(GraphPrimitivesTest, DrawsARunInTheLookOfALine) {
    graph.DisplayRun(onScreen, {{0, 0}, {5, 100}}, 4, 2, 10);
    const DrawnRun run = allOf<DrawnRun>(drawing).back();
    EXPECT_EQ(run.points, (std::vector<DrawnPoint>{{0, 600}, {5, 500}}));
    EXPECT_EQ(run.pen, (Pen{paletteColour(10), 4, Dash::solid}));
}

TEST_F(GraphPrimitivesTest, WideLineDrawsOneFourOrNineLines) {
    const std::size_t expected[] = {0, 1, 4, 9, 9};
    for (int width = 0; width <= 4; ++width) {
        drawing.clear();
        graph.WideLine(100, 100, 200, 100, width, {});
        EXPECT_EQ(drawing.commands.size(), expected[width]) << width;
    }
}

TEST_F(GraphPrimitivesTest, WideLineMovesItsCopiesByOnePixel) {
    graph.WideLine(100, 100, 200, 50, 2, {1, 2, 3});
    std::vector<DrawnPoint> starts;
    for (const DrawnLine& line : allOf<DrawnLine>(drawing)) {
        starts.push_back(line.from);
        EXPECT_EQ(line.to.x - line.from.x, 100);
        EXPECT_EQ(line.to.y - line.from.y, -50);
        EXPECT_EQ(line.pen, (Pen{{1, 2, 3}, 1, Dash::solid}));
    }
    EXPECT_EQ(starts, (std::vector<DrawnPoint>{{100, 100}, {100, 115}, {115, 100}, {115, 115}}));
}

TEST_F(GraphPrimitivesTest, TheCaptureFormWidensEveryThickLine) {
    capture.DisplayLine(onScreen, 0, 0, 10, 10, 4, 2, colours::black);
    EXPECT_EQ(allOf<DrawnLine>(drawing).size(), 4u);
    capture.DisplayRun(onScreen, {{0, 0}, {10, 10}}, 4, 3, 9);
    EXPECT_EQ(allOf<DrawnRun>(drawing).size(), 9u);
    capture.DisplayLine(onScreen, 0, 0, 10, 10, 0, 2, colours::black);
    EXPECT_EQ(lastLine().pen.dash, Dash::dot);
}

TEST_F(GraphPrimitivesTest, PlacesTextByItsAlignment) {
    graph.GraphFontSize = 10; // letters 100 wide, lines 240 high
    graph.DisplayText(onScreen, 500, 100, 0, "ab");
    EXPECT_EQ(lastText().corner, (DrawnPoint{500, 260}));
    graph.DisplayText(onScreen, 500, 100, 2, "ab");
    EXPECT_EQ(lastText().corner, (DrawnPoint{400, 260}));
    graph.DisplayText(onScreen, 500, 100, 1, "ab");
    EXPECT_EQ(lastText().corner, (DrawnPoint{300, 260}));
    graph.DisplayText(onScreen, 500, 100, 5, "ab");
    EXPECT_EQ(lastText().corner, (DrawnPoint{300, 260}));
    EXPECT_EQ(lastText().width, 200);
    EXPECT_EQ(lastText().height, 240);
}

TEST_F(GraphPrimitivesTest, WritesInTheGraphsFont) {
    graph.GraphFontSize = 12;
    graph.GraphFontBold = true;
    graph.DisplayText(onScreen, 0, 0, 0, "a");
    EXPECT_EQ(lastText().font, (Font{"Arial", 12, true}));
    graph.DisplayTextY(onScreen, 0, 0, 0, "a");
    EXPECT_EQ(lastText().font, (Font{"Arial Narrow", 12, true}));
    capture.DisplayTextY(onScreen, 0, 0, 0, "a");
    EXPECT_EQ(lastText().font.name, "Arial");
}

TEST_F(GraphPrimitivesTest, MeasuresWidthsOnTheTargetAndHeightsOnScreen) {
    graph.GraphFontSize = 10;
    EXPECT_EQ(graph.TxtWidth(onScreen, "abc"), 300);
    EXPECT_EQ(graph.TxtWidth(onPrinter, "abc"), 600);
    EXPECT_EQ(graph.TxtHeight("abc"), 240);
}

TEST_F(GraphPrimitivesTest, CountsTheTextsOnScreenUntilTheGraphIsClosed) {
    graph.DisplayText(onScreen, 0, 0, 0, "a");
    graph.DisplayTextY(onScreen, 0, 0, 0, "b");
    graph.DisplayText(onPrinter, 0, 0, 0, "c");
    EXPECT_EQ(graph.LabelCount, 2);
    EXPECT_EQ(textsOf(drawing).size(), 3u);
    graph.CloseGraph();
    EXPECT_EQ(graph.LabelCount, 0);
    EXPECT_TRUE(drawing.commands.empty());
}

TEST_F(GraphPrimitivesTest, ClosesAGraphWithoutTexts) {
    graph.DisplayLine(onScreen, 0, 0, 1, 1, 0, 0, 0);
    graph.CloseGraph();
    EXPECT_EQ(graph.LabelCount, 0);
    EXPECT_TRUE(drawing.commands.empty());
}

TEST_F(GraphPrimitivesTest, DrawsACrossInTheLookOfALine) {
    graph.DisplayCross(onScreen, {100, 200}, 30, 4, 2, colours::black);
    graph.DisplayCross(onPrinter, {100, 200}, 30, 4, 2, colours::black);
    const std::vector<DrawnMarker> crosses = allOf<DrawnMarker>(drawing);
    ASSERT_EQ(crosses.size(), 2u);
    EXPECT_EQ(crosses[0], (DrawnMarker{{100, 400}, 30, {paletteColour(0), 1, Dash::solid}}));
    EXPECT_EQ(crosses[1].pen.width, 8);
}

TEST_F(GraphPrimitivesTest, TheCaptureFormWidensCrosses) {
    capture.DisplayCross(onScreen, {100, 200}, 30, 4, 2, colours::black);
    std::vector<DrawnPoint> centres;
    for (const DrawnMarker& cross : allOf<DrawnMarker>(drawing))
        centres.push_back(cross.centre);
    EXPECT_EQ(centres, (std::vector<DrawnPoint>{{100, 400}, {100, 415}, {115, 400}, {115, 415}}));
}

} // namespace korvel
