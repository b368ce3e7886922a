// A graph of three reaches to look at, without a form.
#pragma once

#include "fakes/FixedTextMetrics.h"
#include "graphs/DrawnThings.h"
#include "graphs/GraphSample.h"
#include "graphs/draw/ProfileGraph.h"

#include <gtest/gtest.h>

namespace korvel {

inline Drawing drawingOf(const GraphSample& sample, GraphForm form = GraphForm::graph,
                         OutputTarget target = OutputTarget::screen) {
    const FixedTextMetrics metrics;
    Drawing drawing{.width = sample.area.width, .height = sample.area.height, .commands = {}};
    GraphPrimitives primitives(drawing, form, metrics, metrics);
    drawProfileGraph(primitives, target, sample.inputs());
    return drawing;
}

// Three reaches with a feature each quarter, two determinands, and values that grow downstream.
struct ProfileGraphTest : testing::Test {
    GraphSample sample;

    ProfileGraphTest() {
        sample.setDeterminands({"BOD", "Ammonia"});
        for (int reach = 1; reach <= 3; ++reach) {
            sample.addReach(reach, "Reach " + std::to_string(reach) + "         ", 4 * reach);
            for (int k = 0; k <= 4; ++k)
                sample.addPoint({reach, 1.0 * k * reach, "Feature " + std::to_string(k), k});
        }
        for (int series = 0; series <= 4; ++series) {
            std::vector<double> values;
            for (int i = 1; i <= sample.results.pointCount; ++i)
                values.push_back(0.7 * i * (series + 1));
            sample.set(ValueField::meanValue, series, values);
        }
        sample.labelAllTypes();
        sample.graph.showTargets = {true, true};
        sample.graph.graphTitle = "  The river  ";
        sample.graph.graphSubTitle = "in summer";
        sample.plotSeries({1, 2, 3}, {0, 1, 3});
    }
};

inline std::vector<DrawnPoint> placesOf(const Drawing& drawing) {
    std::vector<DrawnPoint> places;
    for (const DrawnCommand& command : drawing.commands) {
        if (const auto* line = std::get_if<DrawnLine>(&command))
            places.insert(places.end(), {line->from, line->to});
        if (const auto* run = std::get_if<DrawnRun>(&command))
            places.insert(places.end(), run->points.begin(), run->points.end());
        if (const auto* marker = std::get_if<DrawnMarker>(&command)) places.push_back(marker->centre);
        if (const auto* text = std::get_if<DrawnText>(&command)) places.push_back(text->corner);
    }
    return places;
}

inline void expectMoved(const Drawing& from, const Drawing& to, double byX, double byY) {
    const std::vector<DrawnPoint> before = placesOf(from), after = placesOf(to);
    ASSERT_EQ(before.size(), after.size());
    for (std::size_t k = 0; k < before.size(); ++k) {
        EXPECT_NEAR(after[k].x, before[k].x + byX, 1e-6);
        EXPECT_NEAR(after[k].y, before[k].y + byY, 1e-6);
    }
}

// The places of the labelled ones among features at 0, `middle` and 10 km.
inline std::vector<double> markedPlaces(double middle, int largeTextMode) {
    GraphSample sample;
    sample.useArea(1280, 904);
    sample.view.LargeTextMode = largeTextMode;
    sample.addReach(1, "Reach 1", 10);
    for (const double distance : {0.0, middle, 10.0})
        sample.addPoint({1, distance, "Gauge", 4});
    sample.labelAllTypes();
    sample.plotSeries({1}, {1});
    std::vector<double> places;
    for (const DrawnLine& line : allOf<DrawnLine>(drawingOf(sample)))
        if (line.pen == Pen{paletteColour(colours::lightGrey), 1, Dash::solid}) places.push_back(line.from.x);
    return places;
}

} // namespace korvel
