#include "graphs/draw/PlottedData.h"

#include "graphs/GraphSample.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

// Two reaches, an interpolated point in the first.
GraphSample twoReaches() {
    GraphSample sample;
    sample.addReach(3, "Upper Mill      ", 6);
    sample.addReach(9, "Lower Marsh     ", 4);
    sample.addPoint({3, 0, "Head", 0});
    sample.addPoint({3, 2.25, "between", 99});
    sample.addPoint({3, 6, "Weir", 1});
    sample.addPoint({9, 4, "Mouth", 0});
    sample.results.pointSide.set(3, "U/S");
    sample.set(ValueField::meanValue, 0, std::vector<double>{1, 1.5, 0, 2});
    sample.set(ValueField::meanValue, 1, std::vector<double>{2.5, 0.1, -3, 1e-7});
    sample.set(ValueField::observedMean, 1, std::vector<double>{0, 7, 4.5, 0});
    sample.set(ValueField::targetValue, 1, std::vector<double>{3, 3, 0, 4});
    sample.graph.showTargets = {true};
    return sample;
}

// Lines with a bar for each tab.
std::string table(std::initializer_list<std::string> lines) {
    std::string text;
    for (std::string line : lines) {
        for (char& c : line)
            if (c == '|') c = '\t';
        text += line + "\n";
    }
    return text;
}

std::string dataOf(const GraphSample& sample) {
    return plottedData(sample.results, sample.graph);
}

std::string headingOf(const GraphSample& sample) {
    const std::string data = dataOf(sample);
    return data.substr(0, data.find('\n') + 1);
}

} // namespace

TEST(PlottedData, HoldsALineForEveryPlottedPointAndACellForEveryCurve) {
    GraphSample sample = twoReaches();
    sample.plotSeries({3, 9}, {0, 1});
    EXPECT_EQ(dataOf(sample),
              table({"Reach|Distance (km)|Feature|Flow mean|Flow observed mean|BOD (Conc) mean|"
                     "BOD (Conc) quality target|BOD (Conc) observed mean",
                     "Upper Mill|0|Head|1||2.5|3|", "Upper Mill|6|U/S Weir|0||-3||4.5",
                     "Lower Marsh|10|Mouth|2||1e-07|4|"}));
}

TEST(PlottedData, HoldsInterpolatedPointsWhereTheyArePlotted) {
    GraphSample sample = twoReaches();
    sample.plotSeries({3}, {1});
    sample.graph.showTargets = {};
    sample.graph.plotInterpolatedPoints = true;
    const std::string interpolated = table({"Upper Mill|2.25|between|0.1|7"});
    EXPECT_EQ(dataOf(sample), table({"Reach|Distance (km)|Feature|BOD (Conc) mean|BOD (Conc) observed mean",
                                     "Upper Mill|0|Head|2.5|"}) +
                                  interpolated + table({"Upper Mill|6|U/S Weir|-3|4.5"}));
    sample.graph.displayLevel = 1;
    EXPECT_EQ(dataOf(sample).find(interpolated), std::string::npos) << "left out by the display level";
    EXPECT_NE(dataOf(sample).find("U/S Weir"), std::string::npos);
}

TEST(PlottedData, LetsReachesFollowOneAnother) {
    GraphSample sample = twoReaches();
    sample.plotReaches({9, 3}, 1);
    sample.graph.plotObservedValues = false;
    EXPECT_EQ(dataOf(sample),
              table({"Reach|Distance (km)|Feature|BOD (Conc) mean|BOD (Conc) quality target",
                     "Lower Marsh|4|Mouth|1e-07|4", "Upper Mill|0|Head|2.5|3", "Upper Mill|6|U/S Weir|-3|"}));
}

TEST(PlottedData, NamesPercentilesAndTheirLimits) {
    GraphSample sample = twoReaches();
    sample.set(ValueField::percentileValues, 1, 5, 0, 2);
    sample.set(ValueField::percentileLimit1, 1, 4, 0, 2);
    sample.set(ValueField::percentileLimit2, 1, 6, 0, 2);
    sample.set(ValueField::observedPercentiles, 1, 7, 0, 2);
    sample.graph.plotMeans = false;
    sample.graph.plotPercentiles = sample.graph.plotConfidenceLimits = true;
    sample.graph.percentileRow = 2;
    sample.plotSeries({9}, {1});
    EXPECT_EQ(dataOf(sample), table({"Reach|Distance (km)|Feature|BOD (Conc) 99%-ile|"
                                     "BOD (Conc) 99%-ile, limit 1|BOD (Conc) 99%-ile, limit 2|"
                                     "BOD (Conc) quality target|BOD (Conc) observed 99%-ile",
                                     "Lower Marsh|4|Mouth|5|4|6|4|7"}));
}

TEST(PlottedData, TellsTwoSetsApart) {
    GraphSample sample = twoReaches();
    sample.graph.plotType = PlotType::comparison;
    sample.graph.showTargets = {};
    sample.plotSeries({9}, {1});
    EXPECT_EQ(headingOf(sample), table({"Reach|Distance (km)|Feature|BOD (Conc) mean, set 1|"
                                        "BOD (Conc) observed mean, set 1"}))
        << "a second set that was never loaded has no curve";
    sample.set(ValueField::meanValue, 1, 0.25, 1);
    EXPECT_EQ(dataOf(sample), table({"Reach|Distance (km)|Feature|BOD (Conc) mean, set 1|"
                                     "BOD (Conc) mean, set 2|BOD (Conc) observed mean, set 1",
                                     "Lower Marsh|4|Mouth|1e-07|0.25|"}));
}

TEST(PlottedData, LeavesOutADataSetThatMayNotBeShown) {
    GraphSample sample = twoReaches();
    sample.graph.plotType = PlotType::comparison;
    sample.graph.plotConfidenceLimits = true;
    sample.graph.showTargets = {};
    sample.set(ValueField::meanValue, 1, 0.25, 1);
    sample.results.slotLoaded[1] = false;
    sample.plotSeries({9}, {1});
    EXPECT_EQ(headingOf(sample),
              table({"Reach|Distance (km)|Feature|BOD (Conc) mean, set 1|BOD (Conc) mean, set 1, limit 1|"
                     "BOD (Conc) mean, set 1, limit 2|BOD (Conc) observed mean, set 1"}));
    sample.graph.plotType = PlotType::secondDataSet;
    EXPECT_EQ(headingOf(sample), table({"Reach|Distance (km)|Feature"}));
}

TEST(PlottedData, KeepsTheTableWholeWhateverANameHolds) {
    GraphSample sample = twoReaches();
    sample.results.reachNames.set(9, "Lower\tMarsh     ");
    sample.results.pointLabel.set(4, "Mouth\r\nof the river");
    sample.results.seriesNames[1] = "BOD\t(Conc)";
    sample.graph.plotObservedValues = false;
    sample.graph.showTargets = {};
    sample.plotSeries({9}, {1});
    EXPECT_EQ(dataOf(sample), table({"Reach|Distance (km)|Feature|BOD (Conc) mean",
                                     "Lower Marsh|4|Mouth  of the river|1e-07"}));
}

TEST(PlottedData, HoldsItsHeadingAloneWithoutPoints) {
    GraphSample sample = twoReaches();
    sample.graph.plotObservedValues = false;
    sample.graph.showTargets = {};
    sample.plotSeries({}, {1});
    EXPECT_EQ(dataOf(sample), table({"Reach|Distance (km)|Feature|BOD (Conc) mean"}));
}

} // namespace korvel
