#include "results/FirstDataSet.h"

#include "ReaderFixture.h"
#include "fakes/Rounds.h"

#include <algorithm>
#include <random>

namespace korvel {

namespace {

using enum ValueField;

class ResultsReader : public ReaderFixture {};

std::string trailing(std::string text, std::size_t dropped) {
    return text.substr(0, text.size() - dropped);
}

} // namespace

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

TEST_F(ResultsReader, LoadsWhateverTheGroupingOfTheFields) {
    std::string text = river().text();
    const std::size_t points = text.find("1,0,\"Weir");
    for (std::size_t k = points; k < text.size(); ++k) {
        if (text[k] == '\r') text[k] = ' ';
        if (text[k] == '\n') text[k] = ',';
    }
    ASSERT_EQ(load(text), Ending::loaded);
    EXPECT_EQ(results.pointCount, 3);
    EXPECT_EQ(results.values[0].at(observedPercentiles, 3, 4, 2),
              ResultsFileBuilder::value(3, observedPercentiles, 4, 2));
}

TEST_F(ResultsReader, LoadsAnyKindOfLineEnd) {
    for (const char* end : {"\r\n", "\n", "\r"}) {
        ASSERT_EQ(load(river().lineEnd(end)), Ending::loaded);
        EXPECT_EQ(results.reachNames[2], "Lower Mill      ");
        EXPECT_EQ(results.pointCount, 3);
    }
}

TEST_F(ResultsReader, LoadsAFileWhoseLastLineHasNoEnd) {
    EXPECT_EQ(load(trailing(river().text(), 2)), Ending::loaded);
    EXPECT_EQ(results.pointCount, 3);
}

TEST_F(ResultsReader, IgnoresBlankLinesAndControlZAtTheEnd) {
    EXPECT_EQ(load(river().text() + "\r\n  \r\n\x1a\r\n"), Ending::loaded);
    EXPECT_EQ(results.pointCount, 3);
}

TEST_F(ResultsReader, EndsAtACtrlZDirectlyBehindTheLastField) {
    EXPECT_EQ(load(trailing(river().text(), 2) + "\x1a"), Ending::loaded);
    EXPECT_EQ(results.pointCount, 3);
    EXPECT_EQ(load(trailing(river().text(), 2) + "\x1a\r\n"), Ending::loaded);
    EXPECT_EQ(load(trailing(river().text(), 2) + "\x1a\r\n1"), Ending::failed);
}

TEST_F(ResultsReader, TakesABlankLineInsideAPointAsAnEmptyField) {
    EXPECT_EQ(load(river().set(targetValue, 4, "").text()), Ending::loaded);
    EXPECT_EQ(load("T\n0\n0\n0\n1,2,\"abcd\",0,0\nc\n\n\n\n\nc,1,2,3,4\n"), Ending::loaded);
    EXPECT_EQ(results.values[0].at(meanValue, 1, 0), 0);
    EXPECT_EQ(results.values[0].at(observedMean, 1, 0), 1);
}

TEST_F(ResultsReader, LoadsAHeaderWithoutPoints) {
    ASSERT_EQ(load(ResultsFileBuilder().determinand(1, "BOD").reach(1, "Mill")), Ending::loaded);
    EXPECT_EQ(results.pointCount, 0);
    EXPECT_EQ(results.seriesCount, 2);
    EXPECT_TRUE(results.values[0].everWritten());
}

TEST_F(ResultsReader, DropsWhatStandsBeforeTheTitleAndKeepsItsTrailingBlanks) {
    ASSERT_EQ(load(river().title(" \t\x01 My river  ")), Ending::loaded);
    EXPECT_EQ(results.resultsTitle, "My river  ");
    ASSERT_EQ(load(river().title("\xC9tang, \"quoted\"")), Ending::loaded);
    EXPECT_EQ(results.resultsTitle, "\xC9tang, \"quoted\"");
    ASSERT_EQ(load(river().title(" ")), Ending::loaded);
    EXPECT_EQ(results.resultsTitle, "");
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

TEST_F(ResultsReader, FailsOnElevenDeterminands) {
    ResultsFileBuilder file;
    for (int d = 1; d <= 11; ++d)
        file.determinand(d, "D");
    EXPECT_EQ(load(file.reach(1, "Mill").points(1)), Ending::failed);
}

TEST_F(ResultsReader, FailsOnNegativeCounts) {
    EXPECT_EQ(load(river().determinandCount("-1")), Ending::failed);
    EXPECT_EQ(load(river().reachCount("-1")), Ending::failed);
}

TEST_F(ResultsReader, FailsOnAReachNumberOutsideItsExtent) {
    EXPECT_EQ(load(river().reachLine("-999 Name")), Ending::failed);
    EXPECT_EQ(load(river().reachLine("6e4  Name")), Ending::failed);
    EXPECT_EQ(load(river().reachLine("5e4  Name")), Ending::loaded);
    EXPECT_EQ(load(river().reachLine("9e99 Name")), Ending::failed);
}

TEST_F(ResultsReader, TakesAShortReachLineAsFarAsItGoes) {
    ASSERT_EQ(load(ResultsFileBuilder()
                       .reachLine("   7")
                       .reachLine("   8 Mill")
                       .reachLine("")
                       .reachLine("  12 Upper Mill       12.")),
              Ending::loaded);
    EXPECT_EQ(results.reachOrder, (std::vector<int>{7, 8, 0, 12}));
    EXPECT_EQ(results.reachNames[7], "");
    EXPECT_EQ(results.reachLengths[7], 0);
    EXPECT_EQ(results.reachNames[8], "Mill");
    EXPECT_EQ(results.reachNext[8], 0);
    EXPECT_EQ(results.reachLengths[12], 12);
}

TEST_F(ResultsReader, CutsAReachLineByColumnsOfOneByte) {
    ASSERT_EQ(load(ResultsFileBuilder().reachLine("  12xABCDEFGHIJKLMNOPx     12.50x  34 more")),
              Ending::loaded);
    EXPECT_EQ(results.reachNames[12], "ABCDEFGHIJKLMNOP");
    EXPECT_EQ(results.reachLengths[12], 12.5);
    EXPECT_EQ(results.reachNext[12], 34);
}

TEST_F(ResultsReader, TakesNoDigitThatStandsBesideAColumnOfAReachLine) {
    ASSERT_EQ(load(ResultsFileBuilder().reachLine("  129ABCDEFGHIJKLMNOP9     12.509  349")), Ending::loaded);
    EXPECT_EQ(results.reachOrder, std::vector<int>{12});
    EXPECT_EQ(results.reachNames[12], "ABCDEFGHIJKLMNOP");
    EXPECT_EQ(results.reachLengths[12], 12.5);
    EXPECT_EQ(results.reachNext[12], 34);
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

TEST_F(ResultsReader, IgnoresAFourthFieldOfAnyForm) {
    for (const char* field : {"0", "\"any, text\"", "****", "", "nan", "\"over\r\ntwo lines\""}) {
        ASSERT_EQ(load(ResultsFileBuilder().pointLine("1,2.5,\"Weir   \"," + std::string(field) + ",7")),
                  Ending::loaded)
            << field;
        EXPECT_EQ(results.pointFeatureType[1], 7) << field;
    }
}

TEST_F(ResultsReader, ReadsLabelsWithoutQuotes) {
    ASSERT_EQ(load(ResultsFileBuilder().pointLine("1,2.5,U/S Mill Lane 123,0,7").pointLine("1,3,ab,0,7")),
              Ending::loaded);
    EXPECT_EQ(results.pointLabel[1], "Mill Lane");
    EXPECT_EQ(results.pointLabel[2], "");
}

// A caption is a text: without quotes it runs to its comma, blanks and all.
TEST_F(ResultsReader, ReadsCaptionsWithoutQuotes) {
    std::string text = river().text();
    ASSERT_NE(text.find("\"Observed flow\","), std::string::npos);
    std::erase(text, '"');
    ASSERT_EQ(load(text), Ending::loaded);
    EXPECT_EQ(results.pointCount, 3);
    EXPECT_EQ(results.values[0].at(observedMean, 3, 0), ResultsFileBuilder::value(3, observedMean, 0));
    EXPECT_EQ(results.values[0].at(observedPercentiles, 3, 4, 2),
              ResultsFileBuilder::value(3, observedPercentiles, 4, 2));
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

TEST_F(ResultsReader, Loads59999PointsAndFailsOnOneMore) {
    ResultsFileBuilder file;
    ASSERT_EQ(load(file.reach(1, "Mill").points(59999)), Ending::loaded);
    EXPECT_EQ(results.pointCount, 59999);
    EXPECT_EQ(results.values[0].at(meanValue, 59999, 0), ResultsFileBuilder::value(59999, meanValue, 0));
    EXPECT_EQ(load(file.point(1, 9, "One too many")), Ending::failed);
    EXPECT_EQ(failure, errors::subscriptOutOfRange);
    EXPECT_EQ(results.pointCount, 59999);
}

TEST_F(ResultsReader, AShorterLoadForgetsThePointsBeyond) {
    ASSERT_EQ(load(river()), Ending::loaded);
    ASSERT_EQ(load(ResultsFileBuilder().point(5, 1, "Only")), Ending::loaded);
    EXPECT_EQ(results.pointCount, 1);
    EXPECT_EQ(results.pointReach[1], 5);
    EXPECT_EQ(results.pointReach[2], 0);
    EXPECT_EQ(results.pointReach[59999], 0);
}

TEST_F(ResultsReader, FailsOnNumbersThatAreNone) {
    for (const char* word : {"****", "nan", "inf", "abc", "1e400"})
        EXPECT_EQ(load(river().set(meanValue, 1, word)), Ending::failed) << word;
    EXPECT_EQ(load(river().set(meanValue, 1, "1e-400")), Ending::loaded);
    EXPECT_EQ(results.values[0].at(meanValue, 3, 1), 0);
    EXPECT_EQ(load(river().set(meanValue, 1, "1.5D+2")), Ending::loaded);
    EXPECT_EQ(results.values[0].at(meanValue, 3, 1), 150);
}

TEST_F(ResultsReader, FailsOnEveryCutThatTakesAField) {
    const std::string whole = ResultsFileBuilder().determinand(1, "BOD").points(1).text();
    const std::size_t header = whole.find("1,0,\"P");
    for (std::size_t size = 0; size <= whole.rfind(',') + 1; ++size) {
        const bool isHeader = size + 2 >= header && size <= header;
        EXPECT_EQ(load(whole.substr(0, size)), isHeader ? Ending::loaded : Ending::failed) << size;
    }
}

TEST_F(ResultsReader, KeepsTheValuesReadBeforeAFailure) {
    ASSERT_EQ(load(river()), Ending::loaded);
    ASSERT_EQ(load(river().title("Other").set(meanValue, 2, "x").set(meanLimit2, 1, 4711)), Ending::failed);
    EXPECT_EQ(results.resultsTitle, "Other");
    EXPECT_EQ(results.pointCount, 3);
    const ValueStore& values = results.values[0];
    EXPECT_EQ(values.at(meanValue, 2, 4), ResultsFileBuilder::value(2, meanValue, 4));
    EXPECT_EQ(values.at(meanLimit2, 3, 1), 4711);
    EXPECT_EQ(values.at(meanValue, 3, 2), ResultsFileBuilder::value(3, meanValue, 2)); // of the load before
    EXPECT_EQ(results.seriesCount, 2);
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

TEST_F(ResultsReader, LoadsOrFailsOnDamagedFilesAndNothingElse) {
    std::mt19937 random(3);
    const auto upTo = [&](std::size_t count) { return random() % count; };
    const std::string whole = river().text();
    const std::string pieces[] = {"\"",          ",",     "\r\n", " ",    "-1",
                                  "99999999999", "1e400", "\x1a", "****", std::string(1, '\0')};
    int loaded = 0;
    int failed = 0;
    const int rounds = roundsOf(4000);
    for (int round = 0; round < rounds; ++round) {
        std::string text = whole;
        for (std::size_t k = upTo(4) + 1; k > 0; --k) {
            const std::size_t at = upTo(text.size());
            const std::size_t kind = upTo(3);
            if (kind == 0) text[at] = static_cast<char>(upTo(256));
            if (kind == 1) text.erase(at, upTo(20) + 1);
            if (kind == 2) text.insert(at, pieces[upTo(std::size(pieces))]);
            if (text.empty()) break;
        }
        const Ending ending = load(text);
        ++(ending == Ending::loaded ? loaded : failed);
        EXPECT_NE(ending, Ending::abandoned);
        load(whole);
        load(text, 1);
    }
    EXPECT_GT(loaded, rounds / 40);
    EXPECT_GT(failed, rounds / 40);
}

} // namespace korvel
