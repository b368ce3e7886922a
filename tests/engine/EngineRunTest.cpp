#include "SmallCatchment.h"

#include "engine/EngineRun.h"
#include "platform/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <set>
#include <sstream>

namespace korvel {

using namespace engine;

namespace {

struct Outcome {
    int status = 0;
    std::string screen;
};

class EngineRun : public testing::Test {
  protected:
    EngineRun() { folder.put("SMALL.DAT", smallCatchment::variableText()); }

    Outcome run(const std::string& control) {
        folder.put("RUNDAT.TMP", control);
        std::ostringstream screen;
        const int status = runEngine(folder.path(), screen);
        return {status, screen.str()};
    }
    std::string request(const std::string& file, int type) const {
        return folder.model() + "\\\r\n" + folder.model(file) + "\r\n " + std::to_string(type) + " \r\n";
    }
    Outcome runSingle(int type) { return run("SINGLE\r\n" + request("SMALL.DAT", type)); }

    TemporaryFolder folder;
};

bool holds(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

} // namespace

TEST_F(EngineRun, WritesEveryOutputBesideTheDataFile) {
    const Outcome outcome = runSingle(0);
    EXPECT_EQ(outcome.status, 0) << outcome.screen;
    for (const char* name : {"SMALL.SGR", "SMALL.OUT", "SMALL.LOD", "SMALL.SUM", "SMALL.SCN"})
        EXPECT_FALSE(folder.textOf(name).empty()) << name;
    EXPECT_EQ(folder.entries(), 7); // with the data file and the run-control file
    EXPECT_TRUE(folder.textOf("SMALL.SGR").starts_with("Demonstration engine, run 0: Small River\r\n"));
}

TEST_F(EngineRun, NamesItselfFirstAndTellsItsProgress) {
    const Outcome outcome = runSingle(0);
    EXPECT_TRUE(outcome.screen.starts_with("KORVEL demonstration engine"));
    EXPECT_TRUE(holds(outcome.screen, "\nReach 1 of 2: Upper\nReach 2 of 2: Lower\n"));
    EXPECT_TRUE(outcome.screen.ends_with("Finished.\n"));
    EXPECT_TRUE(holds(folder.textOf("SMALL.SCN"), "Reach 2 of 2: Lower\r\n"));
    EXPECT_TRUE(holds(folder.textOf("SMALL.SCN"), "Run type:  0, basic run\r\n"));
}

TEST_F(EngineRun, GivesTheSameResultsEveryTime) {
    runSingle(6);
    const std::string first = folder.textOf("SMALL.SGR");
    runSingle(6);
    EXPECT_EQ(folder.textOf("SMALL.SGR"), first);
}

TEST_F(EngineRun, DoesSomethingElseInEachRunType) {
    // One works must do better, and a mill may do worse.
    folder.put("SMALL.DAT", smallCatchment::replaced(smallCatchment::variableText(), "[FLOWS]\n",
                                                     "6, 2, 1, industry, Mill, 5, 1\n[FLOWS]\n5, 2, 1, 0\n"));
    const auto resultsOf = [&](int type) { // without the title line
        EXPECT_EQ(runSingle(type).status, 0) << type;
        const std::string text = folder.textOf("SMALL.SGR");
        return text.substr(text.find('\n'));
    };
    const std::string flowsFilled = resultsOf(1);
    EXPECT_EQ(resultsOf(2), flowsFilled);
    const std::string allFilled = resultsOf(3);
    for (const int type : {4, 5, 6})
        EXPECT_EQ(resultsOf(type), allFilled) << type;
    std::set<std::string> different{flowsFilled, allFilled};
    for (const int type : {0, 7, 8, 9})
        different.insert(resultsOf(type));
    EXPECT_EQ(different.size(), 6u);
}

TEST_F(EngineRun, UsesTheGapFillingThatAnEarlierRunKept) {
    EXPECT_TRUE(holds(runSingle(2).screen, "No gap filling is kept"));
    const std::string without = folder.textOf("SMALL.SGR");
    runSingle(1);
    EXPECT_TRUE(holds(folder.textOf("SMALL.GAP"), "FLOW, 2, "));
    EXPECT_TRUE(holds(runSingle(2).screen, "Gap filling used: 1 of flow, 0 of quality"));
    EXPECT_NE(folder.textOf("SMALL.SGR"), without);
    runSingle(3);
    EXPECT_TRUE(holds(runSingle(4).screen, "Gap filling used: 1 of flow, 2 of quality"));
}

TEST_F(EngineRun, TellsBadInputInOneLineAndLeavesOldOutputsAlone) {
    runSingle(0);
    const std::string before = folder.textOf("SMALL.SGR");
    folder.put("SMALL.DAT",
               smallCatchment::replaced(smallCatchment::variableText(), "Upper, 4, 2", "Upper, 4, 7"));
    const Outcome outcome = runSingle(0);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(outcome.screen.ends_with(
        "ERROR: SMALL.DAT, line 10: reach 1 runs into reach 7, which is not there\n"));
    EXPECT_EQ(folder.textOf("SMALL.SGR"), before);
    EXPECT_EQ(folder.entries(), 7);
}

TEST_F(EngineRun, RefusesAKeptGapFillingThatDoesNotFit) {
    folder.put("SMALL.GAP", "FLOW, 99, 0, 1, 1, 1\n");
    const Outcome outcome = runSingle(2);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(holds(outcome.screen, "ERROR: SMALL.GAP, line 1: reach 99 is not in the data file"));
}

TEST_F(EngineRun, RunsTheOtherFilesOfABatchWhereOneFails) {
    folder.put("BAD.DAT", "nonsense");
    folder.put("LAST.DAT", smallCatchment::variableText());
    const Outcome outcome = run("Night\r\n" + request("SMALL.DAT", 0) + request("BAD.DAT", 0) +
                                request("GONE.DAT", 0) + request("LAST.DAT", 8));
    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(holds(outcome.screen, "\nFile 1 of 4: SMALL.DAT\n"));
    EXPECT_TRUE(holds(outcome.screen, "\nFile 2 of 4: BAD.DAT\n"));
    EXPECT_TRUE(
        holds(outcome.screen, "ERROR: BAD.DAT, line 1: is not a data file of the demonstration engine"));
    EXPECT_TRUE(holds(outcome.screen, "GONE.DAT: No such file or directory\n"));
    EXPECT_TRUE(outcome.screen.ends_with("2 of 4 files failed.\n"));
    EXPECT_TRUE(folder.textOf("LAST.SGR").starts_with("Demonstration engine, run 8: Small River\r\n"));
    EXPECT_TRUE(folder.textOf("BAD.SGR").empty());
    // Each copy of the screen holds its own file's lines.
    EXPECT_TRUE(holds(folder.textOf("LAST.SCN"), "File 4 of 4: LAST.DAT\r\n"));
    EXPECT_FALSE(holds(folder.textOf("LAST.SCN"), "SMALL"));
}

TEST_F(EngineRun, FindsNamesThatDifferInCaseOnly) {
    folder.put("lower.dat", smallCatchment::variableText());
    folder.put("lower.sgr", "old");
    EXPECT_EQ(run("SINGLE\r\n" + request("LOWER.DAT", 0)).status, 0);
    EXPECT_TRUE(folder.textOf("lower.sgr").starts_with("Demonstration"));
    EXPECT_TRUE(folder.textOf("LOWER.SGR").empty());
    EXPECT_FALSE(folder.textOf("LOWER.OUT").empty());
}

TEST_F(EngineRun, LeavesAllOutputsAloneWhereOneCantBeWritten) {
    runSingle(0);
    const std::string before = folder.textOf("SMALL.SGR");
    std::filesystem::remove(folder.path("SMALL.SUM"));
    folder.makeFolder("SMALL.SUM");
    const Outcome outcome = runSingle(8);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(holds(outcome.screen, "ERROR: can't write " + folder.path("SMALL.SUM")));
    EXPECT_EQ(folder.textOf("SMALL.SGR"), before);
    EXPECT_EQ(folder.entries(), 7);
}

TEST_F(EngineRun, SaysThatItsRunControlFileIsMissingOrWrong) {
    std::ostringstream screen;
    EXPECT_EQ(runEngine(folder.path(), screen), 1);
    EXPECT_TRUE(holds(screen.str(), "ERROR: can't open " + folder.path("RUNDAT.TMP")));
    const Outcome outcome = run("SINGLE\r\nF\r\nA.DAT\r\n 12 \r\n");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(holds(outcome.screen, "ERROR: RUNDAT.TMP, line 4: is not a run type from 0 to 9\n"));
}

} // namespace korvel
