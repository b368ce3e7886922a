// Commands on results with a plan in place of the files.
#include "commands/Commands.h"
#include "fakes/FakePlatform.h"
#include "fakes/ResultsFileBuilder.h"
#include "many/RunRecord.h"

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <sstream>

namespace korvel {

namespace {

using enum ValueField;

class PlanCommands : public testing::Test {
  protected:
    static std::string river(double value, const std::string& determinand = "BOD") {
        ResultsFileBuilder file;
        file.determinand(1, determinand, 1).reach(1, "Mill", 4);
        file.point(1, 0, "Head", 0).setAll(0).set(meanValue, 1, value).set(targetValue, 1, 4);
        file.point(1, 4, "Weir", 1).setAll(0).set(meanValue, 1, value).set(targetValue, 1, 4);
        return file.text();
    }

    void addRow(const std::string& base, RunState state = RunState::done) {
        m_plan += base + "," + base + ".DAT,0\n";
        RunRecord record;
        record.name = base;
        record.dataFile = base + ".DAT";
        record.state = state;
        record.results = base + ".SGR";
        m_record += recordLine(record) + '\n';
    }
    void addRun(int k, const std::string& determinand = "BOD") {
        const std::string base = "R" + std::to_string(k);
        addRow(base);
        fake.putFile(base + ".SGR", river(k, determinand));
    }
    int run(std::vector<std::string> arguments, const ShowExplorer& showExplorer = {}) {
        fake.putFile("p.csv", m_plan);
        fake.putFile("p.runs.jsonl", m_record);
        arguments.insert(arguments.begin() + 1, path("p.csv"));
        std::ostringstream outStream, errorStream;
        const int status = runCommand(arguments, fake.platform(), outStream, errorStream, {}, showExplorer);
        out = outStream.str();
        errors = errorStream.str();
        return status;
    }
    std::string path(const std::string& name) { return hostPathOf(fake.pathOf(name)); }
    static std::size_t linesOf(const std::string& text) {
        return static_cast<std::size_t>(std::ranges::count(text, '\n'));
    }
    bool outHolds(const std::string& part) const { return out.find(part) != std::string::npos; }

    FakePlatform fake;
    std::string out, errors;

