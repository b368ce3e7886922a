#include "panels/PanelDrawing.h"

#include "drawing/paint/DrawingPainter.h"
#include "fakes/FixedTextMetrics.h"
#include "graphs/DrawnThings.h"
#include "graphs/GraphSample.h"
#include "graphs/draw/ProfileGraph.h"
#include "panels/ProfileLayout.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

namespace korvel {

namespace {

QImage painted(const Drawing& drawing) {
    QImage image(static_cast<int>(drawing.width / 15), static_cast<int>(drawing.height / 15),
                 QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    paintOnScreen(drawing, painter);
    painter.end();
    return image;
}

GraphSample riverOfManyPoints(int points, std::mt19937& random) {
    GraphSample sample;
    sample.addReach(1, "Long", 100);
    std::vector<double> distances, values;
    for (int i = 0; i < points; ++i) {
        distances.push_back(std::uniform_real_distribution(0.0, 100.0)(random));
        values.push_back(std::uniform_real_distribution(0.0, 9.0)(random));
    }
    std::ranges::sort(distances);
    for (const double distance : distances)
        sample.addPoint({1, distance, "P", 10});
    sample.set(ValueField::meanValue, 1, values);
    sample.plotSeries({1}, {1});
    sample.useArea(1000, 500);
    return sample;
}

// The values of a graph's curve as a panel has them.
PathValues asPanelsHaveIt(const GraphBlock& block, const PanelCurve& curve) {
    PathValues made;
    made.km = std::make_shared<const std::vector<double>>(block.column.distances);
    for (const int point : block.column.points)
        made.values.push_back(curve.values[static_cast<std::size_t>(point)]);
    made.breaks = {0};
    made.pyramid = RangePyramid(made.values);
    return made;
}

} // namespace

TEST(PanelCurve, PaintsWhatTheGraphPaints) {
    std::mt19937 random(17);
    const FixedTextMetrics metrics;
    for (const int points : {1, 2, 40, 900, 2500, 20000}) {
        const GraphSample sample = riverOfManyPoints(points, random);
        Drawing ofGraph{sample.area.width, sample.area.height, 1440, {}};
        GraphPrimitives primitives(ofGraph, GraphForm::graph, metrics, metrics);
        const GraphLayout graph = drawProfileGraph(primitives, OutputTarget::screen, sample.inputs());
        const GraphBlock& block = graph.blocks.at(0);
        const Panel& panel = block.panels.at(0);

        // The graph's y runs upward.
        PlotArea area = panel.area;
        area.bottom = ofGraph.height - area.bottom;
        area.top = ofGraph.height - area.top;
        Scale value = panel.values.scale;
        value.from = area.bottom;
        value.to = area.top;
        const Scale distance = block.scale;
        bool thinned = false;
        const TracedCurve traced =
            tracedSeries(asPanelsHaveIt(block, panel.curves.at(0)),
                         {area, distance, value, 0.25 * primitives.TxtHeight("0")}, 15, thinned);
        EXPECT_EQ(thinned, points > 2000) << points;

        Drawing ofPanel = ofGraph;
        const Pen pen{paletteColour(looks::first.colour), 4, Dash::solid};
        bool replaced = false;
        for (DrawnCommand& command : ofPanel.commands) {
            if (auto* run = std::get_if<DrawnRun>(&command); run != nullptr && run->pen == pen) {
                ASSERT_EQ(traced.runs.size(), 1U);
                run->points = traced.runs[0];
                replaced = true;
            }
            // A single point is a stroke; another of the same pen stands in the key above the panel.
            auto* line = std::get_if<DrawnLine>(&command);
            if (line != nullptr && line->pen == pen && line->from.y > area.top) {
                ASSERT_EQ(traced.strokes.size(), 1U);
                line->from = traced.strokes[0].from;
                line->to = traced.strokes[0].to;
                replaced = true;
            }
        }
        ASSERT_TRUE(replaced) << points;
        EXPECT_EQ(painted(ofPanel), painted(ofGraph)) << points;
    }
}

} // namespace korvel
