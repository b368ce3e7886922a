// The watched engine, with real processes: small shell scripts stand for it.
#include "toolkit/process/GuardedEngine.h"

#include "platform/TemporaryFolder.h"
#include "toolkit/process/StopSignals.h"

#include <chrono>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace korvel {

namespace {

using namespace std::chrono_literals;

class GuardedEngineTest : public testing::Test {
  protected:
    EngineEnd run(const std::string& script,
                  std::filesystem::perms mode = std::filesystem::perms::owner_all) {
        folder.put("engine", "#!/bin/sh\n" + script);
        std::filesystem::permissions(folder.path("engine"), mode);
        return GuardedEngine().run(folder.path("engine"), folder.path(), folder.path("said.txt"));
    }
    std::string said() const { return folder.textOf("said.txt"); }
    // A process that sends the signal to this one after a while.
    static void signalSoon(int signal) {
        const pid_t self = getpid();
        if (fork() == 0) {
            usleep(200000);
            ::kill(self, signal);
            _exit(0);
        }
    }
    bool isAlive(const std::string& idFile) const {
        for (int k = 0; k < 300; ++k) {
            const std::string id = folder.textOf(idFile);
            if (!id.empty() && ::kill(std::stoi(id), 0) != 0) return false;
            std::this_thread::sleep_for(10ms);
        }
        return true;
    }

    TemporaryFolder folder;
    StopSignals signals;
};

TEST_F(GuardedEngineTest, RunsInItsFolderAndKeepsWhatItSays) {
    const EngineEnd end = run("pwd\necho \"arguments: $#\"\necho problem >&2\ncat\n");
    EXPECT_EQ(end.status, 0);
    EXPECT_FALSE(end.stopped);
    EXPECT_EQ(said(), folder.path() + "\narguments: 0\nproblem\n");
}

TEST_F(GuardedEngineTest, TellsTheExitStatus) {
    EXPECT_EQ(run("exit 3").status, 3);
    EXPECT_EQ(run("kill -9 $$").status, 137);
}

TEST_F(GuardedEngineTest, TellsWhyAnEngineDoesNotStart) {
    const EngineEnd end = run("", std::filesystem::perms::owner_read);
    EXPECT_EQ(end.status, std::nullopt);
    EXPECT_EQ(end.problem, "The engine can't be started: Permission denied.");
}

TEST_F(GuardedEngineTest, LeavesTheEngineUsualSignals) {
    EXPECT_EQ(run("kill -TERM $$; sleep 5").status, 143);
    EXPECT_EQ(run("kill -INT $$; sleep 5").status, 130);
}

TEST_F(GuardedEngineTest, StopsTheEngineAndAllThatItHasStarted) {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        signalSoon(signal);
        const EngineEnd end = run("sleep 100 & echo $! >id\nwait\n");
        EXPECT_TRUE(end.stopped) << signal;
        EXPECT_EQ(end.status, 143);
        EXPECT_FALSE(isAlive("id")) << signal;
    }
    ::wait(nullptr);
}

TEST_F(GuardedEngineTest, EndsAnEngineThatDoesNotStop) {
    signalSoon(SIGTERM);
    const auto begun = std::chrono::steady_clock::now();
    const EngineEnd end = run("trap '' TERM\nwhile :; do sleep 0.1; done\n");
    EXPECT_TRUE(end.stopped);
    EXPECT_EQ(end.status, 137);
    EXPECT_GE(std::chrono::steady_clock::now() - begun, 2s);
}

TEST_F(GuardedEngineTest, KnowsAStopThatTheEngineGotFirst) {
    // A signal to both, which the engine gets first.
    const EngineEnd end = run("(sleep 0.1; kill -TERM $PPID) & kill -TERM $$; sleep 5\n");
    EXPECT_EQ(end.status, 143);
    EXPECT_TRUE(end.stopped);
}

TEST_F(GuardedEngineTest, StopsTheEngineWhereItIsGivenUp) {
    folder.put("engine", "#!/bin/sh\nsleep 100\n");
    std::filesystem::permissions(folder.path("engine"), std::filesystem::perms::owner_all);
    GuardedEngine engine([] { return true; });
    const EngineEnd end = engine.run(folder.path("engine"), folder.path(), folder.path("said.txt"));
    EXPECT_TRUE(end.stopped);
    EXPECT_EQ(end.status, 143);
}

TEST_F(GuardedEngineTest, KnowsThatSomebodyAskedToStop) {
    GuardedEngine engine;
    EXPECT_FALSE(engine.stopAsked());
    ::kill(getpid(), SIGTERM);
    EXPECT_TRUE(engine.stopAsked());
    EXPECT_EQ(signals.wait(1s), StopWish::stop);
    EXPECT_FALSE(engine.stopAsked());
}

TEST_F(GuardedEngineTest, DoesNotOutliveThisProcess) {
    const pid_t watcher = fork();
    if (watcher == 0) {
        run("echo $$ >id\nsleep 100\n");
        _exit(0);
    }
    while (folder.textOf("id").empty())
        std::this_thread::sleep_for(10ms);
    ::kill(watcher, SIGKILL);
    waitpid(watcher, nullptr, 0);
    EXPECT_FALSE(isAlive("id"));
}

} // namespace

} // namespace korvel
