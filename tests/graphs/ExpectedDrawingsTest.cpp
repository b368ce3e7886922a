// Whole graphs against the files in tests/data/drawings. Where a change is wanted, look at the picture first,
// then run this program with KORVEL_ACCEPT_DRAWINGS=1, which writes the files anew, and commit them with the
// change.

#include "basic/Numbers.h"
#include "fakes/FixedTextMetrics.h"
#include "graphs/GraphSample.h"
#include "graphs/draw/ProfileGraph.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <fstream>
#include <sstream>

namespace korvel {

namespace {

// To a hundredth of a unit, so that another compiler's last digit does not count.
std::string number(double value) {
    return formatPattern(value, "0.00");
}
std::string place(DrawnPoint point) {
    return number(point.x) + " " + number(point.y);
}
std::string penText(const Pen& pen) {
    const Rgb& colour = pen.colour;
    return " pen " + std::to_string(colour.red) + "," + std::to_string(colour.green) + "," +
           std::to_string(colour.blue) + " width " + number(pen.width) + " dash " +
           std::to_string(static_cast<int>(pen.dash));
}

struct CommandText {
    std::string operator()(const DrawnLine& line) const {
        return "line " + place(line.from) + " to " + place(line.to) + penText(line.pen);
    }
    std::string operator()(const DrawnRun& run) const {
        std::string text = "run";
        for (const DrawnPoint& point : run.points)
            text += " (" + place(point) + ")";
        return text + penText(run.pen);
    }
    std::string operator()(const DrawnMarker& marker) const {
        return "cross " + place(marker.centre) + " half " + number(marker.half) + penText(marker.pen);
    }
    std::string operator()(const DrawnBand& band) const {
        return "band of " + std::to_string(band.above.size() + band.below.size()) + " points";
    }
    std::string operator()(const DrawnText& text) const {
        return "text \"" + text.text + "\" at " + place(text.corner) + " size " + number(text.font.size) +
               " " + text.font.name + (text.font.bold ? " bold" : "");
    }
};

std::string textOf(const Drawing& drawing) {
    std::string text = "area " + number(drawing.width) + " by " + number(drawing.height) + "\n";
    for (const DrawnCommand& command : drawing.commands)
        text += std::visit(CommandText{}, command) + "\n";
    return text;
}

void expectDrawing(const GraphSample& sample, const std::string& name) {
    const FixedTextMetrics metrics;
    Drawing drawing{.width = sample.area.width, .height = sample.area.height, .commands = {}};
    GraphPrimitives primitives(drawing, GraphForm::graph, metrics, metrics);
    drawProfileGraph(primitives, OutputTarget::screen, sample.inputs());
    const std::string text = textOf(drawing), file = std::string(DRAWINGS_FOLDER) + "/" + name + ".txt";
    if (std::getenv("KORVEL_ACCEPT_DRAWINGS")) std::ofstream(file) << text;
    std::ostringstream expected;
    expected << std::ifstream(file).rdbuf();
    EXPECT_EQ(text, expected.str()) << "see the note at the top of ExpectedDrawingsTest.cpp";
}

// Two short reaches with a works between them.
GraphSample valley() {
    GraphSample sample;
    sample.addReach(3, "Upper Mill      ", 6);
    sample.addReach(9, "Lower Marsh     ", 4);
    sample.addPoint({3, 0, "Start of reach Upper Mill", 0});
    sample.addPoint({3, 2, "Bridge", 1});
    sample.addPoint({3, 4, "between", 99});
    sample.addPoint({3, 6, "End of reach Upper Mill", 0});
    sample.addPoint({9, 0.5, "Works", 3});
    sample.addPoint({9, 4, "End of reach Lower Marsh", 0});
    sample.set(ValueField::meanValue, 0, std::vector<double>{1, 1.2, 1.3, 1.4, 1.9, 2});
    sample.set(ValueField::meanValue, 1, std::vector<double>{2, 1.8, 1.7, 1.6, 4.5, 3.5});
    sample.set(ValueField::meanLimit1, 1, std::vector<double>{1.5, 1.4, 1.3, 1.2, 3.5, 3});
    sample.set(ValueField::meanLimit2, 1, std::vector<double>{2.5, 2.4, 2.3, 2.2, 5.5, 4});
    sample.set(ValueField::targetValue, 1, std::vector<double>{3, 3, 3, 3, 4, 4});
    sample.set(ValueField::observedMean, 1, std::vector<double>{0, 1.7, 0, 0, 0, 0});
    sample.set(ValueField::percentileValues, 1, std::vector<double>{4, 3.8, 3.7, 3.6, 9.5, 8}, 0, 1);
    sample.graph.showTargets = {true};
    sample.graph.plotConfidenceLimits = true;
    sample.graph.graphTitle = "Two reaches";
    sample.labelAllTypes();
    return sample;
}

} // namespace

TEST(ExpectedDrawings, TwoSeriesAlongTwoReaches) {
    GraphSample sample = valley();
    sample.plotSeries({3, 9}, {0, 1});
    expectDrawing(sample, "two-series");
}

TEST(ExpectedDrawings, OneSeriesInTwoReaches) {
    GraphSample sample = valley();
    sample.graph.plotPercentiles = true;
    sample.graph.graphSubTitle = "means and percentiles";
    sample.useArea(1366, 768);
    sample.plotReaches({3, 9}, 1);
    expectDrawing(sample, "two-reaches");
}

TEST(ExpectedDrawings, ZoomedAndScrolledComparison) {
    GraphSample sample = valley();
    sample.set(ValueField::meanValue, 1, std::vector<double>{1, 0.9, 0.8, 0.8, 2.5, 2}, 1);
    sample.graph.plotType = PlotType::comparison;
    sample.graph.plotInterpolatedPoints = true;
    sample.view = {0.5, 1200, -600, 0};
    sample.plotSeries({3, 9}, {1});
    expectDrawing(sample, "comparison");
}

} // namespace korvel
