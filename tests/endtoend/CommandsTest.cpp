// The command line with results that the engine has just written, without a display.
#include "endtoend/Installation.h"

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>

namespace korvel {

namespace {

const char* const unreadable = "[exclamation] Error: There is an error in reading the data for plotting. The "
                               "file either does not exist, is "
                               "incomplete, or is in the wrong format.  Or it may hold more plotting points "
                               "than the set maximum of 59999.\n";

class Commands : public testing::Test {
  protected:
    std::string info(const std::string& file, const Surroundings& surroundings = {}) {
        const Outcome outcome =
            korvel.runKorvel({"info", file, "--points", "--values", "--json"}, surroundings);
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        EXPECT_EQ(outcome.err, "");
        return outcome.out;
    }

    const Installation korvel;
};

long linesOf(const std::string& text) {
    return std::ranges::count(text, '\n');
}

// What json.tool makes of the text's end is of no interest: whether it reads it all is.
int statusOfJsonReader(const std::string& json) {
    const TestFolder folder;
    write(folder.path("told.json"), json);
    return runProgram({"python3", "-m", "json.tool", folder.path("told.json"), folder.path("read.json")})
        .status;
}

struct Format {
    const char* ending;
    const char* firstBytes;
};
constexpr Format formats[] = {{"png", "\x89PNG"}, {"svg", "<?xml"}, {"pdf", "%PDF-"}, {"bmp", "BM"}};

} // namespace

TEST_F(Commands, TheEngineWritesItsFilesBesideTheDataFile) {
    for (const std::string ending : {"SGR", "OUT", "LOD", "SUM", "SCN"}) {
        korvel.putResults("ALDER." + ending);
        EXPECT_GT(contentOf(korvel.data("ALDER." + ending)).size(), 100u) << ending;
    }
}

TEST_F(Commands, InfoTellsWhatTheRunOfTheSampleHolds) {
    korvel.putResults("ALDER.SGR");
    const std::string told = info(korvel.data("ALDER.SGR"));
    EXPECT_EQ(statusOfJsonReader(told), 0);
    EXPECT_NE(told.find("\"reachCount\": 14"), std::string::npos);
    EXPECT_NE(told.find("\"determinandCount\": 8"), std::string::npos);
    const Outcome summary = korvel.runKorvel({"info", korvel.data("ALDER.SGR")});
    EXPECT_EQ(summary.status, 0);
    EXPECT_NE(summary.out.find("River Alder"), std::string::npos) << summary.out;
}

TEST_F(Commands, InfoComparesTheRunsOfBothSamples) {
    korvel.putResults("ALDER.SGR");
    korvel.putResults("ALDER2.SGR");
    const Outcome outcome =
        korvel.runKorvel({"info", korvel.data("ALDER.SGR"), "--against", korvel.data("ALDER2.SGR")});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(outcome.err, "");
}

TEST_F(Commands, InfoOfAMissingFileFailsWithTheReadersMessage) {
    const Outcome outcome = korvel.runKorvel({"info", korvel.data("NOWHERE.SGR")});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, unreadable);
}

TEST_F(Commands, InfoIsTheSameInEveryLanguage) {
    korvel.putResults("ALDER.SGR");
    const std::string file = korvel.data("ALDER.SGR");
    const std::string german = info(file, {"", {"LC_ALL=de_DE.UTF-8", "LANG=de_DE.UTF-8"}});
    EXPECT_TRUE(german == info(file, {"", {"LC_ALL=C"}}));
}

TEST_F(Commands, TakeNamesFromTheCurrentFolder) {
    korvel.putResults("ALDER.SGR");
    EXPECT_EQ(korvel.runKorvel({"info", "ALDER.SGR"}, {korvel.dataFolder(), {}}).status, 0);
    EXPECT_EQ(korvel.runKorvel({"info", "ALDER.SGR"}, {"/", {}}).status, 1);
}

TEST_F(Commands, TakeTheApplicationFolderFromTheEnvironmentToo) {
    korvel.putResults("ALDER.SGR");
    const std::string program = korvel.korvel().front();
    const Surroundings there{korvel.dataFolder(), {"KORVEL_HOME=" + korvel.application("")}};
    EXPECT_EQ(runProgram({program, "info", "ALDER.SGR"}, there).status, 0);
}

TEST_F(Commands, TakeNamesWithBlanksAndOtherLetters) {
    korvel.putResults("ALDER.SGR");
    const std::string file = korvel.data("Flüsse und Bäche/Würm 1 – naïve.sgr");
    copy(korvel.data("ALDER.SGR"), file);
    EXPECT_EQ(statusOfJsonReader(info(file)), 0);
}

TEST_F(Commands, AnswerWrongUsageWithOneLineAndStatusTwo) {
    const std::vector<std::vector<std::string>> wrong = {{"info"},
                                                         {"info", "--json"},
                                                         {"info", "a.sgr", "b.sgr"},
                                                         {"info", "a.sgr", "--wrong"},
                                                         {"--wrong"},
                                                         {"info", "a.sgr", "--against"}};
    for (const std::vector<std::string>& arguments : wrong) {
        const Outcome outcome = korvel.runKorvel(arguments);
        EXPECT_EQ(outcome.status, 2) << testing::PrintToString(arguments);
        EXPECT_EQ(outcome.out, "");
        EXPECT_EQ(linesOf(outcome.err), 1) << outcome.err;
        EXPECT_NE(outcome.err.find("--help"), std::string::npos) << outcome.err;
    }
}

