#include "graphs/setup/PlottingLists.h"

#include "graphs/SmallCatchment.h"
#include "graphs/setup/ReachLists.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

class PlottingLists : public testing::Test {
  protected:
    void SetUp() override {
        fillLists(choices, *results);
        choices.fileLabels[0] = "A.SGR";
        choices.firstDataSetLoaded = true;
    }
    // From reach 1 down to the one at this place in the chain 1, 2, 3.
    void chooseRun(int downstream) {
        enterDisplayMode1(choices);
        chooseUpstreamReach(choices, 0, *results);
        choices.downstream = downstream;
        selectSeries(choices, {true, false, true, false, false});
    }
    void chooseSites(const std::vector<bool>& sites) {
        enterDisplayMode2(choices);
        choices.determinand = 3;
        selectSites(choices, sites);
    }
    std::optional<Message> prepare() { return prepareGraph(choices, *results, graph, view); }
    void expectMissing(const char* text) {
        EXPECT_EQ(missingData(choices), (Message{text, "Missing data", Icon::exclamation, Buttons::ok}));
    }
    std::vector<int> points(int column) {
        std::vector<int> list;
        for (int j = 1; j <= graph.graphPointCounts[column]; ++j)
            list.push_back(graph.graphPoints[column][j]);
        return list;
    }
    std::vector<double> distances(int column) {
        std::vector<double> list;
        for (int j = 1; j <= graph.graphPointCounts[column]; ++j)
            list.push_back(graph.graphDistances[column][j]);
        return list;
    }
    std::vector<int> labelledTypes() {
        std::vector<int> codes;
        for (int code = 0; code <= 50; ++code)
            if (graph.labelFeatureTypes[code]) codes.push_back(code);
        return codes;
    }

    std::unique_ptr<ResultsDataSet> results = smallCatchment();
    GraphChoices choices;
    GraphHandOver graph;
    GraphView view;
};

using Numbers = std::vector<int>;

} // namespace

TEST_F(PlottingLists, NeedADataSet) {
    choices = {};
    expectMissing("You have not selected a data set");
}

TEST_F(PlottingLists, NeedReachesAndSeriesInMode1) {
    enterDisplayMode1(choices);
    expectMissing("You must select the Upstream Reach");
    choices.upstream = 0;
    expectMissing("You must select the Downstream Reach");
    chooseUpstreamReach(choices, 0, *results);
    expectMissing("You must select one or more determinands.");
    selectSeries(choices, {true, false, false, false, false});
    EXPECT_EQ(missingData(choices), std::nullopt);
}

TEST_F(PlottingLists, NeedReachesAndADeterminandInMode2) {
    enterDisplayMode2(choices);
    expectMissing("You must select one or more reaches.");
    selectSites(choices, {true, false, false, false});
    expectMissing("You must select a determinand.");
    choices.determinand = 0;
    EXPECT_EQ(missingData(choices), std::nullopt);
}

TEST_F(PlottingLists, JoinContiguousReachesToOneDistanceAxis) {
    chooseRun(2);
    EXPECT_EQ(prepare(), std::nullopt);
    EXPECT_TRUE(graph.displayMode1);
    EXPECT_EQ(graph.graphReaches, (Numbers{1, 2, 3}));
    EXPECT_EQ(graph.graphReachCount, 3);
    EXPECT_EQ(points(1), (Numbers{1, 2, 3, 7, 8, 9, 10, 11, 12}));
    EXPECT_EQ(distances(1),
              (std::vector<double>{0, 10 / 3.0, 20 / 3.0, 10, 10 + 20 / 3.0, 10 + 40 / 3.0, 30, 40, 50}));
}

TEST_F(PlottingLists, EndAtTheDownstreamReach) {
    chooseRun(1);
    EXPECT_EQ(prepare(), std::nullopt);
    EXPECT_EQ(graph.graphReaches, (Numbers{1, 2}));
    EXPECT_EQ(graph.graphReachCount, 2);
    EXPECT_EQ(points(1), (Numbers{1, 2, 3, 7, 8, 9}));
}

TEST_F(PlottingLists, GiveEachSeparateReachAColumnThatBeginsAt0) {
    chooseSites({false, true, false, true});
    EXPECT_EQ(prepare(), std::nullopt);
    EXPECT_FALSE(graph.displayMode1);
    EXPECT_EQ(graph.graphReaches, (Numbers{7, 3}));
    EXPECT_EQ(graph.graphReachCount, 2);
    EXPECT_EQ(points(1), (Numbers{4, 5, 6}));
    EXPECT_EQ(points(2), (Numbers{10, 11, 12}));
    EXPECT_EQ(distances(2), (std::vector<double>{0, 10, 20}));
    EXPECT_EQ(points(3), Numbers{});
}

