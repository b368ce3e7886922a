#include "many/ClusterRun.h"

#include "basic/Text.h"
#include "commands/SingleRunRules.h"
#include "fakes/ResultsFileBuilder.h"
#include "many/ClusterTask.h"
#include "many/FakeEngineRun.h"
#include "many/FakeTools.h"
#include "platform/TemporaryFolder.h"

#include <algorithm>
#include <deque>
#include <gtest/gtest.h>
#include <regex>

namespace korvel {

namespace {

using namespace std::chrono_literals;
using Row = Tally::Row;

const std::string wholeResults =
    ResultsFileBuilder().determinand(1, "BOD").reach(1, "Upper").points(2, 1).text();

class FakeStopWishes : public StopWishes {
  public:
    std::deque<StopWish> wishes;
    StopWish wait(std::chrono::milliseconds) override {
        if (wishes.empty()) return StopWish::none;
        const StopWish next = wishes.front();
        wishes.pop_front();
        return next;
    }
};

// Five rows and a cluster that takes two tasks. Its tasks run when they are asked for, in this process.
struct Cluster : testing::Test {
    Cluster() {
        folder.put("app/korvelf157.exe", "engine");
        std::string text = "name,data_file,type\n";
        for (const char* base : {"A", "B", "C", "D", "E"}) {
            folder.put(std::string(base) + ".DAT", "good");
            text += std::string(base) + "," + base + ".DAT," + (*base == 'B' ? "4" : "0") + "\n";
        }
        runs = readPlan(text, folder.path(), rulesOfSingleRuns()).runs;
        engine.what = [this](const std::string& where, const std::string&) {
            const std::string base = where.substr(where.rfind('/') + 1);
            if (folder.textOf(base + ".DAT") != "good") return EngineEnd{1, false, ""};
            folder.put(base + ".SGR", wholeResults);
            return EngineEnd{0, false, ""};
        };
        tools.answers["scontrol show config"] = {0, "MaxArraySize = 3\n", ""};
        tools.answers["sbatch"] = {0, "77\n", ""};
        tools.answers["squeue"] = {0, "0 RUNNING\n1 RUNNING\n", ""};
        tools.answers["scancel"] = {0, "", ""};
        tools.onCall = [this](const std::string& call) {
            if (call.starts_with("squeue") && runsTasks) runTasks();
        };
    }

    ClusterCall call() {
        return {runs,         places,       *record, tally, slurm, stop, {"korvel", "it's"},
                {"--time=1"}, afterFailure, {}};
    }
    void runTasks() {
        const RunSetting setting = runSetting(places, rulesOfSingleRuns(), folder.path("app"), "1");
        for (const Submission& submission : submissionsOf(places))
            for (std::size_t task = 0; task < submission.tasks(); ++task)
                if (!std::filesystem::exists(submission.record(task)))
                    carryOutTask(submission, task, setting, engine);
        tools.answers["squeue"] = {0, "0 COMPLETED\n1 COMPLETED\n", ""};
    }
    // As it is after a call that was killed.
    Submission handedOver() {
        std::vector<const PlannedRun*> rows;
        for (const PlannedRun& run : runs)
            rows.push_back(&run);
        const Submission submission = makeSubmission(places, rows, 2, {"korvel"});
        submission.keepJob("77");
        return submission;
    }
    std::size_t recordLines() const {
        const std::string text = folder.textOf("p.runs.jsonl");
        return static_cast<std::size_t>(std::ranges::count(text, '\n'));
    }

