#include "results/SecondDataSet.h"

#include "ReaderFixture.h"

namespace korvel {

namespace {

using enum ValueField;

class SecondDataSetChecks : public ReaderFixture {
  protected:
    void SetUp() override { ASSERT_EQ(load(river()), Ending::loaded); }

    void expectAbandoned(const ResultsFileBuilder& file, const std::string& words) {
        EXPECT_EQ(load(file, 1), Ending::abandoned);
        EXPECT_EQ(messages, (std::vector<Message>{{words, "", Icon::exclamation, Buttons::ok}}));
    }
};

ResultsFileBuilder riverWith(int type, const std::string& name) {
    return ResultsFileBuilder().determinand(1, "BOD", 3).determinand(type, name, 6);
}

// The header of river() with other reach lines.
ResultsFileBuilder header() {
    return riverWith(2, "Ammonia");
}

} // namespace

TEST_F(SecondDataSetChecks, LoadTheSameRiverWithoutAWord) {
    ASSERT_EQ(load(river().title("Another title"), 1), Ending::loaded);
    EXPECT_TRUE(messages.empty());
    EXPECT_EQ(results.resultsTitle, "River");
    EXPECT_EQ(results.seriesCount, 4);
    EXPECT_TRUE(results.values[1].everWritten());
    EXPECT_EQ(results.values[1].at(meanLimit1, 3, 4), ResultsFileBuilder::value(3, meanLimit1, 4));
}

TEST_F(SecondDataSetChecks, WarnOfAnotherPercentileModeAndLoad) {
    ASSERT_EQ(load(river().mode(2), 1), Ending::loaded);
    EXPECT_EQ(messages, (std::vector<Message>{{"2nd data set uses different percentile mode.", "",
                                               Icon::exclamation, Buttons::ok}}));
    EXPECT_EQ(results.percentileMode, 0);
    EXPECT_EQ(results.percentileLevel, "95");
    EXPECT_EQ(results.percentileCaption, "95%-ile");
}

TEST_F(SecondDataSetChecks, WarnOfTheModeBeforeALaterRefusal) {
    EXPECT_EQ(load(river().mode(2).determinand(1, "Third"), 1), Ending::abandoned);
    ASSERT_EQ(messages.size(), 2u);
    EXPECT_EQ(messages[0].text, "2nd data set uses different percentile mode.");
    EXPECT_EQ(messages[1].text, "2nd data set has wrong number of determinands.");
}

TEST_F(SecondDataSetChecks, RefuseAnotherNumberOfDeterminands) {
    expectAbandoned(river().determinand(1, "Third"), "2nd data set has wrong number of determinands.");
    expectAbandoned(river().determinandCount("-1"), "2nd data set has wrong number of determinands.");
}

TEST_F(SecondDataSetChecks, RefuseAnotherDeterminandNameOrType) {
    const char* words = "2nd data set has different determinands.";
    expectAbandoned(riverWith(2, "Ammonia."), words);
    expectAbandoned(riverWith(2, "ammonia"), words);
    expectAbandoned(riverWith(1, "Ammonia"), words);
}

TEST_F(SecondDataSetChecks, CompareDeterminandNamesAsRead) {
    const auto named = [](const char* name) { return ResultsFileBuilder().determinand(1, name).points(1); };
    ASSERT_EQ(load(named("BOD..")), Ending::loaded);
    EXPECT_EQ(load(named("BOD.."), 1), Ending::loaded);
    expectAbandoned(named("BOD"), "2nd data set has different determinands.");
}

TEST_F(SecondDataSetChecks, DoNotCompareTheStatisticCode) {
    ASSERT_EQ(load(ResultsFileBuilder().determinand(1, "BOD", 3).points(1)), Ending::loaded);
    EXPECT_EQ(load(ResultsFileBuilder().determinand(1, "BOD", 6).points(1), 1), Ending::loaded);
    EXPECT_EQ(results.determinandStatistics[1], 3);
}

TEST_F(SecondDataSetChecks, CompareALineAfterAllItsFieldsAreRead) {
    EXPECT_EQ(load("T\n0\n2\n9,\"Other\"", 1), Ending::failed);
    EXPECT_TRUE(messages.empty());
}

TEST_F(SecondDataSetChecks, FailOnANegativeCountThoughTheFirstFileHadIt) {
    const auto negative = ResultsFileBuilder().determinandCount("-2147483648").reachCount("0");
    ASSERT_EQ(load(negative), Ending::failed);
    EXPECT_EQ(load(negative, 1), Ending::failed);
}

TEST_F(SecondDataSetChecks, RefuseAnotherNumberOfReaches) {
    expectAbandoned(river().reach(3, "Third"), "2nd data set has different number of reaches.");
}

TEST_F(SecondDataSetChecks, CompareTheLevelTypedWhereTheNumberOfReachesStands) {
    results.typedPercentileLevel() = 90;
    expectAbandoned(river(), "2nd data set has different number of reaches.");
}

TEST_F(SecondDataSetChecks, RefuseAReachOfAnotherNameLengthOrNext) {
    const char* words = "2nd data set has different reach data.";
    const auto second = [&](const char* name, double length, int next) {
        return header().reach(1, "Upper Mill", 12.5, 2).reach(2, name, length, next);
    };
    expectAbandoned(second("Lower Mull", 7.25, 0), words);
    expectAbandoned(second("Lower Mill", 7.24, 0), words);
    expectAbandoned(second("Lower Mill", 7.25, 3), words);
    expectAbandoned(header().reach(1, "Upper Mill", 12.5, 2).reach(3, "Lower Mill", 7.25, 0), words);
}

TEST_F(SecondDataSetChecks, FindReachesByTheirNumberInAnyOrder) {
    EXPECT_EQ(load(header().reach(2, "Lower Mill", 7.25, 0).reach(1, "Upper Mill", 12.5, 2), 1),
              Ending::loaded);
    EXPECT_EQ(results.reachOrder, (std::vector<int>{1, 2}));
}

TEST_F(SecondDataSetChecks, FailOnAReachNumberOutsideItsExtent) {
    EXPECT_EQ(load(header().reachLine("-999 Mill").reach(2, "Lower Mill", 7.25, 0), 1), Ending::failed);
}

TEST_F(SecondDataSetChecks, RefuseAMovedPoint) {
    const char* words = "2nd data set has different reach or feature data.";
    const auto reaches = [] {
        return header().reach(1, "Upper Mill", 12.5, 2).reach(2, "Lower Mill", 7.25, 0);
    };
    expectAbandoned(reaches().point(1, 0, "Weir").point(1, 3.5000001, "Works"), words);
    expectAbandoned(reaches().point(1, 0, "Weir").point(2, 3.5, "Works"), words);
}

TEST_F(SecondDataSetChecks, RefuseAPointTooMany) {
    expectAbandoned(river().point(2, 2, "Extra"), "2nd data set has different reach or feature data.");
    EXPECT_EQ(results.pointCount, 3);
}

TEST_F(SecondDataSetChecks, KeepTheValuesReadBeforeARefusal) {
    const auto reaches = header().reach(1, "Upper Mill", 12.5, 2).reach(2, "Lower Mill", 7.25, 0);
    EXPECT_EQ(load(ResultsFileBuilder(reaches).point(1, 0, "Weir").point(1, 9, "Moved"), 1),
              Ending::abandoned);
    EXPECT_EQ(results.values[1].at(meanValue, 1, 4), ResultsFileBuilder::value(1, meanValue, 4));
    EXPECT_EQ(results.values[1].at(meanValue, 2, 4), 0);
}

TEST_F(SecondDataSetChecks, DropLabelAndFeatureTypeOfTheSecondFile) {
    const auto reaches = header().reach(1, "Upper Mill", 12.5, 2).reach(2, "Lower Mill", 7.25, 0);
    ASSERT_EQ(load(ResultsFileBuilder(reaches).point(1, 0, "Other", 99).point(1, 3.5, "Names", 1), 1),
              Ending::loaded);
    EXPECT_EQ(results.pointLabel[1], "Weir");
    EXPECT_EQ(results.pointFeatureType[1], 0);
    EXPECT_FALSE(results.hasInterpolatedPoints);
}

TEST_F(SecondDataSetChecks, AcceptAFileThatStopsOnePointEarlyAndShortenTheFirst) {
    const auto reaches = header().reach(1, "Upper Mill", 12.5, 2).reach(2, "Lower Mill", 7.25, 0);
    ASSERT_EQ(load(ResultsFileBuilder(reaches).point(1, 0, "Weir").point(1, 3.5, "Works"), 1),
              Ending::loaded);
    EXPECT_TRUE(messages.empty());
    EXPECT_EQ(results.pointCount, 2);
    EXPECT_EQ(results.pointReach[3], 0);
    EXPECT_EQ(results.reachCount, 2);
}

TEST_F(SecondDataSetChecks, LeaveTheLargestValuesAlone) {
    const double largest = results.seriesMaximum[1];
    ASSERT_EQ(load(river().set(meanValue, 1, 1e9), 1), Ending::loaded);
    EXPECT_EQ(results.seriesMaximum[1], largest);
}

TEST_F(SecondDataSetChecks, WarnOnceOfOtherTargets) {
    ASSERT_EQ(load(river().set(targetValue, 1, 3).set(targetValue, 4, 5), 1), Ending::loaded);
    EXPECT_EQ(messages, (std::vector<Message>{{"2nd set of data has different quality targets. These quality "
                                               "targets have been ignored.",
                                               "Warning", Icon::exclamation, Buttons::ok}}));
    EXPECT_EQ(results.values[1].at(targetValue, 3, 4), 5);
}

TEST_F(SecondDataSetChecks, CompareTargetsOfPointsThereAreOnly) {
    ASSERT_EQ(load(river().set(targetValue, 4, 5)), Ending::loaded);
    const auto reaches = header().reach(1, "Upper Mill", 12.5, 2).reach(2, "Lower Mill", 7.25, 0);
    ASSERT_EQ(load(ResultsFileBuilder(reaches).point(1, 0, "Weir").point(1, 3.5, "Works"), 1),
              Ending::loaded);
    EXPECT_TRUE(messages.empty());
}

TEST_F(SecondDataSetChecks, LoadTwiceInARow) {
    ASSERT_EQ(load(river(), 1), Ending::loaded);
    ASSERT_EQ(load(river(), 1), Ending::loaded);
    EXPECT_EQ(results.seriesCount, 4);
}

TEST_F(SecondDataSetChecks, FailOnThe60000thPoint) {
    ResultsFileBuilder file;
    ASSERT_EQ(load(file.reach(1, "Mill").points(59999)), Ending::loaded);
    ASSERT_EQ(load(file, 1), Ending::loaded);
    EXPECT_EQ(load(file.point(1, 9, "One too many"), 1), Ending::failed);
    EXPECT_TRUE(messages.empty());
}

} // namespace korvel
