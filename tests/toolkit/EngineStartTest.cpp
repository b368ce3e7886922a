// The engine without a window, with real processes: small shell scripts stand for it.
#include "toolkit/process/EngineStart.h"

#include "basic/RunTimeError.h"
#include "platform/TemporaryFolder.h"

#include <chrono>
#include <csignal>
#include <gtest/gtest.h>
#include <thread>

namespace korvel {

namespace {

class EngineStart : public testing::Test {
  protected:
    std::string engine(const std::string& script) {
        folder.put("engine", "#!/bin/sh\n" + script);
        std::filesystem::permissions(folder.path("engine"), std::filesystem::perms::owner_all);
        return folder.path("engine");
    }
    int run(const std::string& script) {
        output.clear();
        return runEngine(engine(script), folder.path(),
                         [this](std::string_view bytes) { output.append(bytes); }, {});
    }
    StartTurn turn(std::chrono::milliseconds patience = std::chrono::milliseconds(0)) {
        return StartTurn::waitFor(
            folder.path(), [] { std::this_thread::sleep_for(std::chrono::milliseconds(2)); }, patience);
    }
    bool comes(const std::string& file) {
        for (int k = 0; k < 1000 && folder.textOf(file).empty(); ++k)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        return !folder.textOf(file).empty();
    }

    TemporaryFolder folder;
    std::string output;
};

int errorOf(const std::string& enginePath, const std::string& folder) {
    try {
        startEngineAlone(enginePath, folder, {});
    } catch (const RunTimeError& error) {
        return error.number;
    }
    return 0;
}

} // namespace

TEST_F(EngineStart, HandsOnWhatTheEngineSaysInItsFolder) {
    EXPECT_EQ(run("pwd\necho \"arguments: $#\"\necho problem >&2\ncat\n"), 0);
    EXPECT_EQ(output, folder.path() + "\narguments: 0\nproblem\n");
}

TEST_F(EngineStart, TellsTheExitStatus) {
    EXPECT_EQ(run("exit 3"), 3);
    EXPECT_EQ(run("kill -9 $$"), 137);
}

TEST_F(EngineStart, TakesMuchOutput) {
    EXPECT_EQ(run("i=0; while [ $i -lt 20000 ]; do echo 'Reach 1 of 9'; i=$((i+1)); done"), 0);
    EXPECT_EQ(output.size(), 20000 * std::string("Reach 1 of 9\n").size());
}

TEST_F(EngineStart, DoesNotWaitForAnEngineAlone) {
    const std::string waiting = engine("while [ ! -e go ]; do sleep 0.02; done\necho said\npwd > done\n");
    startEngineAlone(waiting, folder.path(), {});
    EXPECT_EQ(folder.textOf("done"), "");
    folder.put("go", "now");
    EXPECT_TRUE(comes("done"));
}

TEST_F(EngineStart, FailsWhereTheEngineCannotBeStarted) {
    EXPECT_EQ(errorOf(folder.path("missing"), folder.path()), errors::fileNotFound);
    folder.put("text", "no program");
    std::filesystem::permissions(folder.path("text"), std::filesystem::perms::owner_read);
    EXPECT_NE(errorOf(folder.path("text"), folder.path()), 0);
}

TEST_F(EngineStart, CountsTheEnginesEndWhoeverKeepsItsOutputOpen) {
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_EQ(run("sleep 20 &\necho $! > left\necho done\nexit 4\n"), 4);
    EXPECT_EQ(output, "done\n");
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(10));
    kill(std::stoi(folder.textOf("left")), SIGKILL);
}

TEST_F(EngineStart, ReadsForASecondAtMostWhatOthersGoOnSaying) {
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_EQ(run("yes on &\necho $! > left\nsleep 0.2\nexit 0\n"), 0);
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(10));
    kill(std::stoi(folder.textOf("left")), SIGKILL);
}

TEST_F(EngineStart, TakesAnEngineThatClosesItsOutputBeforeItsEnd) {
    EXPECT_EQ(run("echo said\nexec >/dev/null 2>&1\nsleep 0.2\nexit 5\n"), 5);
    EXPECT_EQ(output, "said\n");
}

TEST_F(EngineStart, KeepsItsTurnUntilTheEngineHasOpenedTheRun) {
    folder.put(RunControlFileName, "the run");
    const std::string script = "while [ ! -e go ]; do sleep 0.02; done\ncat RUNDAT.TMP > seen\n"
                               "while [ -e seen ] && [ ! -e end ]; do sleep 0.02; done\n";
    startEngineAlone(engine(script), folder.path(), turn());
    EXPECT_FALSE(turn(std::chrono::milliseconds(200)).isHeld());
    folder.put("go");
    EXPECT_TRUE(turn(std::chrono::seconds(10)).isHeld());
    EXPECT_TRUE(comes("seen"));
    folder.put("end");
}

TEST_F(EngineStart, EndsItsTurnWithTheEngine) {
    startEngineAlone(engine("exit 0\n"), folder.path(), turn());
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_TRUE(turn(std::chrono::seconds(10)).isHeld());
    EXPECT_LT(std::chrono::steady_clock::now() - begin, TurnOfEngine::longest);
}

} // namespace korvel
