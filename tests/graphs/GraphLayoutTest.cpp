#include "graphs/draw/GraphLayout.h"

#include "fakes/FixedTextMetrics.h"
#include "graphs/DrawnThings.h"
#include "graphs/GraphSample.h"

#include <gtest/gtest.h>

#include <cmath>

namespace korvel {

namespace {

// Two reaches of 6 and 4 km with a point each 2 km.
struct GraphLayoutTest : testing::Test {
    GraphSample sample;
    FixedTextMetrics metrics;
    Drawing drawing{.width = 9600, .height = 6780, .commands = {}};
    GraphPrimitives primitives{drawing, GraphForm::graph, metrics, metrics};
    GraphSheet sheet{primitives, OutputTarget::screen};

    GraphLayoutTest() {
        sample.addReach(1, "Upper", 6);
        sample.addReach(2, "Lower", 4);
        for (const double distance : {0.0, 2.0, 4.0, 6.0})
            sample.addPoint({1, distance, "Weir", 1});
        for (const double distance : {2.0, 4.0})
            sample.addPoint({2, distance, "Weir", 1});
        sample.set(ValueField::meanValue, 0, std::vector<double>{1, 2, 3, 4, 5, 6});
        sample.set(ValueField::meanValue, 1, std::vector<double>{6, 5, 4, 3, 2, 1});
        sample.set(ValueField::observedMean, 1, std::vector<double>{0, 5, 0, 0, 0, 0});
        sample.plotSeries({1, 2}, {0, 1});
    }
    GraphLayout layout() const { return layOutGraph(sample.inputs(), sheet); }
};

} // namespace

TEST_F(GraphLayoutTest, PaintsNothingByItself) {
    layout();
    EXPECT_TRUE(drawing.commands.empty());
}

TEST_F(GraphLayoutTest, PaintsTheSameAfterItWasCopied) {
    const GraphLayout first = layout();
    const GraphLayout copy = first; // NOLINT(performance-unnecessary-copy-initialization): what is tested
    paint(first, sheet);
    const Drawing painted = drawing;
    primitives.CloseGraph();
    paint(copy, sheet);
    EXPECT_EQ(drawing, painted);
}

TEST_F(GraphLayoutTest, HasThePanelsInTheirPlaces) {
    const GraphLayout graph = layout();
    ASSERT_EQ(graph.blocks.size(), 1u);
    const std::vector<Panel>& panels = graph.blocks[0].panels;
    ASSERT_EQ(panels.size(), 2u);
    EXPECT_GT(panels[0].area.bottom, panels[1].area.top);
    EXPECT_EQ(panels[0].area.left, panels[1].area.left);
    EXPECT_EQ(panels[0].values.scale.place(0), panels[0].area.bottom);
    EXPECT_DOUBLE_EQ(panels[0].values.scale.place(panels[0].scale.top), panels[0].area.top);
    EXPECT_EQ(graph.blocks[0].scale.place(0), panels[0].area.left);
    EXPECT_DOUBLE_EQ(graph.blocks[0].scale.place(10), panels[0].area.right);
}

TEST_F(GraphLayoutTest, TellsThePointNearestToAPlace) {
    const GraphLayout graph = layout();
    const GraphBlock& block = graph.blocks[0];
    const double y = block.panels[1].area.bottom + 10;
    const std::pair<double, std::size_t> cases[] = {{0, 0}, {0.9, 0}, {1.1, 1}, {4.6, 2}, {7.5, 4}, {10, 5}};
    for (const auto& [distance, index] : cases)
        EXPECT_EQ(nearestPoint(graph, {block.scale.x(distance), y}), (GraphPoint{0, index})) << distance;
    EXPECT_EQ(nearestPoint(graph, {block.place.left, y}), (GraphPoint{0, 0})) << "left of the axis";
    EXPECT_FALSE(nearestPoint(graph, {block.place.right + 1, y}));
    EXPECT_FALSE(nearestPoint(graph, {block.scale.x(5), block.place.top + 1}));
}

TEST_F(GraphLayoutTest, TellsWhichBlockLiesAtAPlaceInMode2) {
    sample.plotReaches({1, 2}, 1);
    const GraphLayout graph = layout();
    ASSERT_EQ(graph.blocks.size(), 2u);
    const auto at = [&](std::size_t block, double distance) {
        const GraphBlock& shown = graph.blocks[block];
        return nearestPoint(graph, {shown.scale.x(distance), shown.panels[0].area.bottom + 10});
    };
    EXPECT_EQ(at(0, 4.1), (GraphPoint{0, 2}));
    EXPECT_EQ(at(1, 3.9), (GraphPoint{1, 1}));
}

TEST_F(GraphLayoutTest, TellsWhichPanelLiesAtAPlace) {
    const GraphLayout graph = layout();
    const GraphBlock& block = graph.blocks[0];
    for (std::size_t k = 0; k < 2; ++k)
        EXPECT_EQ(panelAt(graph, {block.scale.x(5), block.panels[k].area.bottom + 10}), k);
    EXPECT_FALSE(panelAt(graph, {block.scale.x(5), block.panels[0].area.top + 1}));
}

TEST_F(GraphLayoutTest, TellsWhereAPointIs) {
    const GraphLayout graph = layout();
    const GraphBlock& block = graph.blocks[0];
    const Scale& flow = block.panels[0].values.scale;
    EXPECT_EQ(xOf(graph, {0, 2}), block.scale.x(4));
    EXPECT_EQ(placeOf(graph, {0, 2}, 0, 0), (DrawnPoint{block.scale.x(4), flow.place(3)}));
    const std::size_t observed = block.panels[1].curves.size() - 1;
    EXPECT_EQ(placeOf(graph, {0, 1}, 1, observed).y, block.panels[1].values.scale.place(5));
    EXPECT_TRUE(std::isnan(placeOf(graph, {0, 2}, 1, observed).y)) << "not observed there";
}

TEST_F(GraphLayoutTest, KnowsWhichPointsItHas) {
    const GraphLayout graph = layout();
    EXPECT_TRUE(exists(graph, {0, 5}));
    EXPECT_FALSE(exists(graph, {0, 6}));
    EXPECT_FALSE(exists(graph, {1, 0}));
    EXPECT_FALSE(exists({}, {0, 0}));
}

TEST_F(GraphLayoutTest, IsEmptyWithoutAnyChoice) {
    sample.graph = GraphHandOver{};
    const GraphLayout graph = layout();
    EXPECT_TRUE(graph.blocks.empty());
    EXPECT_FALSE(nearestPoint(graph, {100, 100}));
    EXPECT_FALSE(panelAt(graph, {100, 100}));
}

} // namespace korvel
