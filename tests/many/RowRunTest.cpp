#include "many/RowRun.h"

#include "basic/RunTimeError.h"
#include "commands/SingleRunRules.h"
#include "fakes/ResultsFileBuilder.h"
#include "many/FakeEngineRun.h"
#include "many/Sums.h"
#include "platform/TemporaryFolder.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace korvel {

namespace {

namespace fs = std::filesystem;

std::string wholeResults() {
    return ResultsFileBuilder()
        .determinand(1, "BOD")
        .reach(1, "Upper")
        .reach(2, "Lower")
        .points(2, 1)
        .points(2, 2)
        .text();
}

struct RowRunTest : testing::Test {
    RowRunTest() {
        for (const char* file :
             {"korvel", "korvelf157.exe", "KORDAT4.TXT", "MISC.TXT", "RUNDAT.TMP", "ENGINE.DLL"})
            folder.put(std::string("app/") + file, file);
        folder.makeFolder("app/sub");
        folder.put("A.DAT", "data");
        engine.what = [this](const std::string&, const std::string&) {
            folder.put("A.SGR", wholeResults());
            return EngineEnd{0, false, ""};
        };
    }

    RunSetting setting() const {
        return runSetting(placesOfPlan(folder.path("p.csv")), rulesOfSingleRuns(), folder.path("app"),
                          "1.2.3");
    }
    RunRecord run() {
        const Plan plan =
            readPlan("name,data_file,type,title\nten %,A.DAT,4,T\n", folder.path(), rulesOfSingleRuns());
        const RunSetting now = setting();
        return carryOut(now, plan.runs.at(0), startedRecord(now, plan.runs[0]), engine);
    }
    std::string failure() {
        const RunRecord record = run();
        EXPECT_EQ(record.state, RunState::failed);
        EXPECT_TRUE(record.results.empty() && record.resultsSum.empty());
        EXPECT_TRUE(fs::exists(privateFolder()));
        return record.message;
    }
    std::string privateFolder() const { return folder.path("p.runs/ten %25"); }

