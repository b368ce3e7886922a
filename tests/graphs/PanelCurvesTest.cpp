#include "graphs/draw/PanelCurves.h"

#include "graphs/GraphSample.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

// Values that tell field, series, level and slot apart.
double codeOf(ValueField field, int series, int level, int slot) {
    return 1000 * slot + 100 * (1 + static_cast<int>(field)) + 10 * level + series;
}

constexpr ValueField fieldsWithLevels[] = {ValueField::percentileValues, ValueField::percentileLimit1,
                                           ValueField::percentileLimit2, ValueField::observedPercentiles};
constexpr ValueField plainFields[] = {ValueField::meanValue, ValueField::meanLimit1, ValueField::meanLimit2,
                                      ValueField::observedMean, ValueField::targetValue};

struct PanelCurvesTest : testing::Test {
    GraphSample sample;

    PanelCurvesTest() {
        sample.addPoint({1, 0, "", 1});
        for (int slot = 0; slot < 2; ++slot)
            for (int series = 0; series <= 2; ++series)
                fill(slot, series);
        sample.graph.showTargets = {true};
    }
    void fill(int slot, int series) {
        for (const ValueField field : plainFields)
            sample.set(field, series, codeOf(field, series, 0, slot), slot);
        for (const ValueField field : fieldsWithLevels)
            for (int level = 0; level < 3; ++level)
                sample.set(field, series, codeOf(field, series, level, slot), slot, level);
    }
    std::vector<double> drawn(int series = 1) {
        std::vector<double> codes;
        for (const PanelCurve& curve : panelCurves(sample.results, sample.graph, series))
            codes.push_back(curve.values[1]);
        return codes;
    }
    void choose(bool means, bool percentiles, bool limits, bool observed) {
        sample.graph.plotMeans = means;
        sample.graph.plotPercentiles = percentiles;
        sample.graph.plotConfidenceLimits = limits;
        sample.graph.plotObservedValues = observed;
    }
};

using Codes = std::vector<double>;

} // namespace

TEST_F(PanelCurvesTest, DrawsMeansWithTheirLimitsTargetsAndObservedValues) {
    choose(true, false, true, true);
    EXPECT_EQ(drawn(), (Codes{101, 201, 301, 501, 401}));
}

TEST_F(PanelCurvesTest, DrawsPercentilesOfTheChosenRow) {
    choose(false, true, true, true);
    sample.graph.percentileRow = 2;
    EXPECT_EQ(drawn(), (Codes{621, 721, 821, 501, 921}));
}

TEST_F(PanelCurvesTest, DrawsLimitsAndObservedValuesOfBothStatistics) {
    choose(true, true, true, true);
    EXPECT_EQ(drawn(), (Codes{101, 611, 201, 301, 711, 811, 501, 401, 911}));
}

TEST_F(PanelCurvesTest, DrawsNothingThatIsNotChosen) {
    choose(false, false, true, true);
    sample.graph.showTargets = {false};
    EXPECT_EQ(drawn(), Codes{});
}

TEST_F(PanelCurvesTest, FlowsHaveNoLimitsAndNoTargets) {
    choose(true, false, true, true);
    EXPECT_EQ(drawn(0), (Codes{100, 400}));
}

TEST_F(PanelCurvesTest, ASecondSetBringsItsObservedValuesButNotItsTargets) {
    choose(true, false, true, true);
    sample.graph.plotType = PlotType::secondDataSet;
    EXPECT_EQ(drawn(), (Codes{1101, 1201, 1301, 501, 1401}));
}

TEST_F(PanelCurvesTest, AComparisonShowsLimitsOfBothSetsAndObservedValuesOfTheFirst) {
    choose(true, false, true, true);
    sample.graph.plotType = PlotType::comparison;
    EXPECT_EQ(drawn(), (Codes{101, 1101, 201, 301, 1201, 1301, 501, 401}));
    choose(false, true, false, false);
    EXPECT_EQ(drawn(), (Codes{611, 1611, 501}));
}

TEST_F(PanelCurvesTest, AComparisonWithoutAStatisticShowsPercentilesAsItsKeyDoes) {
    choose(false, false, false, false);
    sample.graph.plotType = PlotType::comparison;
    EXPECT_EQ(drawn(), (Codes{611, 1611, 501}));
}

