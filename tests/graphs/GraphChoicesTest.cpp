#include "graphs/setup/GraphChoices.h"

#include "graphs/SmallCatchment.h"

#include <gtest/gtest.h>

#include <limits>

namespace korvel {

namespace {

class GraphChoicesTest : public testing::Test {
  protected:
    void SetUp() override {
        fillLists(choices, *results);
        choices.fileLabels[0] = "A.SGR";
        choices.firstDataSetLoaded = true;
    }
    void chooseInMode1() {
        enterDisplayMode1(choices);
        chooseUpstreamReach(choices, 0, *results);
        selectSeries(choices, {true, false, true, false, false});
    }
    void chooseInMode2() {
        enterDisplayMode2(choices);
        choices.determinand = 1;
        selectSites(choices, {false, true, true, false});
    }

    std::unique_ptr<ResultsDataSet> results = smallCatchment();
    GraphChoices choices;
};

using Selection = std::vector<bool>;

const Message wrongLevel{"Percentile level must be 90, 95 or 99.", "Percentile level", Icon::question,
                         Buttons::ok};

} // namespace

TEST(GraphChoices, BeginWithTheDefaults) {
    const GraphChoices choices;
    EXPECT_TRUE(choices.plotMeans && choices.plotQualityTargets && choices.plotObservedValues);
    EXPECT_FALSE(choices.plotPercentiles || choices.plotConfidenceLimits || choices.plotInterpolatedPoints);
    EXPECT_EQ(choices.plotType, PlotType::firstDataSet);
    EXPECT_EQ(choices.percentile, Statistic::p95);
    EXPECT_EQ(choices.selectedFeatures, Selection(7, true));
    EXPECT_TRUE(choices.plotEnabled);
    EXPECT_FALSE(choices.waiting);
}

TEST(GraphChoices, OfferSevenFeatureTypesAndNoSix) {
    const std::vector<std::string> texts(FeatureTypeTexts.begin(), FeatureTypeTexts.end());
    EXPECT_EQ(texts,
              (std::vector<std::string>{"0  Reach boundary", "1  Monitoring station",
                                        "2  Stream or tributary", "3  Sewage discharge",
                                        "4  River flow gauge", "5  Industrial effluent", "7  Abstraction"}));
}

TEST_F(GraphChoicesTest, Mode2TakesTheSelectionsOfMode1Away) {
    chooseInMode1();
    enterDisplayMode2(choices);
    EXPECT_FALSE(choices.displayMode1);
    EXPECT_EQ(choices.upstream, NothingChosen);
    EXPECT_EQ(choices.downstream, NothingChosen);
    EXPECT_EQ(choices.selectedSeries, Selection(5, false));
}

TEST_F(GraphChoicesTest, Mode1TakesTheSelectionsOfMode2Away) {
    chooseInMode2();
    enterDisplayMode1(choices);
    EXPECT_TRUE(choices.displayMode1);
    EXPECT_EQ(choices.determinand, NothingChosen);
    EXPECT_EQ(choices.selectedSites, Selection(4, false));
}

TEST_F(GraphChoicesTest, EnteringTheCurrentModeKeepsItsSelections) {
    chooseInMode1();
    const GraphChoices before = choices;
    enterDisplayMode1(choices);
    EXPECT_EQ(choices, before);
}

TEST_F(GraphChoicesTest, ModesLeaveFeaturesAndOptionsAlone) {
    choices.selectedFeatures = {true, false, true, false, true, false, true};
    choices.plotConfidenceLimits = true;
    enterDisplayMode2(choices);
    enterDisplayMode1(choices);
    EXPECT_EQ(choices.selectedFeatures, (Selection{true, false, true, false, true, false, true}));
    EXPECT_TRUE(choices.plotConfidenceLimits);
}

TEST(FirstSelected, KeepsEntriesFromTheTopUntilTheLimit) {
    EXPECT_EQ(firstSelected({}, 2), Selection{});
    EXPECT_EQ(firstSelected({true, false, true}, 2), (Selection{true, false, true}));
    EXPECT_EQ(firstSelected({true, true, true, false, true}, 2),
              (Selection{true, true, false, false, false}));
}

TEST_F(GraphChoicesTest, HoldsFiveSeriesAndDeselectsThoseBelow) {
    selectSeries(choices, Selection(9, true));
    EXPECT_EQ(selectedIndices(choices.selectedSeries), (std::vector<int>{0, 1, 2, 3, 4}));
}

TEST_F(GraphChoicesTest, ASixthSeriesAboveTakesThePlaceOfTheLastOne) {
    selectSeries(choices, {true, false, true, true, true, true});
    selectSeries(choices, {true, true, true, true, true, true});
    EXPECT_EQ(selectedIndices(choices.selectedSeries), (std::vector<int>{0, 1, 2, 3, 4}));
}

TEST_F(GraphChoicesTest, HoldsSixReachesAndDeselectsThoseBelow) {
    selectSites(choices, Selection(8, true));
    EXPECT_EQ(selectedIndices(choices.selectedSites), (std::vector<int>{0, 1, 2, 3, 4, 5}));
}

TEST_F(GraphChoicesTest, TheUpstreamReachFillsTheDownstreamListAndIsItsDefault) {
    chooseUpstreamReach(choices, 0, *results);
    EXPECT_EQ(choices.downstreamReaches,
              (std::vector<ListedReach>{
                  {1, "1 Upper Mill      "}, {2, "2 Middle Mill     "}, {3, "3 Lower Mill      "}}));
    EXPECT_EQ(choices.downstream, 0);
}

TEST_F(GraphChoicesTest, AnotherUpstreamReachResetsTheDownstreamOne) {
    chooseUpstreamReach(choices, 0, *results);
    choices.downstream = 2;
    chooseUpstreamReach(choices, 1, *results);
    EXPECT_EQ(choices.downstreamReaches.size(), 2U);
    EXPECT_EQ(choices.downstream, 0);
}

TEST_F(GraphChoicesTest, ComparingNeedsTheFirstFilesLabelOnly) {
    choosePlotType(choices, PlotType::comparison);
    EXPECT_EQ(choices.plotType, PlotType::comparison) << "although no second file is loaded";
    choices.fileLabels[0].clear();
    choices.fileLabels[1] = "B.SGR";
    choosePlotType(choices, PlotType::comparison);
    EXPECT_EQ(choices.plotType, PlotType::firstDataSet);
}

TEST_F(GraphChoicesTest, TheSecondDataSetCanBeChosenAlone) {
    choosePlotType(choices, PlotType::secondDataSet);
    EXPECT_EQ(choices.plotType, PlotType::secondDataSet);
}

TEST_F(GraphChoicesTest, ComparingWithBothTickedClearsPercentiles) {
    choices.plotMeans = choices.plotPercentiles = true;
    choosePlotType(choices, PlotType::comparison);
    EXPECT_TRUE(choices.plotMeans);
    EXPECT_FALSE(choices.plotPercentiles);
}

TEST_F(GraphChoicesTest, WhileComparingOneTickClearsTheOther) {
    choosePlotType(choices, PlotType::comparison);
    tickPercentiles(choices, Tick::on);
    EXPECT_FALSE(choices.plotMeans);
    EXPECT_TRUE(choices.plotPercentiles);
    tickMeans(choices, Tick::on);
    EXPECT_TRUE(choices.plotMeans);
    EXPECT_FALSE(choices.plotPercentiles);
    tickMeans(choices, Tick::off);
    EXPECT_FALSE(choices.plotMeans || choices.plotPercentiles);
}

TEST_F(GraphChoicesTest, WithOneDataSetBothCanBeTicked) {
    tickPercentiles(choices, Tick::on);
    EXPECT_TRUE(choices.plotMeans && choices.plotPercentiles);
    choosePlotType(choices, PlotType::secondDataSet);
    EXPECT_TRUE(choices.plotMeans && choices.plotPercentiles);
}

TEST_F(GraphChoicesTest, LevelOptionsSetThePercentileLevel) {
    for (const auto& [percentile, level] :
         {std::pair{Statistic::p90, "90"}, {Statistic::p95, "95"}, {Statistic::p99, "99"}}) {
        choosePercentile(choices, percentile, *results);
        EXPECT_EQ(choices.percentile, percentile);
        EXPECT_EQ(results->percentileLevel, level);
    }
    EXPECT_EQ(results->percentileCaption, "95%-ile") << "the caption waits for the plot";
}

TEST_F(GraphChoicesTest, ALevelOf92GivesTheMessage) {
    EXPECT_EQ(leaveLevelBox("92", *results), wrongLevel);
    EXPECT_EQ(results->reachCount, 92);
}

TEST_F(GraphChoicesTest, AnEmptyLevelBoxGivesNoneAndChangesNothing) {
    EXPECT_EQ(leaveLevelBox("", *results), std::nullopt);
    EXPECT_EQ(results->reachCount, 4);
}

TEST_F(GraphChoicesTest, TheThreeLevelsAreAcceptedAndShareTheReachCount) {
    for (int level : {90, 95, 99}) {
        EXPECT_EQ(leaveLevelBox(std::to_string(level), *results), std::nullopt);
        EXPECT_EQ(results->reachCount, level);
    }
}

TEST_F(GraphChoicesTest, ALevelThatIsNoNumberCountsAs0) {
    for (const char* text : {"abc", " ", "%95", "95x", "95 km", "9 5", "95,", "90 95", "9e1e0"}) {
        results->reachCount = 4;
        EXPECT_EQ(leaveLevelBox(text, *results), wrongLevel) << text;
        EXPECT_EQ(results->reachCount, 0) << text;
    }
}

TEST_F(GraphChoicesTest, ALevelBeyondWholeNumbersGivesTheMessage) {
    using Limits = std::numeric_limits<int>;
    for (const char* text : {"1e300", "1e999", "2147483648"}) {
        EXPECT_EQ(leaveLevelBox(text, *results), wrongLevel) << text;
        EXPECT_EQ(results->reachCount, Limits::max()) << text;
    }
    for (const char* text : {"-1e300", "-1e999"}) {
        EXPECT_EQ(leaveLevelBox(text, *results), wrongLevel) << text;
        EXPECT_EQ(results->reachCount, Limits::min()) << text;
    }
    EXPECT_EQ(leaveLevelBox("90.5", *results), wrongLevel);
    EXPECT_EQ(results->reachCount, 90);
}

TEST_F(GraphChoicesTest, ALevelIsANumberInAnyFormWithBlanksAroundIt) {
    for (const char* text : {" 95 ", "95.0", "+95", "9.5e1", "0.95D2"}) {
        EXPECT_EQ(leaveLevelBox(text, *results), std::nullopt) << text;
        EXPECT_EQ(results->reachCount, 95) << text;
    }
}

TEST(FillLists, FillAnEmptyForm) {
    const auto results = smallCatchment();
    GraphChoices choices;
    fillLists(choices, *results);
    EXPECT_EQ(choices.reaches.size(), 4U);
    EXPECT_EQ(choices.series.size(), 5U);
    EXPECT_EQ(choices.selectedSites, std::vector<bool>(4, false));
    EXPECT_EQ(choices.selectedSeries, std::vector<bool>(5, false));
}

TEST(FillLists, KeepTheSelectionsOfAListThatComesOutAsItWas) {
    const auto results = smallCatchment();
    GraphChoices choices;
    fillLists(choices, *results);
    chooseUpstreamReach(choices, 0, *results);
    selectSeries(choices, {false, true, false, false, false});
    const GraphChoices before = choices;
    fillLists(choices, *results);
    EXPECT_EQ(choices, before);

    results->seriesNames[1] = "Chloride (Conc)";
    fillLists(choices, *results);
    EXPECT_EQ(choices.upstream, 0);
    EXPECT_EQ(choices.selectedSeries, std::vector<bool>(5, false));
}

TEST(CutTitle, CutsATitleOf61CharactersTo60) {
    EXPECT_EQ(cutTitle(std::string(61, 'a')), std::string(60, 'a'));
    EXPECT_EQ(cutTitle(std::string(60, 'a')), std::string(60, 'a'));
    EXPECT_EQ(cutTitle(""), "");
}

TEST(CutTitle, CountsCharactersAsShown) {
    std::string title;
    for (int i = 0; i < 61; ++i)
        title += "\xc3\xa9";
    EXPECT_EQ(cutTitle(title), title.substr(0, 120));
}

} // namespace korvel
