#include "graphs/draw/GraphKey.h"

#include "fakes/FixedTextMetrics.h"
#include "graphs/DrawnThings.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

GraphHandOver bare() {
    GraphHandOver graph;
    graph.plotMeans = graph.plotPercentiles = graph.plotObservedValues = false;
    return graph;
}

ShownSlots slots(bool first, bool second) {
    ShownSlots shown;
    shown[0] = first;
    shown[1] = second;
    return shown;
}

const ShownSlots both = slots(true, true);

std::vector<std::string> texts(const GraphHandOver& graph, Targets targets = Targets::hidden,
                               const ShownSlots& shown = both) {
    std::vector<std::string> found;
    for (const KeyEntry& entry : keyEntries(graph, targets, shown))
        found.push_back(entry.text);
    return found;
}

using Texts = std::vector<std::string>;

} // namespace

TEST(GraphKey, NamesMeansAndPercentilesOfOneDataSet) {
    GraphHandOver graph = bare();
    EXPECT_EQ(texts(graph), Texts{});
    graph.plotMeans = true;
    EXPECT_EQ(texts(graph), Texts{"Mean values"});
    graph.plotPercentiles = true;
    EXPECT_EQ(texts(graph), (Texts{"Mean values", "95% values"}));
    graph.plotType = PlotType::secondDataSet;
    EXPECT_EQ(texts(graph), (Texts{"Mean values", "95% values"}));
}

TEST(GraphKey, SaysThatFlowsAre95WhereQualityIsNot) {
    GraphHandOver graph = bare();
    graph.plotPercentiles = true;
    graph.percentileRow = 0;
    EXPECT_EQ(texts(graph), Texts{"90% values (95% flows)"});
    graph.percentileRow = 2;
    EXPECT_EQ(texts(graph), Texts{"99% values (95% flows)"});
    graph.percentileRow = 3;
    EXPECT_EQ(texts(graph), Texts{"99% values"});
}

TEST(GraphKey, NamesTheSetsOfAComparison) {
    GraphHandOver graph = bare();
    graph.plotType = PlotType::comparison;
    graph.plotMeans = true;
    EXPECT_EQ(texts(graph), (Texts{"Mean values for Set 1", "Mean values for Set 2"}));
    graph.plotMeans = false;
    EXPECT_EQ(texts(graph), (Texts{"95% values for Set 1", "95% values for Set 2"}));
    graph.percentileRow = 0;
    EXPECT_EQ(texts(graph), (Texts{"90% values (95% flows) for Set 1", "90% values (95% flows) for Set 2"}));
}

TEST(GraphKey, ListsLimitsTargetsAndObservedValuesAfterTheSeries) {
    GraphHandOver graph = bare();
    graph.plotMeans = graph.plotConfidenceLimits = graph.plotObservedValues = true;
    EXPECT_EQ(texts(graph, Targets::shown),
              (Texts{"Mean values", "Confidence limits", "Quality targets", "Observed values"}));
}

TEST(GraphKey, LeavesOutADataSetThatMayNotBeShown) {
    GraphHandOver graph = bare();
    graph.plotMeans = graph.plotConfidenceLimits = graph.plotObservedValues = true;
    const Texts oneSet = {"Mean values", "Confidence limits", "Quality targets", "Observed values"};
    EXPECT_EQ(texts(graph, Targets::shown, slots(true, false)), oneSet);
    EXPECT_EQ(texts(graph, Targets::shown, slots(false, true)), Texts{"Quality targets"});
    graph.plotType = PlotType::secondDataSet;
    EXPECT_EQ(texts(graph, Targets::shown, slots(true, false)), Texts{"Quality targets"});
    EXPECT_EQ(texts(graph, Targets::shown, slots(false, true)), oneSet);
    graph.plotType = PlotType::comparison;
    EXPECT_EQ(texts(graph, Targets::hidden, slots(true, false)),
              (Texts{"Mean values for Set 1", "Confidence limits", "Observed values"}));
    EXPECT_EQ(texts(graph, Targets::hidden, slots(false, true)),
              (Texts{"Mean values for Set 2", "Confidence limits"}));
    EXPECT_EQ(texts(graph, Targets::hidden, slots(false, false)), Texts{});
}

TEST(GraphKey, GivesEachSampleItsLook) {
    GraphHandOver graph;
    graph.plotPercentiles = graph.plotConfidenceLimits = true;
    const std::vector<KeyEntry> expected = {{"Mean values", {4, 2, 9}},
                                            {"95% values", {4, 2, 10}},
                                            {"Confidence limits", {0, 0, 0}},
                                            {"Quality targets", {0, 2, 12}},
                                            {"Observed values", {4, 2, 0}, KeySample::cross}};
    EXPECT_EQ(keyEntries(graph, Targets::shown, both), expected);
    graph.plotType = PlotType::comparison;
    EXPECT_EQ(keyEntries(graph, Targets::hidden, both)[0].look, (LineLook{4, 2, 9}));
    EXPECT_EQ(keyEntries(graph, Targets::hidden, both)[1].look, (LineLook{4, 2, 10}));
}

TEST(GraphKey, GoesOnInAnotherLineWhereTheFrameEnds) {
    Drawing drawing{.width = 9600, .height = 6780, .commands = {}};
    const FixedTextMetrics metrics;
    GraphPrimitives primitives(drawing, GraphForm::graph, metrics, metrics);
    primitives.GraphFontSize = 7;
    GraphHandOver graph;
    graph.plotConfidenceLimits = true;
    const double height = primitives.TxtHeight("x");
    const GraphSheet sheet(primitives, OutputTarget::screen);
    const GraphKey key = layOutKey(sheet, keyEntries(graph, Targets::shown, both), {0, 3500, 6000, 50});
    EXPECT_DOUBLE_EQ(key.bottom, 6000 - 2 * height);
    paintKey(sheet, key);
    for (const DrawnText& text : allOf<DrawnText>(drawing))
        EXPECT_LE(text.corner.x + text.width, 3500) << text.text;
    EXPECT_EQ(textsOf(drawing),
              (Texts{"KEY:", "Mean values", "Confidence limits", "Quality targets", "Observed values"}));
}

TEST(GraphKey, HasALineForEachEntryThatIsWiderThanTheFrame) {
    Drawing drawing{.width = 9600, .height = 6780, .commands = {}};
    const FixedTextMetrics metrics;
    GraphPrimitives primitives(drawing, GraphForm::graph, metrics, metrics);
    GraphHandOver graph = bare();
    graph.plotMeans = graph.plotPercentiles = true;
    const GraphSheet sheet(primitives, OutputTarget::screen);
    const GraphKey key = layOutKey(sheet, keyEntries(graph, Targets::hidden, both), {0, 500, 6000, 50});
    paintKey(sheet, key);
    EXPECT_DOUBLE_EQ(key.bottom, 6000 - 2 * primitives.TxtHeight("x"))
        << "the first stands beside the caption";
    const std::vector<DrawnText> texts = allOf<DrawnText>(drawing);
    ASSERT_EQ(texts.size(), 3u);
    EXPECT_EQ(texts[1].corner.y, texts[0].corner.y);
    EXPECT_EQ(texts[2].corner.x, texts[1].corner.x);
}

} // namespace korvel