    TemporaryFolder folder;
    PlanPlaces places = placesOfPlan(folder.path("p.csv"));
    std::unique_ptr<RecordFile> record = std::make_unique<RecordFile>(places.record, 0ms);
    FakeEngineRun engine;
    FakeTools tools;
    FakeStopWishes stop;
    Slurm slurm{tools};
    std::vector<PlannedRun> runs;
    Tally tally{5};
    AfterFailure afterFailure = AfterFailure::goOn;
    bool runsTasks = true;
};

TEST_F(Cluster, RunsTheRowsInTasksAndTheirLinesComeIntoTheRecord) {
    folder.put("D.DAT", "bad");
    EXPECT_EQ(runOnCluster(call()), ClusterEnd::all);
    EXPECT_EQ(tally.count(Row::done), 4U);
    EXPECT_EQ(tally.rowsIn(Row::failed), std::vector<std::size_t>{3});
    EXPECT_EQ(recordLines(), 10U);
    for (const PlannedRun& run : runs)
        EXPECT_EQ(record->lastOf(run.name)->type, run.type);
    EXPECT_TRUE(submissionsOf(places).empty());
    EXPECT_TRUE(contains(tools.calls.at(1), "--time=1 --parsable --no-requeue")) << tools.calls.at(1);
    EXPECT_TRUE(contains(tools.calls.at(1), "--array=0-1 "));
}

TEST_F(Cluster, HandsOverOnlyTheRowsThatWait) {
    for (const std::size_t row : {0, 1, 2, 4})
        tally.set(row, Row::kept);
    EXPECT_EQ(runOnCluster(call()), ClusterEnd::all);
    EXPECT_EQ(engine.runs, 1);
    EXPECT_TRUE(tally.allDone());
    EXPECT_EQ(runOnCluster(call()), ClusterEnd::all);
    EXPECT_EQ(engine.runs, 1);
}

TEST_F(Cluster, LeavesNothingBehindWhereSlurmTakesNothing) {
    tools.answers["sbatch"] = {1, "", "no such partition\n"};
    EXPECT_THROW(runOnCluster(call()), SlurmError);
    EXPECT_TRUE(submissionsOf(places).empty());
    EXPECT_EQ(recordLines(), 0U);
}

TEST_F(Cluster, GoesOnWithoutItsFollower) {
    runsTasks = false;
    stop.wishes = {StopWish::none, StopWish::hangUp};
    EXPECT_EQ(runOnCluster(call()), ClusterEnd::leftRunning);
    EXPECT_EQ(submissionsOf(places).size(), 1U);
    EXPECT_FALSE(contains(tools.calls.back(), "scancel"));
}

TEST_F(Cluster, IsAskedToCancelWhereTheUserStops) {
    runsTasks = false;
    stop.wishes = {StopWish::stop, StopWish::stop};
    EXPECT_EQ(runOnCluster(call()), ClusterEnd::leftRunning);
    EXPECT_EQ(std::ranges::count_if(tools.calls, [](const auto& one) { return one.starts_with("scancel"); }),
              1);
}

TEST_F(Cluster, StartsNoMoreAfterAFailureWhereTheUserSaysSo) {
    afterFailure = AfterFailure::stop;
    folder.put("A.DAT", "bad");
    EXPECT_EQ(runOnCluster(call()), ClusterEnd::all);
    EXPECT_TRUE(contains(tools.calls.back(), "--state=PENDING")) << tools.calls.back();
}

TEST_F(Cluster, WaitsWhereSlurmCanNotBeAsked) {
    tools.answers["squeue"] = {1, "", "down\n"};
    runsTasks = false;
    stop.wishes = {StopWish::none, StopWish::none, StopWish::none, StopWish::hangUp};
    EXPECT_EQ(runOnCluster(call()), ClusterEnd::leftRunning);
}

TEST_F(Cluster, RefusesAnotherCallWhileItsTasksRun) {
    runsTasks = false;
    handedOver();
    EXPECT_THROW(takeLeftovers(call(), Leftovers::refuse), SlurmError);
    EXPECT_EQ(submissionsOf(places).size(), 1U);
}

TEST_F(Cluster, IsFollowedByALaterCall) {
    handedOver();
    EXPECT_EQ(takeLeftovers(call(), Leftovers::follow), ClusterEnd::all);
    EXPECT_EQ(recordLines(), 10U);
    EXPECT_TRUE(submissionsOf(places).empty());
}

TEST_F(Cluster, HasItsFinishedTasksTakenInOnce) {
    handedOver();
    runTasks();
    const std::string ofTask =
        folder.textOf(submissionsOf(places)[0].record(0).substr(folder.path().size() + 1));
    const RunRecord merged = recordOfLine(ofTask.substr(0, ofTask.find('\n'))).value();
    record->append(merged); // the call before was killed after its first line
    EXPECT_EQ(takeLeftovers(call(), Leftovers::refuse), ClusterEnd::all);
    EXPECT_EQ(recordLines(), 10U);
    EXPECT_EQ(record->lastOf("A")->state, RunState::done);
    EXPECT_TRUE(submissionsOf(places).empty());
}

TEST_F(Cluster, LosesNoEarlierResultsToATaskThatNeverBegan) {
    RunRecord done;
    done.name = "A";
    done.state = RunState::done;
    record->append(done);
    handedOver();
    tools.answers["squeue"] = {0, "0 NODE_FAIL\n1 NODE_FAIL\n", ""};
    runsTasks = false;
    EXPECT_EQ(takeLeftovers(call(), Leftovers::refuse), ClusterEnd::all);
    EXPECT_EQ(record->lastOf("A")->state, RunState::done);
    EXPECT_EQ(record->lastOf("B")->state, RunState::failed);
    EXPECT_EQ(record->lastOf("B")->message, "Slurm ended the job: NODE_FAIL.");
    EXPECT_EQ(tally.count(Row::failed), 5U);
}

TEST_F(Cluster, ForgetsWhatWasNeverHandedOver) {
    std::vector<const PlannedRun*> rows = {&runs[0]};
    makeSubmission(places, rows, 2, {"korvel"});
    tools.answers["squeue"] = {0, "", ""};
    runsTasks = false;
    EXPECT_EQ(takeLeftovers(call(), Leftovers::refuse), ClusterEnd::all);
    EXPECT_EQ(recordLines(), 0U);
    EXPECT_TRUE(submissionsOf(places).empty());
}

TEST_F(Cluster, TellsWhereSlurmCanNotBeAskedAboutEarlierRuns) {
    const Submission submission = handedOver();
    tools.absent.insert("squeue");
    try {
        takeLeftovers(call(), Leftovers::refuse);
        FAIL();
    } catch (const SlurmError& error) {
        EXPECT_EQ(std::string(error.what()),
                  "Runs of an earlier call may still be with Slurm. There is no squeue on "
                  "this machine. If none runs any more, remove " +
                      submission.folder());
    }
}

TEST_F(Cluster, PartsTheRowsEvenlyAndQuotesTheWordsOfItsScript) {
    std::vector<const PlannedRun*> rows;
    for (const PlannedRun& run : runs)
        rows.push_back(&run);
    const Submission submission = makeSubmission(places, rows, 3, {"/opt/it's/korvel", "runs"});
    ASSERT_EQ(submission.tasks(), 3U);
    EXPECT_EQ(submission.rows(0).size(), 1U);
    EXPECT_EQ(submission.rows(1).size(), 2U);
    EXPECT_EQ(submission.rows(2).size(), 2U);
    EXPECT_EQ(submission.rows(2).back().name, "E");
    EXPECT_EQ(folder.textOf(submission.script().substr(folder.path().size() + 1)),
              "#!/bin/sh\nexec '/opt/it'\\''s/korvel' 'runs' '" + submission.folder() + "'\n");
}

TEST_F(Cluster, HasTasksThatEndWithTheirSubmission) {
    const Submission submission = handedOver();
    engine.what = [&](const std::string&, const std::string&) {
        submission.remove();
        return EngineEnd{0, false, ""};
    };
    const RunSetting setting = runSetting(places, rulesOfSingleRuns(), folder.path("app"), "1");
    EXPECT_EQ(carryOutTask(submission, 1, setting, engine), TaskEnd::notAll);
    EXPECT_EQ(engine.runs, 1);
    EXPECT_TRUE(submission.isGone());
}

} // namespace

TEST_F(Cluster, NamesItsJobByTimeAndChance) {
    const std::string name = handedOver().jobName();
    EXPECT_TRUE(std::regex_match(name, std::regex("korvel-[0-9]{8}T[0-9]{6}-[a-z]{8}"))) << name;
}

} // namespace korvel