TEST_F(PlottingLists, HandTheSeriesOver) {
    chooseRun(0);
    EXPECT_EQ(prepare(), std::nullopt);
    EXPECT_EQ(graph.selectedDeterminands, (Numbers{0, 2}));
    chooseSites({true, false, false, false});
    EXPECT_EQ(prepare(), std::nullopt);
    EXPECT_EQ(graph.selectedDeterminands, Numbers{3});
}

TEST_F(PlottingLists, ForgetTheListsOfTheGraphBefore) {
    chooseSites({true, true, true, true});
    EXPECT_EQ(prepare(), std::nullopt);
    chooseRun(0);
    EXPECT_EQ(prepare(), std::nullopt);
    EXPECT_EQ(points(1), (Numbers{1, 2, 3}));
    EXPECT_EQ(graph.graphPoints[1][4], 0);
    EXPECT_EQ(graph.graphPoints[2][1], 0);
    EXPECT_EQ(graph.graphDistances[2][2], 0);
}

TEST_F(PlottingLists, TakeTheFirstRunOfPointsOfAReachOnly) {
    results->pointReach.set(12, 1);
    chooseRun(2);
    EXPECT_EQ(prepare(), std::nullopt);
    EXPECT_EQ(points(1), (Numbers{1, 2, 3, 7, 8, 9, 10, 11}));
}

TEST_F(PlottingLists, HoldInterpolatedPointsWhateverTheOptionSays) {
    results->pointFeatureType.set(2, InterpolatedPointType);
    choices.plotInterpolatedPoints = false;
    chooseRun(0);
    EXPECT_EQ(prepare(), std::nullopt);
    EXPECT_EQ(points(1), (Numbers{1, 2, 3}));
}

TEST_F(PlottingLists, EndWithAMessageWhereTheResultsStopWithinTheChosenReaches) {
    results->pointCount = 8; // within reach 2 of the group 1, 2, 3
    view.ZoomFactor = 0.5;
    chooseRun(2);
    EXPECT_EQ(prepare(),
              (Message{"The selected graph cannot be plotted as the Korvel results are incomplete.  This may "
                       "be due to the Korvel run having been stopped by an error before all reaches were "
                       "processed.",
                       "Incomplete Results", Icon::question, Buttons::ok}));
    EXPECT_EQ(view.ZoomFactor, 0.5);
    chooseRun(1);
    EXPECT_EQ(prepare(), std::nullopt) << "reach 2 has points, though not all of them";
    EXPECT_EQ(points(1), (Numbers{1, 2, 3, 7, 8}));
}

TEST_F(PlottingLists, EndWithAMessageForAListedReachThatDoesNotExist) {
    results->typedPercentileLevel() = 5;
    fillLists(choices, *results);
    chooseSites({false, false, false, false, true});
    ASSERT_TRUE(prepare());
    EXPECT_EQ(prepare()->title, "Incomplete Results");
}

TEST_F(PlottingLists, ResetTheView) {
    view = {4, 100, 200, 0};
    chooseRun(0);
    EXPECT_EQ(prepare(), std::nullopt);
    EXPECT_EQ(view.ZoomFactor, 1);
    EXPECT_EQ(view.ScrollOffsetX, 0);
    EXPECT_EQ(view.ScrollOffsetY, 0);
    EXPECT_EQ(view.LargeTextMode, 1);
}

TEST_F(PlottingLists, HandTitlesAndOptionsOver) {
    chooseRun(0);
    choices.title = "  A river ";
    choices.subTitle = " in summer  ";
    choices.plotType = PlotType::comparison;
    choices.percentile = Statistic::p99;
    choices.plotMeans = false;
    choices.plotPercentiles = choices.plotConfidenceLimits = choices.plotInterpolatedPoints = true;
    choices.plotObservedValues = false;
    choices.displayLevel = 2;
    EXPECT_EQ(prepare(), std::nullopt);
    EXPECT_EQ(graph.graphTitle, "A river");
    EXPECT_EQ(graph.graphSubTitle, "in summer");
    EXPECT_EQ(graph.plotType, PlotType::comparison);
    EXPECT_EQ(graph.percentileRow, 2);
    EXPECT_FALSE(graph.plotMeans || graph.plotObservedValues);
    EXPECT_TRUE(graph.plotPercentiles && graph.plotConfidenceLimits && graph.plotInterpolatedPoints);
    EXPECT_EQ(graph.displayLevel, 2);
    EXPECT_EQ(results->resultsTitle, "");
}

TEST_F(PlottingLists, BringADisplayLevelOfTheSettingsFileInto0To3) {
    chooseRun(0);
    for (const auto& [level, expected] : {std::pair{-1, 0}, {0, 0}, {3, 3}, {9, 3}}) {
        choices.displayLevel = level;
        EXPECT_EQ(prepare(), std::nullopt);
        EXPECT_EQ(graph.displayLevel, expected);
    }
}

