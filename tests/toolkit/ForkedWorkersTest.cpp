#include "toolkit/process/ForkedWorkers.h"

#include "platform/TemporaryFolder.h"
#include "toolkit/process/GuardedEngine.h"

#include <csignal>
#include <gtest/gtest.h>
#include <map>
#include <stdexcept>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace korvel {

namespace {

using namespace std::chrono_literals;
using Kind = WorkerEvent::Kind;

struct ForkedWorkersTest : testing::Test {
    StopSignals signals;
    TemporaryFolder folder;

    // An engine that starts something of its own, and waits.
    std::string waitingEngine() const {
        folder.put("engine", "#!/bin/sh\nsleep 100 & echo $! >child\necho $$ >id\nwait\n");
        std::filesystem::permissions(folder.path("engine"), std::filesystem::perms::owner_all);
        return folder.path("engine");
    }
    std::string runEngine() const {
        return std::to_string(GuardedEngine()
                                  .run(folder.path("engine"), folder.path(), folder.path("said"))
                                  .status.value_or(0));
    }
    int awaitedId(const std::string& file) const {
        while (folder.textOf(file).empty())
            std::this_thread::sleep_for(10ms);
        return std::stoi(folder.textOf(file));
    }
    static bool ends(int process) {
        for (int k = 0; k < 500; ++k) {
            if (::kill(process, 0) != 0) return true;
            std::this_thread::sleep_for(10ms);
        }
        return false;
    }
};

TEST_F(ForkedWorkersTest, AnswerOneJobAfterTheOther) {
    ForkedWorkers workers(
        2, [](const std::string& job) { return job + "!"; }, signals);
    for (const char* job : {"a", "b", "c"}) {
        workers.give(1, job);
        const WorkerEvent event = workers.wait(10s);
        EXPECT_EQ(event.kind, Kind::answer);
        EXPECT_EQ(event.worker, 1U);
        EXPECT_EQ(event.text, std::string(job) + "!");
    }
}

TEST_F(ForkedWorkersTest, WorkSideBySide) {
    ForkedWorkers workers(
        3, [](const std::string& job) { return job + std::to_string(getpid()); }, signals);
    std::map<std::size_t, std::string> answers;
    for (std::size_t worker = 0; worker < 3; ++worker)
        workers.give(worker, "p");
    for (int k = 0; k < 3; ++k) {
        const WorkerEvent event = workers.wait(10s);
        answers[event.worker] = event.text;
    }
    ASSERT_EQ(answers.size(), 3U);
    EXPECT_NE(answers[0], answers[1]);
    EXPECT_NE(answers[1], answers[2]);
}

TEST_F(ForkedWorkersTest, TellsHowAWorkerEndedAndStartsItAnew) {
    ForkedWorkers workers(
        1,
        [](const std::string& job) {
            if (job == "kill") ::kill(getpid(), SIGKILL);
            if (job == "throw") throw std::runtime_error("no");
            return job;
        },
        signals);
    workers.give(0, "kill");
    WorkerEvent event = workers.wait(10s);
    EXPECT_EQ(event.kind, Kind::death);
    EXPECT_EQ(event.text, "ended by the signal Killed");
    workers.give(0, "throw");
    event = workers.wait(10s);
    EXPECT_EQ(event.text, "ended with status 1");
    workers.give(0, "well");
    EXPECT_EQ(workers.wait(10s).text, "well");
}

TEST_F(ForkedWorkersTest, TellsOfASignalToStopAndOfTime) {
    ForkedWorkers workers(
        1, [](const std::string& job) { return job; }, signals);
    EXPECT_EQ(workers.wait(10ms).kind, Kind::time);
    ::kill(getpid(), SIGINT);
    EXPECT_EQ(workers.wait(10s).kind, Kind::stop);
    EXPECT_EQ(workers.wait(10ms).kind, Kind::time);
}

TEST_F(ForkedWorkersTest, GiveUpTheirEngineWhenTheyAreAsked) {
    waitingEngine();
    ForkedWorkers workers(
        1, [this](const std::string&) { return runEngine(); }, signals);
    workers.give(0, "run");
    awaitedId("id");
    workers.askToStop();
    EXPECT_EQ(workers.wait(10s).text, "143");
}

TEST_F(ForkedWorkersTest, TakeTheirEngineWithThemWhenTheyAreKilled) {
    waitingEngine();
    ForkedWorkers workers(
        1, [this](const std::string&) { return runEngine(); }, signals);
    workers.give(0, "run");
    const int engine = awaitedId("id");
    workers.kill();
    EXPECT_EQ(workers.wait(10s).kind, Kind::death);
    EXPECT_TRUE(ends(engine));
    ::kill(awaitedId("child"), SIGKILL);
}

TEST_F(ForkedWorkersTest, EndWithEverythingWhenTheirParentIsKilled) {
    waitingEngine();
    const pid_t parent = fork();
    if (parent == 0) {
        ForkedWorkers workers(
            1, [this](const std::string&) { return runEngine(); }, signals);
        workers.give(0, "run");
        workers.wait(100s);
        _exit(0);
    }
    const int engine = awaitedId("id");
    ::kill(parent, SIGKILL);
    waitpid(parent, nullptr, 0);
    EXPECT_TRUE(ends(engine));
    EXPECT_TRUE(ends(awaitedId("child")));
}

TEST_F(ForkedWorkersTest, EndWithTheObject) {
    waitingEngine();
    {
        ForkedWorkers workers(
            1, [this](const std::string&) { return runEngine(); }, signals);
        workers.give(0, "run");
        awaitedId("id");
    }
    EXPECT_TRUE(ends(awaitedId("id")));
}

} // namespace

} // namespace korvel
