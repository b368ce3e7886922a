#include "graphs/draw/PrintGraph.h"

#include "basic/DiskNames.h"
#include "fakes/FakePlatform.h"
#include "global/GLOBAL.h"
#include "graphs/DrawnThings.h"
#include "graphs/GraphSample.h"
#include "graphs/draw/ProfileGraph.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

// What the graph form would show: two series along two reaches, with every kind of line.
class PrintGraphTest : public testing::Test {
  protected:
    PrintGraphTest() {
        GLOBAL = {};
        sample.addReach(3, "Upper Mill      ", 6);
        sample.addReach(9, "Lower Marsh     ", 4);
        sample.addPoint({3, 0, "Head", 0});
        sample.addPoint({3, 3, "Works", 3});
        sample.addPoint({9, 4, "Mouth", 0});
        for (const int series : {0, 1}) {
            sample.set(ValueField::meanValue, series, std::vector<double>{1, 3, 2});
            sample.set(ValueField::percentileValues, series, std::vector<double>{2, 6, 4}, 0, 1);
        }
        sample.set(ValueField::targetValue, 1, 5);
        sample.set(ValueField::observedMean, 1, std::vector<double>{0, 2.5, 0});
        sample.graph.showTargets = {true};
        sample.graph.plotPercentiles = true;
        sample.graph.graphTitle = "Two reaches";
        sample.labelAllTypes();
        sample.plotSeries({3, 9}, {0, 1});
        RESULTS = std::move(sample.results);
        static_cast<GraphHandOver&>(GLOBAL) = sample.graph;
        GLOBAL.fileNames[0] = platform.pathOf("RIVER.SGR");
    }
    ~PrintGraphTest() override {
        GLOBAL = {};
        RESULTS = ResultsDataSet();
    }

    Drawing onScreen() {
        Drawing drawing{.width = area.width, .height = area.height, .commands = {}};
        const FixedTextMetrics metrics;
        GraphPrimitives primitives(drawing, GraphForm::graph, metrics, metrics);
        DrawGraphs(primitives, OutputTarget::screen, area, dayMonthYear(platform.day));
        return drawing;
    }

    FakePlatform platform;
    GraphSample sample;
    DrawingArea area{9600, 6780, 9600};
};

// The same command but for the pen's width.
DrawnCommand withPenWidth(DrawnCommand command, double width) {
    if (auto* line = std::get_if<DrawnLine>(&command)) line->pen.width = width;
    if (auto* run = std::get_if<DrawnRun>(&command)) run->pen.width = width;
    if (auto* marker = std::get_if<DrawnMarker>(&command)) marker->pen.width = width;
    return command;
}

double penWidthOf(const DrawnCommand& command) {
    if (const auto* line = std::get_if<DrawnLine>(&command)) return line->pen.width;
    if (const auto* run = std::get_if<DrawnRun>(&command)) return run->pen.width;
    if (const auto* marker = std::get_if<DrawnMarker>(&command)) return marker->pen.width;
    return 0;
}

} // namespace

TEST_F(PrintGraphTest, SendsOneLandscapePage) {
    PrintGraph(platform, area);
    EXPECT_EQ(platform.takeTranscript(), "print landscape \"RIVER.SGR\"\npage\nfinish\n");
    ASSERT_EQ(platform.printed().size(), 1U);
    const PrintedJob& job = platform.printed().front();
    EXPECT_TRUE(job.finished);
    EXPECT_EQ(job.request.fallbackFile, platform.pathOf("RIVER-graph.pdf"));
    ASSERT_EQ(job.pages.size(), 1U);
    EXPECT_EQ(job.pages.front(), printedGraph(platform, area));
}

TEST_F(PrintGraphTest, PrintsWhatTheScreenShowsInItsOwnLineWidths) {
    const Drawing screen = onScreen(), page = printedGraph(platform, area);
    EXPECT_EQ(page.width, screen.width);
    EXPECT_EQ(page.height, screen.height);
    EXPECT_TRUE(hasText(page, "Date: 05/11/2026"));
    ASSERT_EQ(page.commands.size(), screen.commands.size());
    int thick = 0;
    for (std::size_t i = 0; i < page.commands.size(); ++i) {
        const double width = penWidthOf(page.commands[i]);
        EXPECT_EQ(withPenWidth(screen.commands[i], width), page.commands[i]) << i;
        EXPECT_TRUE(width == 0 || width == 1 || width == 8) << width;
        if (width == 8) thick += std::holds_alternative<DrawnMarker>(page.commands[i]) ? 2 : 1;
    }
    EXPECT_GE(thick, 8) << "strokes: two curves in two panels, a cross, and the key";
}

TEST_F(PrintGraphTest, PrintsCurvesAndCrossesThickAndTheRestThin) {
    const Drawing page = printedGraph(platform, area);
    const auto curves = runsOfColour(page, colours::lightBlue);
    ASSERT_EQ(curves.size(), 2U);
    for (const DrawnRun& curve : curves)
        EXPECT_EQ(curve.pen.width, 8);
    const std::vector<DrawnMarker> crosses = allOf<DrawnMarker>(page);
    EXPECT_GE(crosses.size(), 1u);
    for (const DrawnMarker& cross : crosses)
        EXPECT_EQ(cross.pen, (Pen{paletteColour(colours::black), 8, Dash::solid})) << "thin on the screen";
    for (const DrawnLine& line : linesOfColour(page, colours::darkGrey))
        EXPECT_EQ(line.pen.width, 1);
}

TEST_F(PrintGraphTest, SaysWhereThePageWentWithoutAPrinter) {
    platform.printedTo = platform.pathOf("RIVER-graph.pdf");
    platform.willAnswer(Answer::ok);
    PrintGraph(platform, area);
    EXPECT_EQ(platform.takeTranscript(), "print landscape \"RIVER.SGR\"\npage\nfinish\n"
                                         "box [information] Printer: There is no printer, so the pages were "
                                         "written to " +
                                             hostPathOf(platform.pathOf("RIVER-graph.pdf")) + ". -> ok\n");
}

TEST_F(PrintGraphTest, SaysThatThePrinterRefuses) {
    for (const PrintStep step : {PrintStep::begin, PrintStep::page, PrintStep::finish}) {
        platform.willFailPrinting(step);
        platform.willAnswer(Answer::ok);
        PrintGraph(platform, area);
        const std::string transcript = platform.takeTranscript();
        EXPECT_TRUE(transcript.ends_with(
            "\nbox [information] Printer: Your printer is offline or out of paper. -> ok\n"))
            << transcript;
        platform.expectDone();
    }
    for (const PrintedJob& job : platform.printed())
        EXPECT_FALSE(job.finished);
}

TEST_F(PrintGraphTest, TellsAnyOtherFailureInItsOwnWords) {
    platform.willFailPrinting(PrintStep::finish, RunTimeError(errors::diskFull));
    platform.willAnswer(Answer::ok);
    PrintGraph(platform, area);
    EXPECT_EQ(platform.takeTranscript(), "print landscape \"RIVER.SGR\"\npage\nfinish\n"
                                         "box [information] Printer: Disk full -> ok\n");
}

TEST_F(PrintGraphTest, NamesThePageAfterTheResultsFile) {
    GLOBAL.fileNames[0] = "Z:\\A.B\\RIVER";
    PrintGraph(platform, area);
    EXPECT_EQ(platform.printed().front().request.title, "RIVER");
    EXPECT_EQ(platform.printed().front().request.fallbackFile, "Z:\\A.B\\RIVER-graph.pdf");
}

} // namespace korvel
