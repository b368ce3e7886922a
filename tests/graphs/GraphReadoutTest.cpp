#include "graphs/draw/GraphReadout.h"

#include "fakes/FixedTextMetrics.h"
#include "graphs/GraphSample.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

// Two reaches with three points and one; BOD with all that can be drawn of it.
struct GraphReadoutTest : testing::Test {
    GraphSample sample;
    FixedTextMetrics metrics;
    Drawing drawing{.width = 9600, .height = 6780, .commands = {}};
    GraphPrimitives primitives{drawing, GraphForm::graph, metrics, metrics};
    GraphSheet sheet{primitives, OutputTarget::screen};

    GraphReadoutTest() {
        sample.addReach(1, "Upper Mill      ", 6);
        sample.addReach(2, "Lower", 4);
        sample.addPoint({1, 0, "Head", 0});
        sample.addPoint({1, 2.25, "between", 99});
        sample.addPoint({1, 6, "Weir  ", 1});
        sample.addPoint({2, 3.5, "Mouth", 0});
        sample.results.pointSide.set(3, "U/S");
        sample.set(ValueField::meanValue, 0, std::vector<double>{10, 11, 12, 1234.5});
        sample.set(ValueField::meanValue, 1, std::vector<double>{2.5, 2.25, 0, 0.0123});
        sample.set(ValueField::meanLimit1, 1, 2);
        sample.set(ValueField::meanLimit2, 1, 3);
        sample.set(ValueField::observedMean, 1, std::vector<double>{0, 0, 7, 0});
        sample.set(ValueField::targetValue, 1, std::vector<double>{4, 4, 0, 4});
        sample.graph.showTargets = {true};
        sample.graph.plotInterpolatedPoints = true;
        sample.plotSeries({1, 2}, {0, 1});
    }
    GraphLayout layout() const { return layOutGraph(sample.inputs(), sheet); }
    GraphReadout at(std::size_t index, std::size_t block = 0) const {
        return graphReadout(sample.results, layout(), {block, index});
    }
    // "name value" of every value of a panel.
    static std::vector<std::string> values(const ReadoutPanel& panel) {
        std::vector<std::string> texts;
        for (const ReadoutValue& each : panel.values)
            texts.push_back(each.name + " " + each.value);
        return texts;
    }
    static std::vector<std::string> texts(const std::vector<ReadoutLine>& lines) {
        std::vector<std::string> texts;
        for (const ReadoutLine& line : lines)
            texts.push_back(line.value.empty() ? line.text : line.text + " " + line.value);
        return texts;
    }
};

using Texts = std::vector<std::string>;
using Points = std::vector<std::optional<GraphPoint>>;

} // namespace

TEST_F(GraphReadoutTest, TellsWhereThePointLies) {
    const GraphReadout weir = at(2);
    EXPECT_EQ(weir.distance, "6.00 km");
    EXPECT_EQ(weir.reach, "Upper Mill");
    EXPECT_EQ(weir.feature, "U/S Weir");
    EXPECT_EQ(at(1).feature, "interpolated point");
    EXPECT_EQ(at(3).distance, "9.50 km") << "along the plotted run";
    EXPECT_EQ(at(3).reach, "Lower");
}

TEST_F(GraphReadoutTest, TellsEachPanelsValuesAsTheyAreDrawn) {
    const GraphReadout head = at(0);
    ASSERT_EQ(head.panels.size(), 2u);
    EXPECT_EQ(head.panels[0].series, "Flow");
    EXPECT_EQ(head.panels[1].series, "BOD (Conc)");
    EXPECT_EQ(values(head.panels[0]), Texts{"mean 10.00"});
    EXPECT_EQ(values(head.panels[1]), (Texts{"mean 2.500", "quality target 4.000"}));
    EXPECT_EQ(values(at(2).panels[1]), (Texts{"mean 0", "observed mean 7.000"})) << "no target there";
    EXPECT_EQ(values(at(3).panels[0]), Texts{"mean 1234"}) << "as many figures as are worth reading";
    EXPECT_EQ(values(at(3).panels[1]), (Texts{"mean 0.01230", "quality target 4.000"}));
}

