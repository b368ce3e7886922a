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

} // namespace korvel
