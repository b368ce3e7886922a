#include "many/LocalRun.h"

#include "basic/RunTimeError.h"
#include "commands/SingleRunRules.h"
#include "fakes/ResultsFileBuilder.h"
#include "many/FakeEngineRun.h"
#include "many/FakeWorkers.h"
#include "platform/TemporaryFolder.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <set>

namespace korvel {

namespace {

using namespace std::chrono_literals;
using Row = Tally::Row;

const std::string wholeResults =
    ResultsFileBuilder().determinand(1, "BOD").reach(1, "Upper").points(2, 1).text();

// Five rows of small catchments; the engine fails where the data file says so.
struct FiveRuns : testing::Test {
    FiveRuns() {
        folder.put("app/korvelf157.exe", "engine");
        for (const char* base : {"A", "B", "C", "D", "E"})
            folder.put(std::string(base) + ".DAT", "good");
        engine.what = [this](const std::string& where, const std::string&) {
            const std::string base = where.substr(where.rfind('/') + 1);
            ran += base;
            const bool good = folder.textOf(base + ".DAT") == "good";
            if (good) folder.put(base + ".SGR", wholeResults);
            return EngineEnd{good ? 0 : 1, false, ""};
        };
    }

    void plan(const std::string& title = "") {
        std::string text = "name,data_file,type,title\n";
        for (const char* base : {"A", "B", "C", "D", "E"})
            text += std::string(base) + "," + base + ".DAT,0," + title + "\n";
        runs = readPlan(text, folder.path(), rulesOfSingleRuns()).runs;
    }

    // One call of `korvel runs`. What ran stands in `ran`.
    DealEnd call(const std::string& resume = "", AfterFailure afterFailure = AfterFailure::goOn) {
        ran.clear();
        const RunSetting setting =
            runSetting(placesOfPlan(folder.path("p.csv")), rulesOfSingleRuns(), folder.path("app"), "1");
        RecordFile record(setting.places.record, 0ms);
        workers.work = [&](const std::string& job) {
            if (onJob) onJob(job);
            return workOnRow(job, runs, setting, record.last(), engine);
        };
        tally = Tally(runs.size());
        const LocalRunCall here{runs, setting, record, tally, {}};
        if (!resume.empty()) keepWhatHolds(here, workers);
        const DealEnd end = runHere(here, workers, afterFailure);
        last = record.last();
        return end;
    }
    std::size_t recordLines() const {
        const std::string text = folder.textOf("p.runs.jsonl");
        return static_cast<std::size_t>(std::ranges::count(text, '\n'));
    }

    TemporaryFolder folder;
    FakeEngineRun engine;
    FakeWorkers workers{2, {}};
    std::function<void(const std::string& job)> onJob;
    std::vector<PlannedRun> runs;
    Tally tally{0};
    LastRecords last;
    std::string ran;
};

TEST_F(FiveRuns, AreCarriedOutTwoAtATime) {
    plan("title");
    EXPECT_EQ(call(), DealEnd::all);
    EXPECT_EQ(ran.size(), 5U);
    EXPECT_TRUE(tally.allDone());
    EXPECT_EQ(workers.mostBusy, 2U);
    EXPECT_EQ(recordLines(), 10U);
    EXPECT_EQ(last.at("C").state, RunState::done);
    EXPECT_EQ(last.at("C").title, "title");
}

TEST_F(FiveRuns, AreAllRunAgainWithoutResume) {
    plan();
    call();
    call();
    EXPECT_EQ(ran.size(), 5U);
    EXPECT_EQ(recordLines(), 20U);
}

TEST_F(FiveRuns, AreKeptByResumeAndTheRecordStaysAsItIs) {
    plan();
    call();
    call("resume");
    EXPECT_EQ(ran, "");
    EXPECT_EQ(tally.count(Row::kept), 5U);
    EXPECT_EQ(recordLines(), 10U);
}

TEST_F(FiveRuns, AreRunAgainByResumeWhereTheyChanged) {
    plan();
    call();
    folder.put("B.SGR", "edited");
    runs[3].type = 4;
    call("resume");
    EXPECT_EQ(tally.count(Row::kept), 3U);
    EXPECT_EQ(std::set<char>(ran.begin(), ran.end()), (std::set<char>{'B', 'D'}));
    EXPECT_EQ(last.at("D").type, 4);
}

TEST_F(FiveRuns, TakeANewTitleIntoTheRecordWithoutRunning) {
    plan("old");
    call();
    plan("new");
    call("resume");
    EXPECT_EQ(ran, "");
    EXPECT_EQ(last.at("A").title, "new");
    EXPECT_EQ(last.at("A").state, RunState::done);
}

TEST_F(FiveRuns, GoOnWhereOneFails) {
    plan();
    folder.put("B.DAT", "bad");
    EXPECT_EQ(call(), DealEnd::all);
    EXPECT_EQ(tally.count(Row::done), 4U);
    EXPECT_EQ(tally.rowsIn(Row::failed), std::vector<std::size_t>{1});
    EXPECT_EQ(tally.message(1), "The engine ended with status 1: ");
    folder.put("B.DAT", "good");
    call("resume");
    EXPECT_EQ(ran, "B");
    EXPECT_TRUE(tally.allDone());
}

TEST_F(FiveRuns, StartNoMoreAfterAFailureWhereTheUserSaysSo) {
    plan();
    folder.put("B.DAT", "bad");
    call("", AfterFailure::stop);
    EXPECT_EQ(tally.count(Row::failed), 1U);
    EXPECT_EQ(tally.count(Row::running), 0U);
    EXPECT_GE(tally.count(Row::waiting), 2U);
    EXPECT_LT(ran.size(), 4U);
}

TEST_F(FiveRuns, AreGivenUpWhereTheUserStops) {
    plan();
    workers.stopAfter = 1;
    engine.what = [&, before = engine.what](const std::string& where, const std::string& output) {
        return workers.stops > 0 ? EngineEnd{143, true, ""} : before(where, output);
    };
    EXPECT_EQ(call(), DealEnd::stopped);
    EXPECT_EQ(tally.count(Row::done), 1U);
    EXPECT_EQ(tally.count(Row::stopped), 2U);
    EXPECT_EQ(tally.count(Row::waiting), 2U);
    EXPECT_EQ(workers.kills, 0);
    workers.stopAfter.reset();
    workers.stops = 0;
    call("resume");
    EXPECT_EQ(tally.count(Row::kept), 1U);
    EXPECT_TRUE(tally.allDone());
}

TEST_F(FiveRuns, FailWhereTheirWorkerDies) {
    plan();
    onJob = [](const std::string& job) {
        if (job.starts_with("run 2 ")) throw std::runtime_error("ended by a signal");
    };
    EXPECT_EQ(call(), DealEnd::all);
    EXPECT_EQ(tally.count(Row::done), 4U);
    EXPECT_EQ(last.at("C").state, RunState::failed);
    EXPECT_EQ(last.at("C").message, "The process that watched over this run ended by a signal.");
}

TEST_F(FiveRuns, TakeATitleOfAnyLength) {
    plan(std::string(100000, 't'));
    call();
    EXPECT_TRUE(tally.allDone());
    EXPECT_EQ(last.at("A").title.size(), 100000U);
}

} // namespace

} // namespace korvel
