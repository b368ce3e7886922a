// What all commands that look at studies have in common: lists, files, refusals, words for people.
#include "commands/StudyCommandsFixture.h"

#include <filesystem>

namespace korvel {

namespace {

using enum ValueField;

} // namespace

TEST_F(StudyCommands, TellPeopleWhatItComesTo) {
    EXPECT_EQ(run({"compliance", a, b}), 0);
    expectHolds("Compliance of a.sgr with its targets\n  BOD: the mean, bad when high\n  DO: the mean, bad "
                "when low\n");
    expectHolds("BOD fails in 1 of 1 reach (for sure in 1), 2.0 of 4.0 km; needed at Mill: 33 % less.\n");
    expectHolds("DO fails in 1 of 1 reach (for sure in 0), 0.0 of 0.0 km; needed at Mill: 25 % more.\n");
    expectHolds("BOD passes in all of 1 reach, 1 of them unsure.\n");
    EXPECT_EQ(run({"changes", a, b}), 0);
    expectHolds("BOD (Conc) rises in 0 and falls in 1 of 2, most by -37.5 % (1 Upper, Mill); clear at 1 of 3 "
                "points.\n");
    EXPECT_EQ(run({"fit", a}), 0);
    expectHolds("BOD (Conc), mean: typically within a factor of 1.20 at 1 point, on the whole 20 % too high; "
                "1 of 1 samples lie within the limits.\n");
    EXPECT_EQ(run({"sources", a, "--determinand", "BOD"}), 0);
    expectHolds("2 of 2 sources bring 80 % of the load of BOD or more; most comes from Along Upper, Mill "
                "(60.0 %). Lost on the way: 0.\n");
    EXPECT_EQ(run({"network", a}), 0);
    expectHolds("2 reaches in 1 river, 10.0 km; 1 mouth, 1 head.\n");
    EXPECT_EQ(run({"check", a}), 0);
    expectHolds("None of it keeps the file from being used.\n");
}

TEST_F(StudyCommands, ColourVerdictsOnATerminalAlone) {
    EXPECT_EQ(run({"compliance", a}, {true, true, false}), 0);
    expectHolds("\033[31mfail\033[0m");
    EXPECT_EQ(run({"compliance", a}), 0);
    EXPECT_EQ(out.find('\033'), std::string::npos);
}

TEST_F(StudyCommands, ShowNoControlCharactersOfAFile) {
    const std::string evil = put("evil.sgr", ResultsFileBuilder()
                                                 .determinand(1, "B\x1B[2J")
                                                 .reach(1, "A\x07", 5, 0)
                                                 .point(1, 0, "P\x1B]0;x", 1)
                                                 .set(targetValue, 1, 1));
    for (const char* command : {"compliance", "network", "check", "fit"}) {
        EXPECT_EQ(run({command, evil}), 0) << errors;
        EXPECT_EQ(out.find_first_of("\x1B\x07"), std::string::npos) << command;
    }
}

TEST_F(StudyCommands, WriteTheirOutputWhole) {
    expectOut({"fit", a, "--output", hostPathOf(fake.pathOf("fit.CSV"))}, "");
    EXPECT_TRUE(fake.fileText("fit.CSV").starts_with("run,series,statistic,n,"));
    expectOut({"fit", a, "--format", "json", "--output", hostPathOf(fake.pathOf("fit.csv2"))}, "");
    EXPECT_TRUE(fake.fileText("fit.csv2").starts_with("{\"runs\""));
    expectOut({"fit", a, "--output", hostPathOf(fake.pathOf("fit.out"))}, "");
    EXPECT_TRUE(fake.fileText("fit.out").starts_with("Fit of a.sgr to what was observed\r\n"));
}

TEST_F(StudyCommands, KeepTheirInput) {
    const std::string before = fake.fileText("a.sgr");
    const std::string link = hostPathOf(fake.folder()) + "/link.csv";
    std::filesystem::create_symlink(a, link);
    for (const std::string& output : {a, link})
        expectRefused({"table", b, a, "--output", output}, 1,
                      "[exclamation] File name: The output would replace the input.\n");
    EXPECT_EQ(fake.fileText("a.sgr"), before);
}

TEST_F(StudyCommands, RefuseWhatCannotBeAnswered) {
    const std::string other =
        put("other.sgr", ResultsFileBuilder().determinand(1, "BOD").reach(1, "A", 5, 0));
    const std::string circle =
        put("circle.sgr", ResultsFileBuilder().determinand(1, "BOD").reach(7, "A", 5, 7));
    const std::string negative = put("negative.sgr", ResultsFileBuilder()
                                                         .determinand(1, "BOD")
                                                         .reach(1, "A", 5, 0)
                                                         .point(1, 2, "Weir")
                                                         .set(meanValue, 2, -1));
    fake.putFile("broken.sgr", "x\n");
    const std::string broken = hostPathOf(fake.pathOf("broken.sgr"));
    const std::string circleWords = "[exclamation] Network: circle.sgr: Reach 7 runs in a circle\n";
    const struct {
        std::vector<std::string> arguments;
        std::string words;
    } cases[] = {
        {{"changes", a, other},
         "[exclamation] Study: a.sgr and other.sgr differ in the number of determinands (2 and 1)\n"},
        {{"table", a, broken},
         "[exclamation] Error: broken.sgr: There is an error in reading the data for plotting."},
        {{"network", circle}, circleWords},
        {{"sources", circle, "--determinand", "BOD"}, circleWords},
        {{"changes", circle, circle, "--by", "river"}, circleWords},
        {{"compliance", circle, "--by", "river"}, circleWords},
        {{"fit", circle, "--by", "river"}, circleWords},
        {{"sources", negative, "--determinand", "BOD"},
         "[exclamation] Sources: negative.sgr: BOD (Load) is -1, below 0, in reach 1 at 2 km (Weir)\n"},
        {{"sources", negative, "--determinand", "Flow", "--at", "1:1"},
         "[exclamation] Sources: negative.sgr: 1 km lies before the first point of reach 1\n"},
    };
    for (const auto& [arguments, words] : cases) {
        std::vector<std::string> call = arguments;
        expectRefused(call, 1, words);
        if (call[0] == "network") continue;
        fake.putFile("old.json", "old");
        call.insert(call.end(), {"--output", hostPathOf(fake.pathOf("old.json"))});
        expectRefused(call, 1, words);
        EXPECT_EQ(fake.fileText("old.json"), "old");
    }
}

TEST_F(StudyCommands, TakeCirclesWhereTheNetworkIsNotNeeded) {
    const std::string circle =
        put("circle.sgr", ResultsFileBuilder().determinand(1, "BOD").reach(7, "A", 5, 7).point(7, 0, "P"));
    EXPECT_EQ(run({"compliance", circle}), 0);
    EXPECT_EQ(run({"fit", circle}), 0);
    EXPECT_EQ(run({"check", circle}), 0);
    EXPECT_EQ(run({"changes", circle, circle}), 0);
    expectHolds("circle.sgr (2)");
}

TEST_F(StudyCommands, AnswerWrongUsageInOneLine) {
    const std::vector<std::string> thirteen(13, a);
    std::vector<std::string> tooMany = {"table"};
    tooMany.insert(tooMany.end(), thirteen.begin(), thirteen.end());
    const struct {
        std::vector<std::string> arguments;
        const char* words;
    } cases[] = {
        {{"table"}, "no results file given"},
        {tooMany, "13 results files given, 12 are taken at most"},
        {{"changes", a}, "one results file given: there is nothing to hold against it"},
        {{"network", a, b}, "2 results files given, 1 is taken"},
        {{"check", a, b}, "2 results files given, 1 is taken"},
        {{"table", a, "--format", "text"}, "'text' is no format of this command"},
        {{"table", a, "--format", "xml"}, "'xml' is no format of this command"},
        {{"fit", a, "--format", "sqlite"}, "'sqlite' is no format of this command"},
        {{"network", a, "--format", "csv"}, "'csv' is none of text, json"},
        {{"network", a, "--output", "x"}, "unknown option '--output'"},
        {{"changes", a, b, "--by", "kind"}, "'kind' is none of reach, river, point"},
        {{"changes", a, b, "--statistic", "p90"}, "'p90' is no statistic"},
        {{"changes", a, b, "--series", "5"}, "the results have no series '5'"},
        {{"changes", a, b, "--series", "BOD"}, "the results have no series 'BOD'"},
        {{"changes", a, b, "--series", ""}, "the results have no series ''"},
        {{"changes", a, b, "--reaches", "1-2"}, "the results have no reach '1-2'"},
        {{"changes", a, b, "--reaches", "3"}, "the results have no reach '3'"},
        {{"table", a, "--statistics", "mean,50"}, "'50' is no statistic"},
        {{"compliance", a, "--determinands", "3"}, "the results have no determinand '3'"},
        {{"compliance", a, "--low-is-bad", "pH"}, "the results have no determinand 'pH'"},
        {{"compliance", a, "--deterioration", "-1"}, "'-1' is no percentage"},
        {{"compliance", a, "--deterioration", "10%"}, "'10%' is no percentage"},
        {{"fit", a, "--series", "3"}, "'BOD (Load)' is a load, which was not observed"},
        {{"sources", a}, "no determinand given"},
        {{"sources", a, "--determinand", "pH"}, "the results have no determinand 'pH'"},
        {{"sources", a, "--determinand", "BOD", "--at", "9"}, "the results have no reach '9'"},
        {{"sources", a, "--determinand", "BOD", "--at", "1:x"}, "'x' is no distance"},
        {{"sources", a, "--determinand", "BOD", "--at", "1:"}, "'' is no distance"},
    };
    for (const auto& [arguments, words] : cases) {
        expectRefused(arguments, 2, words);
        EXPECT_NE(errors.find("(read 'korvel " + arguments[0] + " --help')\n"), std::string::npos) << errors;
    }
}

TEST_F(StudyCommands, TakeListsByNameOrNumberInTheFilesOrder) {
    EXPECT_EQ(run({"table", a, "--series", "DO (Load), \"BOD (Conc)\",0,0", "--statistics", "99,mean",
                   "--reaches", "2,1"}),
              0);
    const auto first = out.find("Flow,mean"), second = out.find("Flow,p99"),
               third = out.find("BOD (Conc),mean"), last = out.find("DO (Load),p99");
    EXPECT_TRUE(first < second && second < third && third < last && last != std::string::npos) << out;
    EXPECT_EQ(out.find("DO (Conc)"), std::string::npos);
    const std::string comma = put(
        "comma.sgr",
        ResultsFileBuilder().determinand(1, "Zinc, free").determinand(4, "T").reach(1, "A").point(1, 0, "P"));
    EXPECT_EQ(run({"compliance", comma, "--determinands", "\"Zinc, free\",T", "--format", "json"}), 0)
        << errors;
    EXPECT_EQ(run({"sources", comma, "--determinand", "Zinc, free"}), 0) << errors;
    EXPECT_EQ(run({"sources", comma, "--determinand", "\"Zinc, free\""}), 0) << errors;
    expectRefused({"compliance", comma, "--determinands", "\"Zinc"}, 2, "the quotes in '\"Zinc' don't close");
    expectRefused({"compliance", comma, "--determinands", "\"Zinc\"x"}, 2,
                  "'x' follows quotes in '\"Zinc\"x'");
}

TEST_F(StudyCommands, ShowControlCharactersOfRowsOnATerminalAndLeaveThemInPipes) {
    const std::string strange =
        put("c.sgr",
            ResultsFileBuilder().determinand(1, "BOD", 1).reach(1, "Mill", 4).point(1, 0, "A\033[31mB", 1));
    const std::vector<std::string> call = {"table", strange, "--series", "0", "--statistics", "mean"};
    EXPECT_EQ(run(call), 0);
    expectHolds(",A\033[31mB,");
    EXPECT_EQ(run(call, {.outIsTerminal = true, .coloursAreShown = true}), 0);
    expectHolds(",A^[[31mB,");
    EXPECT_EQ(out.find('\033'), std::string::npos);
    EXPECT_EQ(run({"compliance", a}, {.outIsTerminal = true, .coloursAreShown = true}), 0);
    expectHolds("\033[");
}

} // namespace korvel