  private:
    std::string m_plan = "name,data_file,type\n";
    std::string m_record;
};

const std::vector<std::string> tableOfMeans = {"table", "--series", "1", "--statistics", "mean"};
const std::vector<std::string> sums = {"compliance", "--by", "determinand", "--format", "csv"};

TEST_F(PlanCommands, TableHasTheFinishedRunsInThePlansOrder) {
    addRun(3);
    addRow("LATE", RunState::failed);
    addRun(2);
    EXPECT_EQ(run(tableOfMeans), 0) << errors;
    EXPECT_EQ(linesOf(out), 5U);
    EXPECT_LT(out.find("R3.SGR,1,Mill,0,"), out.find("R2.SGR,1,Mill,0,"));
    EXPECT_FALSE(outHolds("LATE"));
}

TEST_F(PlanCommands, TableAndSumsTakeAnyNumberOfRuns) {
    for (int k = 1; k <= 30; ++k)
        addRun(k);
    EXPECT_EQ(run(tableOfMeans), 0) << errors;
    EXPECT_EQ(linesOf(out), 61U);
    EXPECT_TRUE(outHolds("R30.SGR,1,Mill,4,0,Weir,,1,BOD (Conc),mean,30,"));
    EXPECT_EQ(run(sums), 0) << errors;
    EXPECT_EQ(linesOf(out), 31U);
    EXPECT_TRUE(outHolds("R4.SGR,BOD,mean,4,0,"));
    EXPECT_TRUE(outHolds("R5.SGR,BOD,mean,4,4,"));
}

TEST_F(PlanCommands, SumsAreTheSameAsOfTheFiles) {
    for (int k = 3; k <= 6; ++k)
        addRun(k);
    for (const char* format : {"csv", "json", "text"}) {
        ASSERT_EQ(run({"compliance", "--by", "determinand", "--format", format}), 0) << errors;
        std::ostringstream fromFiles, none;
        runCommand({"compliance", path("R3.SGR"), path("R4.SGR"), path("R5.SGR"), path("R6.SGR"), "--by",
                    "determinand", "--format", format},
                   fake.platform(), fromFiles, none);
        EXPECT_EQ(out, fromFiles.str()) << format;
    }
}

TEST_F(PlanCommands, OthersTakeTwelveAtMost) {
    for (int k = 1; k <= 12; ++k)
        addRun(k);
    EXPECT_EQ(run({"changes", "--series", "1", "--format", "csv"}), 0) << errors;
    EXPECT_EQ(run({"compliance", "--format", "csv"}), 0) << errors;
    addRun(13);
    for (const char* command : {"changes", "compliance", "fit"}) {
        EXPECT_EQ(run({command}), 2);
        EXPECT_NE(errors.find("13 results files given, 12 are taken at most"), std::string::npos) << errors;
    }
    EXPECT_EQ(run({"check"}), 2);
}

TEST_F(PlanCommands, TellThatNothingIsFinished) {
    addRow("LATE", RunState::started);
    EXPECT_EQ(run(tableOfMeans), 1);
    EXPECT_NE(errors.find("p.csv has no finished run."), std::string::npos) << errors;
}

TEST_F(PlanCommands, LeaveNoOutputWhereARunDoesNotFit) {
    addRun(1);
    addRun(2);
    addRun(3, "Ammonia");
    for (std::vector<std::string> arguments : {tableOfMeans, sums}) {
        arguments.insert(arguments.end(), {"--output", path("out.csv")});
        EXPECT_EQ(run(arguments), 1);
        EXPECT_NE(errors.find("R1.SGR and R3.SGR differ in determinand 1"), std::string::npos) << errors;
        EXPECT_FALSE(std::filesystem::exists(path("out.csv")));
    }
}

TEST_F(PlanCommands, TellWhichResultsCanNotBeRead) {
    addRun(1);
    addRow("GONE");
    EXPECT_EQ(run(tableOfMeans), 1);
    EXPECT_NE(errors.find("GONE.SGR: There is an error in reading"), std::string::npos) << errors;
}

TEST_F(PlanCommands, TellWhatIsWrongWithThePlan) {
    addRow("A,B");
    EXPECT_EQ(run(tableOfMeans), 1);
    EXPECT_NE(errors.find("[exclamation] Plan: p.csv, line 2, column "), std::string::npos) << errors;
}

} // namespace

TEST_F(PlanCommands, ExploreTheFirstTwelveFinishedRuns) {
    for (int k = 1; k <= 14; ++k)
        addRun(k);
    std::vector<std::string> shown;
    const ShowExplorer show = [&](const std::vector<std::string>& files) { return shown = files, 0; };
    EXPECT_EQ(run({"explore"}, show), 0);
    ASSERT_EQ(shown.size(), 12u) << errors;
    EXPECT_EQ(shown.back(), fake.pathOf("R12.SGR"));
}

TEST_F(PlanCommands, ExploreResultsFilesOrOneStudyOrNothing) {
    std::ostringstream outStream, errorStream;
    std::vector<std::string> shown;
    const ShowExplorer show = [&](const std::vector<std::string>& files) { return shown = files, 0; };
    const auto explore = [&](std::vector<std::string> files) {
        shown.clear();
        files.insert(files.begin(), "explore");
        return runCommand(files, fake.platform(), outStream, errorStream, {}, show);
    };
    EXPECT_EQ(explore({}), 0);
    EXPECT_TRUE(shown.empty());
    EXPECT_EQ(explore({"/r/b.sgr", "/r/a.sgr"}), 0);
    EXPECT_EQ(shown, (std::vector<std::string>{"Z:\\r\\b.sgr", "Z:\\r\\a.sgr"}));
    EXPECT_EQ(explore({"/r/x.Korvel-Study"}), 0);
    EXPECT_EQ(shown, (std::vector<std::string>{"Z:\\r\\x.Korvel-Study"}));
    EXPECT_EQ(explore({"/r/x.korvel-study", "/r/a.sgr"}), 2);
    EXPECT_EQ(explore(std::vector<std::string>(13, "/r/a.sgr")), 2);
    EXPECT_EQ(explore({"--points"}), 2);
}

} // namespace korvel
