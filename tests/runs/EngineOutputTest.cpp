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

TEST(EngineOutput, BreaksALongLine) {
    EngineOutput output;
    EXPECT_EQ(output.feed(std::string(2500, 'x')), Lines(2, std::string(1000, 'x')));
    EXPECT_EQ(output.openLine(), std::string(500, 'x'));
    EXPECT_EQ(output.feed("y\n"), Lines{std::string(500, 'x') + "y"});
}

TEST(EngineOutput, ShowsTheBeginningOfALineThatDoesNotEnd) {
    const std::string note = "[ The rest of this line is not shown. ]";
    Lines expected(10, std::string(1000, 'x'));
    expected.push_back(note);
    EngineOutput output;
    EXPECT_EQ(output.feed(std::string(25000, 'x')), expected);
    EXPECT_EQ(output.openLine(), "");
    EXPECT_EQ(output.feed("more\nnext\n"), Lines{"next"});
    EXPECT_EQ(output.feed(std::string(9999, 'x')).size(), 9u) << "counted anew";
    EXPECT_EQ(output.openLine().size(), 999u);
}

TEST(EngineOutput, AddsNothingToALineThatEndsWithAPiece) {
    EngineOutput output;
    EXPECT_EQ(output.feed(std::string(2000, 'x') + "\n\n").size(), 3u) << "two pieces and an empty line";
    EXPECT_EQ(output.feed(std::string(10000, 'x') + "\nnext\n").back(), "next");
    EXPECT_EQ(output.feed(std::string(10000, 'x') + "\n").back(), std::string(1000, 'x')) << "all is shown";
}

TEST(EngineOutput, BeginsALineAnewHoweverLongItWas) {
    EngineOutput output;
    output.feed(std::string(20000, 'x'));
    EXPECT_EQ(output.feed("\rFile 2 of 5: B.DAT\n"), Lines{"File 2 of 5: B.DAT"});
    EXPECT_EQ(output.fileInHand(), "File 2 of 5: B.DAT");
}

} // namespace korvel
