#include "runs/EngineOutput.h"

#include <gtest/gtest.h>

namespace korvel {

using Lines = std::vector<std::string>;

TEST(EngineOutput, GivesLinesAsTheyAreCompleted) {
    EngineOutput output;
    EXPECT_EQ(output.feed("Reach  1 of 1"), Lines{});
    EXPECT_EQ(output.openLine(), "Reach  1 of 1");
    EXPECT_EQ(output.feed("4: Source\r\nReach"), Lines{"Reach  1 of 14: Source"});
    EXPECT_EQ(output.openLine(), "Reach");
}

TEST(EngineOutput, TakesLineFeedsAloneAndEmptyLines) {
    EngineOutput output;
    EXPECT_EQ(output.feed("a\n\nb\n"), (Lines{"a", "", "b"}));
    EXPECT_EQ(output.openLine(), "");
}

TEST(EngineOutput, BeginsALineAnewAfterALoneCarriageReturn) {
    EngineOutput output;
    EXPECT_EQ(output.feed("10 %\r20 %\r"), Lines{});
    EXPECT_EQ(output.openLine(), "20 %");
    EXPECT_EQ(output.feed("\n"), Lines{"20 %"});
}

TEST(EngineOutput, KeepsALineThatEndsInSeveralCarriageReturns) {
    EngineOutput output;
    EXPECT_EQ(output.feed("abc\r\r\ndef\r\r\r"), Lines{"abc"});
    EXPECT_EQ(output.feed("\n"), Lines{"def"});
}

TEST(EngineOutput, GivesTheSameLinesHoweverTheBytesAreCut) {
    const std::string text = "one\r\ntwo\rTWO\nFile 2 of 5: B.DAT\r\n\xC3\xA9t\xC3\xA9\n";
    EngineOutput whole;
    const Lines expected = whole.feed(text);
    ASSERT_EQ(expected.size(), 4U);
    EngineOutput byByte;
    Lines lines;
    for (const char c : text)
        for (const std::string& line : byByte.feed(std::string_view(&c, 1)))
            lines.push_back(line);
    EXPECT_EQ(lines, expected);
    EXPECT_EQ(byByte.fileInHand(), "File 2 of 5: B.DAT");
}

TEST(EngineOutput, TellsTheFileInHandOnlyFromItsOwnLines) {
    EngineOutput output;
    output.feed("File of things\nFile  of 3\nFile 12\nFiles 1 of 2\nFile  1 of 2\nFile 1 in 2\n");
    EXPECT_EQ(output.fileInHand(), "");
    output.feed("File 12 of 30: ALDER.DAT\nReach 1 of 3\n");
    EXPECT_EQ(output.fileInHand(), "File 12 of 30: ALDER.DAT");
}

TEST(EngineOutput, BreaksALineThatNeverEnds) {
    EngineOutput output;
    EXPECT_EQ(output.feed(std::string(25000, 'x')).size(), 2U);
    EXPECT_EQ(output.openLine().size(), 5000U);
}

} // namespace korvel
