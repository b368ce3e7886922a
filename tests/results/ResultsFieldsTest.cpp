// How lines and fields of a results file are taken.
#include "results/FirstDataSet.h"

#include "ReaderFixture.h"

namespace korvel {

namespace {

using enum ValueField;

class ResultsFields : public ReaderFixture {};

std::string trailing(std::string text, std::size_t dropped) {
    return text.substr(0, text.size() - dropped);
}

} // namespace

TEST_F(ResultsFields, LoadsWhateverTheGroupingOfTheFields) {
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

TEST_F(ResultsFields, LoadsAnyKindOfLineEnd) {
    for (const char* end : {"\r\n", "\n", "\r"}) {
        ASSERT_EQ(load(river().lineEnd(end)), Ending::loaded);
        EXPECT_EQ(results.reachNames[2], "Lower Mill      ");
        EXPECT_EQ(results.pointCount, 3);
    }
}

TEST_F(ResultsFields, LoadsAFileWhoseLastLineHasNoEnd) {
    EXPECT_EQ(load(trailing(river().text(), 2)), Ending::loaded);
    EXPECT_EQ(results.pointCount, 3);
}

TEST_F(ResultsFields, IgnoresBlankLinesAndControlZAtTheEnd) {
    EXPECT_EQ(load(river().text() + "\r\n  \r\n\x1a\r\n"), Ending::loaded);
    EXPECT_EQ(results.pointCount, 3);
}

TEST_F(ResultsFields, EndsAtACtrlZDirectlyBehindTheLastField) {
    EXPECT_EQ(load(trailing(river().text(), 2) + "\x1a"), Ending::loaded);
    EXPECT_EQ(results.pointCount, 3);
    EXPECT_EQ(load(trailing(river().text(), 2) + "\x1a\r\n"), Ending::loaded);
    EXPECT_EQ(load(trailing(river().text(), 2) + "\x1a\r\n1"), Ending::failed);
}

TEST_F(ResultsFields, TakesABlankLineInsideAPointAsAnEmptyField) {
    EXPECT_EQ(load(river().set(targetValue, 4, "").text()), Ending::loaded);
    EXPECT_EQ(load("T\n0\n0\n0\n1,2,\"abcd\",0,0\nc\n\n\n\n\nc,1,2,3,4\n"), Ending::loaded);
    EXPECT_EQ(results.values[0].at(meanValue, 1, 0), 0);
    EXPECT_EQ(results.values[0].at(observedMean, 1, 0), 1);
}

TEST_F(ResultsFields, DropsWhatStandsBeforeTheTitleAndKeepsItsTrailingBlanks) {
    ASSERT_EQ(load(river().title(" \t\x01 My river  ")), Ending::loaded);
    EXPECT_EQ(results.resultsTitle, "My river  ");
    ASSERT_EQ(load(river().title("\xC9tang, \"quoted\"")), Ending::loaded);
    EXPECT_EQ(results.resultsTitle, "\xC9tang, \"quoted\"");
    ASSERT_EQ(load(river().title(" ")), Ending::loaded);
    EXPECT_EQ(results.resultsTitle, "");
}

TEST_F(ResultsFields, TakesAShortReachLineAsFarAsItGoes) {
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

TEST_F(ResultsFields, CutsAReachLineByColumnsOfOneByte) {
    ASSERT_EQ(load(ResultsFileBuilder().reachLine("  12xABCDEFGHIJKLMNOPx     12.50x  34 more")),
              Ending::loaded);
    EXPECT_EQ(results.reachNames[12], "ABCDEFGHIJKLMNOP");
    EXPECT_EQ(results.reachLengths[12], 12.5);
    EXPECT_EQ(results.reachNext[12], 34);
}

TEST_F(ResultsFields, TakesNoDigitThatStandsBesideAColumnOfAReachLine) {
    ASSERT_EQ(load(ResultsFileBuilder().reachLine("  129ABCDEFGHIJKLMNOP9     12.509  349")), Ending::loaded);
    EXPECT_EQ(results.reachOrder, std::vector<int>{12});
    EXPECT_EQ(results.reachNames[12], "ABCDEFGHIJKLMNOP");
    EXPECT_EQ(results.reachLengths[12], 12.5);
    EXPECT_EQ(results.reachNext[12], 34);
}

TEST_F(ResultsFields, IgnoresAFourthFieldOfAnyForm) {
    for (const char* field : {"0", "\"any, text\"", "****", "", "nan", "\"over\r\ntwo lines\""}) {
        ASSERT_EQ(load(ResultsFileBuilder().pointLine("1,2.5,\"Weir   \"," + std::string(field) + ",7")),
                  Ending::loaded)
            << field;
        EXPECT_EQ(results.pointFeatureType[1], 7) << field;
    }
}

TEST_F(ResultsFields, ReadsLabelsWithoutQuotes) {
    ASSERT_EQ(load(ResultsFileBuilder().pointLine("1,2.5,U/S Mill Lane 123,0,7").pointLine("1,3,ab,0,7")),
              Ending::loaded);
    EXPECT_EQ(results.pointLabel[1], "Mill Lane");
    EXPECT_EQ(results.pointLabel[2], "");
}

// A caption is a text: without quotes it runs to its comma, blanks and all.
TEST_F(ResultsFields, ReadsCaptionsWithoutQuotes) {
    std::string text = river().text();
    ASSERT_NE(text.find("\"Observed flow\","), std::string::npos);
    std::erase(text, '"');
    ASSERT_EQ(load(text), Ending::loaded);
    EXPECT_EQ(results.pointCount, 3);
    EXPECT_EQ(results.values[0].at(observedMean, 3, 0), ResultsFileBuilder::value(3, observedMean, 0));
    EXPECT_EQ(results.values[0].at(observedPercentiles, 3, 4, 2),
              ResultsFileBuilder::value(3, observedPercentiles, 4, 2));
}

} // namespace korvel