TEST_F(PanelCurvesTest, ASlotThatWasNeverLoadedDrawsNothing) {
    choose(true, false, true, true);
    sample.graph.plotType = PlotType::comparison;
    sample.unload(1);
    EXPECT_EQ(drawn(), (Codes{101, 201, 301, 501, 401}));
}

TEST_F(PanelCurvesTest, ASlotThatMayNotBeShownDrawsNothingThoughItHasValues) {
    choose(true, false, true, true);
    sample.graph.plotType = PlotType::comparison;
    sample.results.slotLoaded[1] = false;
    EXPECT_EQ(drawn(), (Codes{101, 201, 301, 501, 401}));
}

TEST_F(PanelCurvesTest, TargetsAreFoundByCountingDeterminandsThatHaveThem) {
    sample.setDeterminands({"A", "B", "C"});
    sample.results.determinandTypes[2] = 4;
    sample.graph.showTargets = {false, true};
    const bool expected[] = {false, false, false, true, false, false, true}; // flow, conc, load
    for (int series = 0; series <= 6; ++series)
        EXPECT_EQ(showsTargets(sample.results, sample.graph, series), expected[series]) << series;
}

TEST(PlottedColumn, LeavesOutInterpolatedPointsUnlessTheyAreChosen) {
    GraphSample sample;
    sample.addReach(1, "R", 10);
    for (const int type : {0, 99, 1, 99, 0})
        sample.addPoint({1, 2.5 * sample.results.pointCount, "", type});
    sample.plotSeries({1}, {0});
    EXPECT_EQ(plottedColumn(sample.results, sample.graph, 1).points, (std::vector<int>{1, 3, 5}));
    sample.graph.plotInterpolatedPoints = true;
    const PlottedColumn all = plottedColumn(sample.results, sample.graph, 1);
    EXPECT_EQ(all.points, (std::vector<int>{1, 2, 3, 4, 5}));
    EXPECT_EQ(all.scalePoints(), (std::vector<int>{1, 3, 5}));
    EXPECT_EQ(all.highest, 10);
    sample.graph.displayLevel = 1;
    EXPECT_EQ(plottedColumn(sample.results, sample.graph, 1).points, (std::vector<int>{1, 3, 5}));
}

TEST(PlottedColumn, InterpolatedPointsSetTheScaleOnlyWhereThereAreNoOthers) {
    GraphSample sample;
    sample.addReach(1, "R", 10);
    sample.addPoint({1, 0, "", 99});
    sample.addPoint({1, 1, "", 99});
    sample.graph.plotInterpolatedPoints = true;
    sample.plotSeries({1}, {0});
    EXPECT_EQ(plottedColumn(sample.results, sample.graph, 1).scalePoints(), (std::vector<int>{1, 2}));
}

TEST(PlottedColumn, HasADistanceAxisForOnePointToo) {
    GraphSample sample;
    sample.addReach(1, "R", 10);
    sample.addPoint({1, 0, "", 0});
    sample.plotSeries({1}, {0});
    const PlottedColumn column = plottedColumn(sample.results, sample.graph, 1);
    EXPECT_EQ(column.lowest, 0);
    EXPECT_EQ(column.highest, 1);
}

TEST(PlottedColumn, RefusesPointsOutsideTheDataSet) {
    GraphSample sample;
    sample.addPoint({1, 0, "", 0});
    sample.set(ValueField::meanValue, 0, 1.0);
    sample.graph.graphPointCounts[1] = 1;
    sample.graph.graphPoints[1].set(1, 60000);
    EXPECT_THROW(plottedColumn(sample.results, sample.graph, 1), RunTimeError);
    EXPECT_THROW(plottedColumn(sample.results, sample.graph, 7), RunTimeError);
    EXPECT_THROW(panelCurves(sample.results, sample.graph, 21), RunTimeError);
}

TEST(LargestValue, LooksAtAllCurvesAndIsNeverNegative) {
    const std::vector<double> low = {0, 1, 2, -5}, high = {0, -1, 7, 3};
    const std::vector<PanelCurve> curves = {{CurveKind::joined, {}, low}, {CurveKind::crosses, {}, high}};
    EXPECT_EQ(largestValue(curves, {1, 2, 3}), 7);
    EXPECT_EQ(largestValue(curves, {1}), 1);
    EXPECT_EQ(largestValue({{CurveKind::joined, {}, low}}, {3}), 0);
}

} // namespace korvel
