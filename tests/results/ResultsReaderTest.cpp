#include "results/FirstDataSet.h"

#include "ReaderFixture.h"
#include "results/Statistics.h"

#include <algorithm>

namespace korvel {

namespace {

using enum ValueField;

class ResultsReader : public ReaderFixture {};

} // namespace

TEST(Statistics, AreListedByTheirTable) {
    EXPECT_EQ(statisticNames(), "mean,90,95,99");
    EXPECT_EQ(statisticChoice(), "mean, 90, 95 or 99");
    EXPECT_EQ(levelChoice(), "90, 95 or 99");
    EXPECT_EQ(wordsOf(Statistic::mean), "mean");
    EXPECT_EQ(wordsOf(Statistic::p90), "90 percentile");
}

TEST(Statistics, AreFoundByTheCodeOfAStandard) {
    for (const auto& [code, statistic] :
         {std::pair{1, Statistic::mean}, {2, Statistic::p95}, {3, Statistic::p90}, {6, Statistic::p99}})
        EXPECT_EQ(statisticOfStandard(code), statistic) << code;
    for (const int code : {-1, 0, 4, 5, 7})
        EXPECT_EQ(statisticOfStandard(code), std::nullopt) << code;
}

TEST_F(ResultsReader, KeepsHeaderReachesAndPoints) {
    ASSERT_EQ(load(river()), Ending::loaded);
    EXPECT_TRUE(messages.empty());
    EXPECT_EQ(results.resultsTitle, "River");
    EXPECT_EQ(results.determinandCount, 2);
    EXPECT_EQ(results.seriesCount, 4);
    const char* names[] = {"Flow", "BOD (Conc)", "Ammonia (Conc)", "BOD (Load)", "Ammonia (Load)"};
    for (int c = 0; c <= 4; ++c)
        EXPECT_EQ(results.seriesNames[c], names[c]);
    EXPECT_EQ(results.determinandTypes[2], 2);
    EXPECT_EQ(results.determinandStatistics[1], 3);
    EXPECT_EQ(results.determinandStatistics[2], 6);
    EXPECT_EQ(results.reachCount, 2);
    EXPECT_EQ(results.reachOrder, (std::vector<int>{1, 2}));
    EXPECT_EQ(results.reachNames[1], "Upper Mill      ");
    EXPECT_EQ(results.reachLengths[1], 12.5);
    EXPECT_EQ(results.reachNext[1], 2);
    EXPECT_EQ(results.pointCount, 3);
    EXPECT_EQ(results.pointReach[3], 2);
    EXPECT_EQ(results.pointDistance[2], 3.5);
    EXPECT_EQ(results.pointLabel[2], "Works");
    EXPECT_EQ(results.pointSide[2], "U/S");
    EXPECT_EQ(results.pointFeatureType[2], 3);
    EXPECT_FALSE(results.hasInterpolatedPoints);
}

TEST_F(ResultsReader, TellsWhatKindASeriesIs) {
    ASSERT_EQ(load(river()), Ending::loaded);
    const struct {
        SeriesKind kind;
        int determinand;
        const char* title;
        const char* words;
    } series[] = {{SeriesKind::flow, 0, "Flow", ""},
                  {SeriesKind::concentration, 1, "BOD", "(Conc)"},
                  {SeriesKind::concentration, 2, "Ammonia", "(Conc)"},
                  {SeriesKind::load, 1, "BOD", "(Load)"},
                  {SeriesKind::load, 2, "Ammonia", "(Load)"}};
    for (int c = 0; c <= 4; ++c) {
        EXPECT_EQ(results.kindOf(c), series[c].kind) << c;
        EXPECT_EQ(results.determinandOf(c), series[c].determinand) << c;
        EXPECT_EQ(results.nameOf(c).title, series[c].title);
        EXPECT_EQ(results.nameOf(c).kind, series[c].words);
    }
}

TEST_F(ResultsReader, FindsTheKindOfASeriesWhateverTheDeterminandsName) {
    ASSERT_EQ(load(ResultsFileBuilder().determinand(1, "Iron (Load) (Conc)").reach(1, "Mill")),
              Ending::loaded);
    EXPECT_EQ(results.nameOf(1).title, "Iron (Load) (Conc)");
    EXPECT_EQ(results.nameOf(1).kind, "(Conc)");
    EXPECT_EQ(results.nameOf(2).title, "Iron (Load) (Conc)");
    EXPECT_EQ(results.nameOf(2).kind, "(Load)");
}

TEST_F(ResultsReader, PutsEveryValueInItsPlace) {
    ASSERT_EQ(load(river()), Ending::loaded);
    const ValueStore& values = results.values[0];
    for (int i = 1; i <= 3; ++i) {
        for (int c = 0; c <= 4; ++c) {
            for (ValueField field : {meanValue, observedMean})
                EXPECT_EQ(values.at(field, i, c), ResultsFileBuilder::value(i, field, c));
            for (ValueField field : {meanLimit1, meanLimit2})
                EXPECT_EQ(values.at(field, i, c), c ? ResultsFileBuilder::value(i, field, c) : 0);
            for (int m = 0; m <= 2; ++m) {
                for (ValueField field : {percentileValues, observedPercentiles})
                    EXPECT_EQ(values.at(field, i, c, m), ResultsFileBuilder::value(i, field, c, m));
                for (ValueField field : {percentileLimit1, percentileLimit2})
                    EXPECT_EQ(values.at(field, i, c, m), c ? ResultsFileBuilder::value(i, field, c, m) : 0);
            }
        }
    }
    EXPECT_EQ(values.at(meanValue, 0, 0), 0);
    EXPECT_FALSE(results.values[1].everWritten());
}

TEST_F(ResultsReader, ReadsTargets) {
    ASSERT_EQ(load(river().set(targetValue, 1, 2.5).set(targetValue, 4, 7)), Ending::loaded);
    EXPECT_EQ(results.values[0].at(targetValue, 3, 1), 2.5);
    EXPECT_EQ(results.values[0].at(targetValue, 3, 4), 7);
    EXPECT_EQ(results.values[0].at(targetValue, 2, 1), 0);
}

TEST_F(ResultsReader, KeepsEveryValueOfManyPoints) {
    ASSERT_EQ(load(ResultsFileBuilder().determinand(1, "BOD").reach(1, "Mill").points(1000)), Ending::loaded);
    for (int i = 1; i <= 1000; ++i) {
        ASSERT_EQ(results.values[0].at(meanLimit2, i, 2), ResultsFileBuilder::value(i, meanLimit2, 2));
        ASSERT_EQ(results.values[0].at(percentileValues, i, 0, 2),
                  ResultsFileBuilder::value(i, percentileValues, 0, 2));
    }
    EXPECT_EQ(results.values[0].at(meanLimit2, 1001, 2), 0);
}

TEST_F(ResultsReader, LoadsAHeaderWithoutPoints) {
    ASSERT_EQ(load(ResultsFileBuilder().determinand(1, "BOD").reach(1, "Mill")), Ending::loaded);
    EXPECT_EQ(results.pointCount, 0);
    EXPECT_EQ(results.seriesCount, 2);
    EXPECT_TRUE(results.values[0].everWritten());
}

TEST_F(ResultsReader, SetsLevelAndCaptionByTheMode) {
    const struct {
        int mode;
        const char* level;
        const char* caption;
    } cases[] = {{4, "", ""},          {0, "95", "95%-ile"}, {1, "95", "Mean"},  {2, "90", "90%-ile"},
                 {3, "99", "99%-ile"}, {4, "99", "99%-ile"}, {-1, "95", "Mean"}, {77, "95", "Mean"}};
    for (const auto& [mode, level, caption] : cases) {
        ASSERT_EQ(load(river().mode(mode)), Ending::loaded);
        EXPECT_EQ(results.percentileMode, mode);
        EXPECT_EQ(results.percentileLevel, level) << mode;
        EXPECT_EQ(results.percentileCaption, caption) << mode;
    }
}

TEST_F(ResultsReader, Mode1YieldsLevel95AndCaptionMean) {
    ASSERT_EQ(load(river().mode(1)), Ending::loaded);
    EXPECT_EQ(results.percentileLevel, "95");
    EXPECT_EQ(results.percentileCaption, "Mean");
}

TEST_F(ResultsReader, ShowsADeterminandNameWithoutThePointsAtItsEnd) {
    ASSERT_EQ(load(river().determinand(1, "BOD..")), Ending::loaded);
    EXPECT_EQ(results.seriesNames[3], "BOD (Conc)");
    EXPECT_EQ(results.seriesNames[6], "BOD (Load)");
    EXPECT_EQ(results.determinandNames[3], "BOD..");
}

TEST_F(ResultsReader, TrimsADeterminandName) {
    EXPECT_EQ(shownDeterminandName("  BOD . . "), "BOD");
    EXPECT_EQ(shownDeterminandName("A.B. C"), "A.B. C");
    EXPECT_EQ(shownDeterminandName(" ... "), "");
    EXPECT_EQ(shownDeterminandName(""), "");
}

TEST_F(ResultsReader, LoadsTenDeterminands) {
    ResultsFileBuilder file;
    for (int d = 1; d <= 10; ++d)
        file.determinand(d, "D" + std::to_string(d));
    ASSERT_EQ(load(file.reach(1, "Mill").points(2)), Ending::loaded);
    EXPECT_EQ(results.seriesCount, 20);
    EXPECT_EQ(results.seriesNames[20], "D10 (Load)");
    EXPECT_EQ(results.values[0].at(percentileLimit2, 2, 20, 2),
              ResultsFileBuilder::value(2, percentileLimit2, 20, 2));
}

TEST_F(ResultsReader, KeepsTheLastOfTwoLinesForOneReachAndBothInTheOrder) {
    ASSERT_EQ(load(ResultsFileBuilder().reach(3, "First", 1, 4).reach(3, "Second", 2, 5)), Ending::loaded);
    EXPECT_EQ(results.reachNames[3], "Second          ");
    EXPECT_EQ(results.reachLengths[3], 2);
    EXPECT_EQ(results.reachNext[3], 5);
    EXPECT_EQ(results.reachOrder, (std::vector<int>{3, 3}));
}

TEST_F(ResultsReader, ForgetsReachesButNotReach0AndNotTheNextOnes) {
    ASSERT_EQ(load(ResultsFileBuilder().reach(0, "Zero", 5, 6).reach(9, "Nine", 7, 8)), Ending::loaded);
    ASSERT_EQ(load(ResultsFileBuilder().reach(1, "One")), Ending::loaded);
    EXPECT_EQ(results.reachNames[0], "Zero            ");
    EXPECT_EQ(results.reachLengths[0], 5);
    EXPECT_EQ(results.reachNames[9], "");
    EXPECT_EQ(results.reachLengths[9], -1);
    EXPECT_EQ(results.reachLengths[59999], -1);
    EXPECT_EQ(results.reachNext[0], 6);
    EXPECT_EQ(results.reachNext[9], 8);
    EXPECT_EQ(results.reachOrder, std::vector<int>{1});
}

TEST_F(ResultsReader, NamesTheReachInTheLabelsOfItsEnds) {
    ASSERT_EQ(load(ResultsFileBuilder()
                       .reach(12, "Upper Mill")
                       .point(12, 0, "START of reach 12")
                       .point(12, 10, "end of reach")),
              Ending::loaded);
    EXPECT_EQ(results.pointLabel[1], "Start of reach Upper Mill");
    EXPECT_EQ(results.pointLabel[2], "End of reach Upper Mill");
}

TEST_F(ResultsReader, TakesAPointOnAReachOutsideTheExtentUnlessItsLabelNeedsTheName) {
    EXPECT_EQ(load(ResultsFileBuilder().point(70000, 0, "Weir")), Ending::loaded);
    EXPECT_EQ(results.pointReach[1], 70000);
    EXPECT_EQ(load(ResultsFileBuilder().point(70000, 0, "End of reach")), Ending::failed);
    EXPECT_EQ(failure, errors::subscriptOutOfRange);
}

TEST_F(ResultsReader, RaisesTheMaximaByEveryValueOfAPoint) {
    const std::pair<ValueField, int> fields[] = {
        {meanValue, 0},        {observedMean, 0},     {meanLimit1, 0},
        {meanLimit2, 0},       {targetValue, 0},      {percentileValues, 2},
        {percentileLimit1, 1}, {percentileLimit2, 0}, {observedPercentiles, 1}};
    for (auto [field, level] : fields) {
        ASSERT_EQ(load(river().setAll(1).set(field, 3, 1e6, level)), Ending::loaded);
        EXPECT_EQ(results.seriesMaximum[3], 1e6) << static_cast<int>(field);
        EXPECT_LT(results.seriesMaximum[1], 1e6);
    }
    ASSERT_EQ(load(river().set(meanValue, 0, 1e6)), Ending::loaded);
    EXPECT_EQ(results.seriesMaximum[0], 1e6);
}

TEST_F(ResultsReader, LeavesTheMaximaAt0WhereAllPointsAreInterpolated) {
    ASSERT_EQ(load(river()), Ending::loaded);
    EXPECT_GT(results.seriesMaximum[4], 0);
    ASSERT_EQ(load(ResultsFileBuilder().determinand(1, "BOD").determinand(1, "X").reach(1, "Mill").points(
                  5, 1, InterpolatedPointType)),
              Ending::loaded);
    for (int c = 0; c <= 4; ++c)
        EXPECT_EQ(results.seriesMaximum[c], 0);
    EXPECT_TRUE(results.hasInterpolatedPoints);
}

TEST_F(ResultsReader, StartsTheMaximaAtZero) {
    ASSERT_EQ(load(ResultsFileBuilder().point(1, 0, "P").setAll(-5)), Ending::loaded);
    EXPECT_EQ(results.seriesMaximum[0], 0);
}

TEST_F(ResultsReader, AShorterLoadForgetsThePointsBeyond) {
    ASSERT_EQ(load(river()), Ending::loaded);
    ASSERT_EQ(load(ResultsFileBuilder().point(5, 1, "Only")), Ending::loaded);
    EXPECT_EQ(results.pointCount, 1);
    EXPECT_EQ(results.pointReach[1], 5);
    EXPECT_EQ(results.pointReach[2], 0);
    EXPECT_EQ(results.pointReach[59999], 0);
}

TEST_F(ResultsReader, TellsTheProgressAboutAHundredTimes) {
    TextSource source(ResultsFileBuilder().determinand(1, "BOD").reach(1, "Mill").points(2000).text());
    std::vector<double> shares;
    const LoadWatch watch{[](const Message&) {}, [&](double share) { shares.push_back(share); }};
    readResults(source, results, 0, watch);
    EXPECT_GE(shares.size(), 90u);
    EXPECT_LE(shares.size(), 101u);
    EXPECT_TRUE(std::ranges::is_sorted(shares));
    EXPECT_GT(shares.front(), 0);
    EXPECT_GT(shares.back(), 0.98);
    EXPECT_LE(shares.back(), 1);
}

} // namespace korvel
