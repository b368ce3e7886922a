#include "global/GLOBAL.h"
#include "graphs/ProfileGraphFixture.h"

#include <cmath>

namespace korvel {

namespace {

double bottom(const DrawnText& text) {
    return text.corner.y + text.height;
}

} // namespace

TEST(PlotFrame, IsSetFromTheView) {
    const PlotFrame frame = plotFrame({12000, 8000, 10000}, 1.5, {0.5, 300, -200, 1});
    EXPECT_DOUBLE_EQ(frame.unit, 18);
    EXPECT_DOUBLE_EQ(frame.bottom, 720 + 200);
    EXPECT_DOUBLE_EQ(frame.top, 16000 + 200);
    EXPECT_DOUBLE_EQ(frame.left, -300);
    EXPECT_DOUBLE_EQ(frame.right, 20000 - 300);
}

TEST(PanelGrid, StacksSeriesAndPutsReachesInTwoColumns) {
    EXPECT_EQ(panelGrid(true, 5).rows, 5);
    EXPECT_EQ(panelGrid(true, 5).columns, 1);
    const int rows[] = {1, 1, 2, 2, 3, 3};
    for (int reaches = 1; reaches <= 6; ++reaches) {
        EXPECT_EQ(panelGrid(false, reaches).rows, rows[reaches - 1]) << reaches;
        EXPECT_EQ(panelGrid(false, reaches).columns, 2);
    }
    const PanelGrid six = panelGrid(false, 6);
    EXPECT_EQ(six.row(4), 1);
    EXPECT_EQ(six.column(4), 1);
}

TEST_F(ProfileGraphTest, WritesTitlesHeadingAndDate) {
    const Drawing drawing = drawingOf(sample);
    for (const char* text : {"The river", "in summer", "KORVEL RESULTS", "Date: 01/02/2026", "KEY:"})
        EXPECT_TRUE(hasText(drawing, text)) << text;
    EXPECT_TRUE(textsReading(drawing, "The river").front().font.bold);
    EXPECT_FALSE(textsReading(drawing, "KORVEL RESULTS").front().font.bold);
}

TEST_F(ProfileGraphTest, ShrinksTheTitlesUntilBothFit) {
    sample.useArea(1280, 904);
    EXPECT_NEAR(textsReading(drawingOf(sample), "The river").front().font.size, 24 * 0.9, 1e-9);
    sample.graph.graphSubTitle = std::string(60, 'm');
    sample.area.rightEdge = 9000;
    const Drawing drawing = drawingOf(sample);
    const DrawnText title = textsReading(drawing, "The river").front();
    const DrawnText subTitle = textsReading(drawing, sample.graph.graphSubTitle).front();
    EXPECT_EQ(title.font.size, subTitle.font.size);
    EXPECT_LE(subTitle.width, sample.area.rightEdge - 200);
    EXPECT_GT(subTitle.width / 0.9, sample.area.rightEdge - 200);
}

TEST_F(ProfileGraphTest, WritesOtherTextsInSevenPoints) {
    sample.useArea(1280, 904);
    for (const DrawnText& text : allOf<DrawnText>(drawingOf(sample)))
        if (!text.font.bold) {
            EXPECT_DOUBLE_EQ(text.font.size, 14) << text.text;
        }
}

TEST_F(ProfileGraphTest, MovesTheHeadingAboveTitlesThatAreTooWide) {
    sample.graph.graphTitle = std::string(60, 'm');
    sample.area.rightEdge = 7500;
    const Drawing drawing = drawingOf(sample);
    const DrawnText title = textsReading(drawing, sample.graph.graphTitle).front();
    EXPECT_LE(bottom(textsReading(drawing, "KORVEL RESULTS").front()), title.corner.y + 1e-9);
    EXPECT_LE(bottom(textsReading(drawing, "Date: 01/02/2026").front()), title.corner.y + 1e-9);
}

TEST_F(ProfileGraphTest, NamesTheAxesWithoutTheEndingOfTheSeries) {
    const Drawing drawing = drawingOf(sample);
    EXPECT_EQ(textsReading(drawing, "Flow").size(), 1u);
    EXPECT_EQ(textsReading(drawing, "BOD").size(), 2u);
    EXPECT_TRUE(hasText(drawing, "(Conc)"));
    EXPECT_TRUE(hasText(drawing, "(Load)"));
}

TEST_F(ProfileGraphTest, HeadsEachPanelOfMode2WithSeriesAndReach) {
    sample.plotReaches({2, 3}, 1);
    const Drawing drawing = drawingOf(sample);
    EXPECT_TRUE(hasText(drawing, "BOD (Conc) - Reach 2 reach"));
    EXPECT_TRUE(hasText(drawing, "BOD (Conc) - Reach 3 reach"));
    EXPECT_EQ(textsReading(drawing, "BOD").size(), 2u);
}

TEST_F(ProfileGraphTest, StacksPanelsOnOneLeftEdge) {
    const Drawing drawing = drawingOf(sample);
    const std::vector<DrawnRun> runs = runsOfColour(drawing, colours::lightBlue);
    ASSERT_EQ(runs.size(), 3u);
    for (const DrawnRun& run : runs) {
        EXPECT_DOUBLE_EQ(run.points.front().x, runs[0].points.front().x);
        EXPECT_DOUBLE_EQ(run.points.back().x, runs[0].points.back().x);
    }
    EXPECT_LT(runs[0].points.front().y, runs[1].points.front().y);
    EXPECT_LT(runs[1].points.front().y, runs[2].points.front().y);
}

TEST_F(ProfileGraphTest, LeavesEachOfFiveStackedPanelsItsHeightAboveManyLabels) {
    GraphSample many;
    many.setDeterminands({"BOD", "Ammonia"});
    many.useArea(1280, 700);
    many.addReach(1, "Long", 60);
    for (int k = 0; k < 60; ++k)
        many.addPoint({1, 1.0 * k, "A long name of place " + std::to_string(k), 4});
    for (int series = 0; series <= 4; ++series)
        many.set(ValueField::meanValue, series, 5);
    many.labelAllTypes();
    many.plotSeries({1}, {0, 1, 2, 3, 4});
    const Drawing drawing = drawingOf(many);
    const std::vector<DrawnRun> means = runsOfColour(drawing, colours::lightBlue);
    ASSERT_EQ(means.size(), 5u);
    const double line = allOf<DrawnText>(drawing).back().height;
    for (std::size_t k = 1; k < means.size(); ++k)
        EXPECT_GE(means[k].points[0].y - means[k - 1].points[0].y, 4.5 * line);
}

TEST_F(ProfileGraphTest, LabelsFeaturesUnderOneOfTheStackedPanelsOnly) {
    EXPECT_EQ(textsReading(drawingOf(sample), "Feature 4 (24.0km)").size(), 1u);
}

TEST_F(ProfileGraphTest, LabelsFeaturesUnderEachPanelOfMode2) {
    sample.plotReaches({2, 3}, 1);
    const Drawing drawing = drawingOf(sample);
    EXPECT_TRUE(hasText(drawing, "8.0km"));
    EXPECT_TRUE(hasText(drawing, "12.0km"));
}

TEST_F(ProfileGraphTest, ScrollingMovesTheWholePicture) {
    const Drawing still = drawingOf(sample);
    sample.view.ScrollOffsetX = 2400;
    sample.view.ScrollOffsetY = -1695;
    expectMoved(still, drawingOf(sample), -2400, -1695);
}

TEST_F(ProfileGraphTest, SmallTextPacksTheAxesTighter) {
    const auto numbers = [&] {
        std::ptrdiff_t count = 0;
        for (const int height : {400, 500, 600, 800, 1000}) {
            sample.useArea(1000, height);
            const std::vector<DrawnText> texts = allOf<DrawnText>(drawingOf(sample));
            count += std::count_if(texts.begin(), texts.end(),
                                   [](const DrawnText& text) { return text.font.name == "Arial"; });
        }
        return count;
    };
    const auto large = numbers();
    sample.view.LargeTextMode = 0;
    EXPECT_GT(numbers(), large);
}

TEST_F(ProfileGraphTest, TheKeyNamesTargetsOnlyWhereTheyAreShown) {
    EXPECT_TRUE(hasText(drawingOf(sample), "Quality targets"));
    sample.graph.showTargets = {false, true};
    EXPECT_FALSE(hasText(drawingOf(sample), "Quality targets"));
}

TEST_F(ProfileGraphTest, NamesTheReachesAlongTheDistanceAxis) {
    EXPECT_TRUE(hasText(drawingOf(sample), "Reach 3"));
    sample.graph.displayLevel = 3;
    EXPECT_FALSE(hasText(drawingOf(sample), "Reach 3"));
}

TEST_F(ProfileGraphTest, TheLastDisplayLevelAloneHidesTheNamesOfReaches) {
    sample.graph.displayLevel = 2;
    EXPECT_TRUE(hasText(drawingOf(sample), "Reach 2"));
    sample.graph.displayLevel = 3;
    EXPECT_FALSE(hasText(drawingOf(sample), "Reach 2"));
}

// Where the numbers under the axis are higher than the room there, the graph begins higher.
TEST_F(ProfileGraphTest, KeepsTheNumbersOfTheDistanceAxisInsideALowArea) {
    sample.constants.ScaleX = 6;
    const double least = 0.1 * 6 * 7 * 24;
    for (const double scroll : {0.0, 250.0}) {
        sample.view.ScrollOffsetY = scroll;
        const Drawing drawing = drawingOf(sample);
        const DrawnText zero = textsReading(drawing, "0.0").back();
        EXPECT_GE(drawing.height - bottom(zero) + scroll, least - 1e-6);
        EXPECT_LE(drawing.height - bottom(zero) + scroll, 4 * least);
    }
}

TEST_F(ProfileGraphTest, PanelsOfMode2ShareTheFrameEvenly) {
    sample.plotReaches({1, 2, 3}, 1);
    const Drawing drawing = drawingOf(sample);
    std::vector<DrawnPoint> headings;
    for (const char* reach : {"1", "2", "3"})
        headings.push_back(
            textsReading(drawing, "BOD (Conc) - Reach " + std::string(reach) + " reach").at(0).corner);
    EXPECT_NEAR(headings[0].x, headings[1].x, 1e-6);
    EXPECT_NEAR(headings[2].x - headings[0].x, sample.area.rightEdge / 2, 1e-6);
    EXPECT_NEAR(headings[0].y, headings[2].y, 1e-6);
    EXPECT_GT(headings[1].y, headings[0].y);
}

TEST_F(ProfileGraphTest, DrawsInterpolatedPointsOnlyWhenChosen) {
    sample.results.pointFeatureType.set(3, 99);
    EXPECT_EQ(runsOfColour(drawingOf(sample), colours::lightBlue)[0].points.size(), 14u);
    sample.graph.plotInterpolatedPoints = true;
    EXPECT_EQ(runsOfColour(drawingOf(sample), colours::lightBlue)[0].points.size(), 15u);
}

TEST_F(ProfileGraphTest, CutsInterpolatedPeaksOffAtTheTopOfThePanel) {
    sample.plotSeries({1, 2, 3}, {0});
    sample.graph.plotInterpolatedPoints = true;
    sample.results.pointFeatureType.set(8, 99);
    sample.results.values[0].column(ValueField::meanValue, 0)[8] = 1000;
    const Drawing drawing = drawingOf(sample);
    const std::vector<DrawnRun> runs = runsOfColour(drawing, colours::lightBlue);
    ASSERT_EQ(runs.size(), 2u);
    const double top = runs[0].points.back().y;
    EXPECT_EQ(runs[1].points.front().y, top);
    EXPECT_GT(top, bottom(textsReading(drawing, "Flow").front()));
}

TEST_F(ProfileGraphTest, DrawsAtAnySize) {
    for (const auto& [width, height] : {std::pair{1, 1}, {20, 10}, {300, 60}, {60, 900}, {8000, 100}}) {
        sample.useArea(width, height);
        for (const DrawnPoint& place : placesOf(drawingOf(sample)))
            EXPECT_TRUE(std::isfinite(place.x) && std::isfinite(place.y)) << width;
    }
}

TEST_F(ProfileGraphTest, DrawsEmptyChoicesWithoutPanels) {
    sample.graph = GraphHandOver{};
    const Drawing drawing = drawingOf(sample);
    EXPECT_TRUE(hasText(drawing, "KORVEL RESULTS"));
    EXPECT_FALSE(hasText(drawing, "km"));
}

TEST_F(ProfileGraphTest, PrintsTheSameLayoutWithThePrintersPens) {
    const Drawing screen = drawingOf(sample),
                  paper = drawingOf(sample, GraphForm::graph, OutputTarget::printer);
    expectMoved(screen, paper, 0, 0);
    EXPECT_EQ(runsOfColour(screen, colours::lightBlue)[0].pen.width, 4);
    EXPECT_EQ(runsOfColour(paper, colours::lightBlue)[0].pen.width, 8);
}

TEST_F(ProfileGraphTest, TheCaptureFormWritesTheSameTextsInOneFont) {
    const Drawing capture = drawingOf(sample, GraphForm::capture);
    for (const DrawnText& text : allOf<DrawnText>(capture))
        EXPECT_EQ(text.font.name, "Arial") << text.text;
    EXPECT_EQ(runsOfColour(capture, colours::lightBlue).size(), 3u * 4u);
}

TEST_F(ProfileGraphTest, DrawGraphsDrawsTheSharedState) {
    RESULTS.seriesNames[0] = "Flow";
    GLOBAL = {};
    GLOBAL.graphTitle = "Shared";
    GLOBAL.selectedDeterminands = {0};
    Drawing drawing{.width = 9600, .height = 6780, .commands = {}};
    const FixedTextMetrics metrics;
    GraphPrimitives primitives(drawing, GraphForm::graph, metrics, metrics);
    DrawGraphs(primitives, OutputTarget::screen, {9600, 6780, 9600}, "03/04/2026");
    EXPECT_TRUE(hasText(drawing, "Shared"));
    EXPECT_TRUE(hasText(drawing, "Date: 03/04/2026"));
    EXPECT_EQ(primitives.LabelCount, static_cast<int>(textsOf(drawing).size()));
    GLOBAL = {};
}

} // namespace korvel