    TemporaryFolder folder;
    FakeEngineRun engine;
};

TEST_F(RowRunTest, TellsAllThatIsKnownOfARunThatIsDone) {
    const RunRecord record = run();
    EXPECT_EQ(record.state, RunState::done) << record.message;
    EXPECT_EQ(record.name, "ten %");
    EXPECT_EQ(record.dataFile, "A.DAT");
    EXPECT_EQ(record.type, 4);
    EXPECT_EQ(record.title, "T");
    EXPECT_EQ(record.exitStatus, 0);
    EXPECT_LE(record.started, record.ended);
    EXPECT_FALSE(record.host.empty());
    EXPECT_EQ(record.engineSum, sha256Of("korvelf157.exe"));
    EXPECT_EQ(record.dataSum, sha256Of("data"));
    EXPECT_EQ(record.results, "A.SGR");
    EXPECT_EQ(record.resultsSum, sha256Of(wholeResults()));
    EXPECT_EQ(record.korvel, "1.2.3");
    EXPECT_EQ(record.message, "");
    EXPECT_FALSE(fs::exists(privateFolder()));
}

TEST_F(RowRunTest, TellsTheResultsInTheFolderOfTheDataFile) {
    folder.put("wet/2020/A.DAT", "data");
    engine.what = [this](const std::string&, const std::string&) {
        folder.put("wet/2020/A.SGR", wholeResults());
        return EngineEnd{0, false, ""};
    };
    const Plan plan =
        readPlan("name,data_file,type,title\nwet,wet/2020/A.DAT,4,T\n", folder.path(), rulesOfSingleRuns());
    const RunSetting now = setting();
    const RunRecord record = carryOut(now, plan.runs.at(0), startedRecord(now, plan.runs[0]), engine);
    EXPECT_EQ(record.results, "wet/2020/A.SGR") << record.message;
}

TEST_F(RowRunTest, HasAFolderWithTheEnginesFilesAndItsOwnRunControlFile) {
    std::vector<std::string> names;
    std::string control;
    engine.what = [&](const std::string& where, const std::string&) {
        for (const auto& entry : fs::directory_iterator(where)) {
            names.push_back(entry.path().filename().string());
            EXPECT_EQ(entry.is_symlink(), names.back() != "RUNDAT.TMP") << names.back();
        }
        control = folder.textOf("p.runs/ten %25/RUNDAT.TMP");
        return EngineEnd{1, false, ""};
    };
    run();
    std::ranges::sort(names);
    EXPECT_EQ(names, (std::vector<std::string>{"ENGINE.DLL", "RUNDAT.TMP", "korvelf157.exe"}));
    const RunFiles files = std::get<RunFiles>(rulesOfSingleRuns().dataFile(folder.model("A.DAT")));
    EXPECT_EQ(control, rulesOfSingleRuns().runControlText(files, 4));
}

TEST_F(RowRunTest, StartsFromAnEmptyFolderAfterAFailure) {
    folder.put("p.runs/ten %25/left.txt");
    run();
    EXPECT_FALSE(fs::exists(privateFolder()));
}

TEST_F(RowRunTest, FindsTheResultsInTheSpellingThatIsThere) {
    folder.put("a.sgr", "old");
    engine.what = [&](const std::string&, const std::string&) {
        folder.put("a.sgr", wholeResults());
        return EngineEnd{0, false, ""};
    };
    EXPECT_EQ(run().results, "a.sgr");
}

TEST_F(RowRunTest, FailsWithTheEnginesLastWords) {
    engine.what = [&](const std::string&, const std::string& output) {
        std::ofstream(output) << "KORVEL\r\nERROR: no reach 7\r\n \r\n";
        return EngineEnd{3, false, ""};
    };
    EXPECT_EQ(failure(), "The engine ended with status 3: ERROR: no reach 7");
    EXPECT_EQ(run().exitStatus, 3);
    EXPECT_EQ(folder.textOf("p.runs/ten %25/output.txt"), "KORVEL\r\nERROR: no reach 7\r\n \r\n");
}

TEST_F(RowRunTest, FailsWhereTheEngineDoesNotStart) {
    engine.what = [](const std::string&, const std::string&) {
        return EngineEnd{std::nullopt, false, "No wine."};
    };
    EXPECT_EQ(failure(), "No wine.");
    EXPECT_EQ(run().exitStatus, std::nullopt);
}

TEST_F(RowRunTest, IsStoppedWhereSomebodyAskedForIt) {
    engine.what = [](const std::string&, const std::string&) { return EngineEnd{143, true, ""}; };
    const RunRecord record = run();
    EXPECT_EQ(record.state, RunState::stopped);
    EXPECT_EQ(record.exitStatus, 143);
}

TEST_F(RowRunTest, FailsWithoutNewResultsThatAreWhole) {
    struct Case {
        const char* before;
        std::string after; // "": nothing is written
        const char* message;
    };
    const Case cases[] = {
        {"", "", "The engine has left no results."},
        {"old", "", "The engine has left the results of an earlier run."},
        {"old", "rubbish", "The results can't be read: Input past end of file."},
        {"",
         ResultsFileBuilder().determinand(1, "BOD").reach(1, "Upper").reach(2, "Lower").points(2, 2).text(),
         "The results have no point in reach 1."},
        {"", wholeResults().substr(0, wholeResults().size() - 10),
         "The results can't be read: Input past end of file."},
    };
    for (const Case& one : cases) {
        fs::remove(folder.path("A.SGR"));
        if (*one.before != '\0') folder.put("A.SGR", one.before);
        engine.what = [&](const std::string&, const std::string&) {
            if (!one.after.empty()) folder.put("A.SGR", one.after);
            return EngineEnd{0, false, ""};
        };
        EXPECT_EQ(failure(), one.message);
    }
}

TEST_F(RowRunTest, FailsWhereTheResultsAreOlderThanItsStart) {
    engine.what = [&](const std::string&, const std::string&) {
        folder.put("A.SGR", wholeResults());
        fs::last_write_time(folder.path("A.SGR"), fs::file_time_type::clock::now() - std::chrono::minutes(1));
        return EngineEnd{0, false, ""};
    };
    EXPECT_EQ(failure(), "The engine has left the results of an earlier run.");
}

TEST_F(RowRunTest, FailsWhereItsFilesChangeMeanwhile) {
    engine.what = [&](const std::string&, const std::string&) {
        folder.put("A.SGR", wholeResults());
        folder.put("A.DAT", "changed");
        return EngineEnd{0, false, ""};
    };
    EXPECT_EQ(failure(), "The data file changed while the model ran on it.");
    engine.what = [&](const std::string&, const std::string&) {
        folder.put("A.SGR", wholeResults());
        folder.put("app/korvelf157.exe", "another");
        return EngineEnd{0, false, ""};
    };
    EXPECT_EQ(failure(), "The engine was replaced while it ran.");
}

TEST_F(RowRunTest, TellsTheSumOfAnEngineThatWasReplacedSinceTheCallBegan) {
    const RunSetting before = setting();
    folder.put("app/korvelf157.exe", "another");
    const Plan plan = readPlan("name,data_file,type\na,A.DAT,4\n", folder.path(), rulesOfSingleRuns());
    const RunRecord record = carryOut(before, plan.runs.at(0), startedRecord(before, plan.runs[0]), engine);
    EXPECT_EQ(record.state, RunState::done);
    EXPECT_EQ(record.engineSum, sha256Of("another"));
}

TEST_F(RowRunTest, FailsWhereItsFolderCanNotBeMade) {
    folder.put("p.runs", "a file");
    EXPECT_EQ(run().state, RunState::failed);
    EXPECT_EQ(engine.runs, 0);
}

TEST_F(RowRunTest, NeedsAnEngine) {
    fs::remove(folder.path("app/korvelf157.exe"));
    EXPECT_THROW(setting(), RunTimeError);
}

} // namespace

} // namespace korvel