TEST_F(Commands, GraphDrawsBothDisplayModesInEveryFormat) {
    korvel.putResults("ALDER.SGR");
    const std::vector<std::string> modes[] = {{"--from", "1", "--to", "14", "--series", "0,2"},
                                              {"--reaches", "1,2,3", "--series", "2"}};
    for (const std::vector<std::string>& mode : modes) {
        for (const Format& format : formats) {
            const std::string file = korvel.data(std::string("graph.") + format.ending);
            std::vector<std::string> arguments = {"graph", korvel.data("ALDER.SGR"), "--output", file};
            arguments.insert(arguments.end(), mode.begin(), mode.end());
            const Outcome outcome = korvel.runKorvel(arguments);
            EXPECT_EQ(outcome.status, 0) << outcome.err;
            EXPECT_EQ(outcome.err, "");
            EXPECT_TRUE(contentOf(file).starts_with(format.firstBytes)) << file;
            std::filesystem::remove(file);
        }
    }
}

TEST_F(Commands, GraphIsTheSameInEveryLanguage) {
    korvel.putResults("ALDER.SGR");
    const auto draw = [&](const std::string& language) {
        const std::string file = korvel.data(language + ".svg");
        const Outcome outcome = korvel.runKorvel({"graph", korvel.data("ALDER.SGR"), "--from", "1", "--to",
                                                  "14", "--series", "0,2", "--output", file},
                                                 {"", {"LC_ALL=" + language, "LANG=" + language}});
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        return contentOf(file);
    };
    EXPECT_TRUE(draw("C") == draw("de_DE.UTF-8"));
}

TEST_F(Commands, GraphOfAMissingFileLeavesNothingBehind) {
    const std::string file = korvel.data("graph.png");
    const Outcome outcome = korvel.runKorvel({"graph", korvel.data("NOWHERE.SGR"), "--from", "1", "--to",
                                              "14", "--series", "0", "--output", file});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, unreadable);
    EXPECT_FALSE(std::filesystem::exists(file));
}

TEST_F(Commands, AtlasLeadsToItsPartsAndStandsUpToACheck) {
    korvel.putResults("ALDER.SGR");
    korvel.putResults("ALDER2.SGR");
    const Outcome outcome = korvel.runKorvel(
        {"atlas", korvel.data("ALDER.SGR"), korvel.data("ALDER2.SGR"), "--title", "Both runs"});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    const std::string file = korvel.data("ALDER-atlas.pdf");
    const Outcome check = runProgram({"qpdf", "--check", file});
    EXPECT_EQ(check.status, 0) << check.out << check.err;
    const std::string outlines = runProgram({"qpdf", "--json", "--json-key=outlines", file}).out;
    for (const char* title :
         {"Contents", "Alder Mouth", "Targets by reach, ALDER2.SGR", "Changes from ALDER.SGR"})
        EXPECT_NE(outlines.find(title), std::string::npos) << title;
    const std::string facts = runProgram({"pdfinfo", file}).out;
    EXPECT_NE(facts.find("Both runs"), std::string::npos) << facts;
    EXPECT_NE(facts.find("842 x 595 pts (A4)"), std::string::npos) << facts;
    EXPECT_EQ(facts.find("CreationDate"), std::string::npos) << facts;
    const std::string text = runProgram({"pdftotext", "-layout", file, "-"}).out;
    const long pages = std::ranges::count(text, '\f');
    EXPECT_GT(pages, 10);
    for (const long page : {1L, 2L, pages})
        EXPECT_NE(text.find(std::to_string(page) + " of " + std::to_string(pages)), std::string::npos)
            << page;
    EXPECT_NE(text.find("14 reaches are judged"), std::string::npos);
}

TEST_F(Commands, AtlasIsTheSameEveryTime) {
    korvel.putResults("ALDER.SGR");
    const auto write = [&](const std::string& name) {
        const Outcome outcome = korvel.runKorvel(
            {"atlas", korvel.data("ALDER.SGR"), "--series", "0,2", "--output", korvel.data(name)});
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        return contentOf(korvel.data(name));
    };
    const std::string first = write("first.pdf");
    for (const char* name : {"second.pdf", "third.pdf", "fourth.pdf"})
        EXPECT_TRUE(write(name) == first) << name;
}

TEST_F(Commands, RunStartsTheEngineAndWaitsForIt) {
    korvel.putSample("ALDER.DAT");
    const Outcome outcome = korvel.runKorvel({"run", korvel.data("ALDER.DAT"), "--type", "0", "--wait"});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(contentOf(korvel.application("RUNDAT.TMP")), korvel.runControlFor("ALDER.DAT", 0));
    EXPECT_EQ(korvel.runKorvel({"info", korvel.data("ALDER.SGR")}).status, 0);
}

TEST_F(Commands, RunFailsWithAnEngineThatFails) {
    korvel.putSample("ALDER.DAT");
    korvel.putEngine("exit 3\n");
    EXPECT_EQ(korvel.runKorvel({"run", korvel.data("ALDER.DAT"), "--wait"}).status, 1);
}

TEST_F(Commands, RunNeedsTheEngine) {
    korvel.putSample("ALDER.DAT");
    std::filesystem::remove(korvel.application("korvelf157.exe"));
    const Outcome outcome = korvel.runKorvel({"run", korvel.data("ALDER.DAT")});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "[critical] : Run-time error '53': File not found\n");
}

} // namespace korvel