TEST_F(GraphReadoutTest, ColoursValuesLikeTheirCurves) {
    const std::vector<ReadoutValue> weir = at(2).panels[1].values;
    EXPECT_EQ(weir[0].colour, looks::first.colour);
    EXPECT_EQ(weir[0].role, CurveRole::main);
    EXPECT_EQ(weir[1].colour, looks::observed.colour);
    EXPECT_EQ(weir[1].role, CurveRole::observed);
    EXPECT_EQ(at(0).panels[1].values[1].colour, looks::targets.colour);
    EXPECT_EQ(at(0).panels[1].values[1].role, CurveRole::target);
}

TEST_F(GraphReadoutTest, PutsLimitsUnderTheirSeries) {
    sample.graph.plotConfidenceLimits = sample.graph.plotPercentiles = true;
    sample.set(ValueField::percentileValues, 1, 5, 0, 1);
    sample.set(ValueField::percentileLimit1, 1, 4.5, 0, 1);
    sample.set(ValueField::percentileLimit2, 1, 5.5, 0, 1);
    const GraphReadout head = at(0);
    EXPECT_EQ(values(head.panels[0]), (Texts{"mean 10.00", "95%-ile 0"})) << "the flow has none";
    EXPECT_EQ(values(head.panels[1]), (Texts{"mean 2.500", "limits 2.000 to 3.000", "95%-ile 5.000",
                                             "limits 4.500 to 5.500", "quality target 4.000"}));
    EXPECT_EQ(head.panels[1].values[3].role, CurveRole::limit);
}

TEST_F(GraphReadoutTest, NamesTheSetsThatAreCompared) {
    sample.graph.plotType = PlotType::comparison;
    sample.set(ValueField::meanValue, 1, 0.5, 1);
    EXPECT_EQ(values(at(2).panels[1]),
              (Texts{"mean, set 1 0", "mean, set 2 0.5000", "observed mean, set 1 7.000"}));
    EXPECT_EQ(at(2).panels[1].values[1].colour, looks::second.colour);
    sample.unload(1);
    EXPECT_EQ(values(at(2).panels[1]), (Texts{"mean, set 1 0", "observed mean, set 1 7.000"}));
}

TEST_F(GraphReadoutTest, TellsOfOneReachInMode2) {
    sample.plotReaches({2, 1}, 1);
    const GraphReadout mouth = at(0);
    EXPECT_EQ(mouth.reach, "Lower");
    EXPECT_EQ(mouth.distance, "3.50 km");
    ASSERT_EQ(mouth.panels.size(), 1u);
    EXPECT_EQ(mouth.panels[0].series, "BOD (Conc)");
    EXPECT_EQ(at(2, 1).feature, "U/S Weir");
}

TEST_F(GraphReadoutTest, StepsFromPointToPointAndStaysAtTheEnds) {
    const GraphLayout graph = layout();
    const auto step = [&](std::optional<GraphPoint> from, PointStep way) {
        return steppedFrom(graph, from, way);
    };
    EXPECT_EQ(step(std::nullopt, PointStep::on), (GraphPoint{0, 0}));
    EXPECT_EQ(step(std::nullopt, PointStep::back), (GraphPoint{0, 3}));
    EXPECT_EQ(step(GraphPoint{0, 1}, PointStep::on), (GraphPoint{0, 2}));
    EXPECT_EQ(step(GraphPoint{0, 1}, PointStep::back), (GraphPoint{0, 0}));
    EXPECT_EQ(step(GraphPoint{0, 3}, PointStep::on), (GraphPoint{0, 3}));
    EXPECT_EQ(step(GraphPoint{0, 0}, PointStep::back), (GraphPoint{0, 0}));
    EXPECT_EQ(step(GraphPoint{4, 9}, PointStep::on), (GraphPoint{0, 0})) << "of another graph";
}

