// The engine without a window, with real processes: small shell scripts stand for it.
#include "toolkit/process/EngineStart.h"

#include "basic/RunTimeError.h"
#include "platform/TemporaryFolder.h"

#include <chrono>
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
                         [this](std::string_view bytes) { output.append(bytes); });
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
        startEngineAlone(enginePath, folder);
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
    startEngineAlone(waiting, folder.path());
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

} // namespace korvel