TEST_F(PlottingLists, TakeTheLevelOfTheLastDeterminandThatNamesOne) {
    chooseRun(0);
    EXPECT_EQ(prepare(), std::nullopt);
    EXPECT_EQ(results->percentileLevel, "95");
    results->determinandStatistics[1] = 3;
    EXPECT_EQ(prepare(), std::nullopt);
    EXPECT_EQ(results->percentileLevel, "90");
    EXPECT_EQ(results->percentileCaption, "90%-ile");
    results->determinandStatistics[2] = 6;
    EXPECT_EQ(prepare(), std::nullopt);
    EXPECT_EQ(results->percentileLevel, "99");
    EXPECT_EQ(results->percentileCaption, "99%-ile");
    EXPECT_EQ(graph.percentileRow, 1) << "the row is the option's";
}

TEST_F(PlottingLists, ShowTargetsThatSuitTheValuesPlotted) {
    const struct {
        int statistic;
        bool withMeans;
        bool withPercentiles;
    } cases[] = {{0, false, false}, {1, true, false}, {2, false, true}, {3, false, true},
                 {4, false, true},  {5, false, true}, {6, false, true}, {7, false, false}};
    chooseRun(0);
    results->determinandCount = 1;
    for (const auto& each : cases) {
        results->determinandStatistics[1] = each.statistic;
        choices.plotMeans = true;
        choices.plotPercentiles = false;
        EXPECT_EQ(prepare(), std::nullopt);
        EXPECT_EQ(graph.showTargets, std::vector<bool>{each.withMeans}) << each.statistic;
        choices.plotMeans = false;
        choices.plotPercentiles = true;
        EXPECT_EQ(prepare(), std::nullopt);
        EXPECT_EQ(graph.showTargets, std::vector<bool>{each.withPercentiles}) << each.statistic;
    }
}

TEST_F(PlottingLists, ShowNoTargetsWithTheirBoxUnticked) {
    chooseRun(0);
    choices.plotQualityTargets = false;
    choices.plotPercentiles = true;
    EXPECT_EQ(prepare(), std::nullopt);
    EXPECT_EQ(graph.showTargets, (std::vector<bool>{false, false}));
}

TEST_F(PlottingLists, GiveTargetEntriesToDeterminandsOfOtherTypesThan4) {
    chooseRun(0);
    results->determinandTypes[1] = 4;
    choices.plotPercentiles = true;
    EXPECT_EQ(prepare(), std::nullopt);
    EXPECT_EQ(graph.showTargets, std::vector<bool>{true}) << "the entry of the second determinand";
}

TEST_F(PlottingLists, LabelAllFeatureTypesByDefault) {
    chooseRun(0);
    EXPECT_EQ(prepare(), std::nullopt);
    EXPECT_EQ(labelledTypes(), (Numbers{0, 1, 2, 3, 4, 5, 7, 10, 17}));
}

TEST_F(PlottingLists, LabelNothingWithEveryFeatureTypeDeselected) {
    chooseRun(0);
    EXPECT_EQ(prepare(), std::nullopt);
    choices.selectedFeatures.assign(7, false);
    EXPECT_EQ(prepare(), std::nullopt);
    EXPECT_EQ(labelledTypes(), Numbers{});
}

TEST_F(PlottingLists, LabelTypes0And10ForReachBoundaries) {
    chooseRun(0);
    const struct {
        int entry;
        Numbers codes;
    } cases[] = {{0, {0, 10}}, {1, {1}}, {3, {3, 17}}, {5, {5}}, {6, {7}}};
    for (const auto& each : cases) {
        choices.selectedFeatures.assign(7, false);
        choices.selectedFeatures[static_cast<std::size_t>(each.entry)] = true;
        EXPECT_EQ(prepare(), std::nullopt);
        EXPECT_EQ(labelledTypes(), each.codes);
    }
}

TEST_F(PlottingLists, HoldTheMostPointsOverTheMostReaches) {
    constexpr int reachCount = 9999;
    results = std::make_unique<ResultsDataSet>();
    results->seriesCount = 0;
    results->seriesNames[0] = "Flow";
    results->reachCount = reachCount;
    results->pointCount = MaxPlottingPoints;
    for (int reach = 1; reach <= reachCount; ++reach) {
        results->reachOrder.push_back(reach);
        results->reachLengths.set(reach, 1);
        results->reachNext.set(reach, reach < reachCount ? reach + 1 : 0);
    }
    for (int point = 1; point <= MaxPlottingPoints; ++point)
        results->pointReach.set(point, std::min((point + 5) / 6, reachCount));
    fillLists(choices, *results);
    enterDisplayMode1(choices);
    chooseUpstreamReach(choices, 0, *results);
    choices.downstream = reachCount - 1;
    selectSeries(choices, {true});
    EXPECT_EQ(prepare(), std::nullopt);
    EXPECT_EQ(graph.graphPointCounts[1], MaxPlottingPoints);
    EXPECT_EQ(graph.graphPoints[1][MaxPlottingPoints], MaxPlottingPoints);
    EXPECT_EQ(graph.graphDistances[1][MaxPlottingPoints], reachCount - 1);
}

} // namespace korvel