TEST_F(GraphReadoutTest, StepsFromBlockToBlockPastThoseWithoutPoints) {
    sample.addReach(3, "Dry", 5);
    sample.plotReaches({1, 3, 2}, 1);
    const GraphLayout graph = layout();
    ASSERT_EQ(graph.blocks.size(), 3u);
    EXPECT_EQ(steppedFrom(graph, GraphPoint{0, 2}, PointStep::on), (GraphPoint{2, 0}));
    EXPECT_EQ(steppedFrom(graph, GraphPoint{2, 0}, PointStep::back), (GraphPoint{0, 2}));
    EXPECT_EQ(steppedFrom(graph, GraphPoint{2, 0}, PointStep::on), (GraphPoint{2, 0}));
}

TEST_F(GraphReadoutTest, StepsNowhereInAnEmptyGraph) {
    for (const PointStep way : {PointStep::on, PointStep::back})
        EXPECT_FALSE(steppedFrom({}, GraphPoint{0, 0}, way));
}

TEST_F(GraphReadoutTest, SaysAllOfItInOneLine) {
    EXPECT_EQ(spokenText(at(2)), "6.00 km, Upper Mill, U/S Weir. Flow: mean 12.00. BOD (Conc): mean 0, "
                                 "observed mean 7.000.");
    EXPECT_EQ(spokenText({"1.00 km", "", "Head", {{"Flow", {}}}}), "1.00 km, Head. Flow: no values.");
}

TEST_F(GraphReadoutTest, HasALineForEveryValue) {
    sample.graph.plotConfidenceLimits = true;
    EXPECT_EQ(texts(readoutLines(at(2), 10)),
              (Texts{"6.00 km", "Upper Mill", "U/S Weir", "Flow", "mean 12.00", "BOD (Conc)", "mean 0",
                     "limits 2.000 to 3.000", "observed mean 7.000"}));
    EXPECT_EQ(readoutLines(at(2), 9).back().kind, ReadoutLine::Kind::value) << "just enough room";
}

TEST_F(GraphReadoutTest, LeavesOutLimitsFirstThenAllButTheMainSeries) {
    sample.graph.plotConfidenceLimits = true;
    const GraphReadout readout = at(2);
    const Texts place = {"6.00 km", "Upper Mill", "U/S Weir", "Flow", "mean 12.00", "BOD (Conc)", "mean 0"};
    Texts expected = place;
    expected.insert(expected.end(), {"observed mean 7.000", "more than fits here"});
    EXPECT_EQ(texts(readoutLines(readout, 8)).back(), "more than fits here");
    EXPECT_EQ(texts(readoutLines(readout, 8)).size(), 8u);
    EXPECT_EQ(texts(readoutLines(readout, 8))[6], "mean 0");
    EXPECT_EQ(texts(readoutLines(readout, 3)), (Texts{"6.00 km", "Upper Mill", "more than fits here"}));
    EXPECT_EQ(texts(readoutLines(readout, 1)), Texts{"more than fits here"});
    EXPECT_TRUE(readoutLines(readout, 0).empty());
    GraphReadout more = readout;
    more.panels[0].values.push_back({"limits", "1 to 2", 0, CurveRole::limit});
    EXPECT_EQ(texts(readoutLines(more, 9)), expected);
}

TEST_F(GraphReadoutTest, SaysWhichFileIsWhichWhileTwoAreCompared) {
    CheckedArray<std::string, 0, 1> names;
    names[0] = "Z:\\DATA\\ALDER.SGR";
    names[1] = "Z:\\OTHER\\ALDER2.SGR ";
    ShownSlots shown;
    shown[0] = shown[1] = true;
    EXPECT_EQ(comparisonNote(sample.graph, names, shown), "");
    sample.graph.plotType = PlotType::comparison;
    EXPECT_EQ(comparisonNote(sample.graph, names, shown), "Set 1: ALDER.SGR\nSet 2: ALDER2.SGR\nWhere both "
                                                          "are equal, set 2 lies above set 1.");
    shown[1] = false;
    EXPECT_EQ(comparisonNote(sample.graph, names, shown), "Set 1: ALDER.SGR\nSet 2: not loaded\n");
}

} // namespace korvel
