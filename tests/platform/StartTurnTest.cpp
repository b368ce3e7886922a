#include "platform/StartTurn.h"

#include "platform/TemporaryFolder.h"

#include <csignal>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace korvel {

namespace {

using namespace std::chrono_literals;

class StartTurns : public testing::Test {
  protected:
    StartTurns() { folder.put(RunControlFileName, "the run"); }
    StartTurn take(std::chrono::milliseconds patience = 0ms) {
        return StartTurn::waitFor(
            folder.path(), [] { std::this_thread::sleep_for(2ms); }, patience);
    }
    bool isFree() { return take().isHeld(); }

    TemporaryFolder folder;
};

// A process that takes the turn and does no more; gone at the end.
class Holder {
  public:
    explicit Holder(const std::string& folder) {
        int ready[2];
        if (pipe(ready) != 0) return;
        m_process = fork();
        if (m_process == 0) {
            const StartTurn turn = StartTurn::waitFor(folder, [] {});
            if (write(ready[1], "!", 1) == 1) pause();
            _exit(0);
        }
        char byte = 0;
        EXPECT_EQ(read(ready[0], &byte, 1), 1);
        close(ready[0]);
        close(ready[1]);
    }
    ~Holder() { end(); }
    void signal(int number) const { kill(m_process, number); }
    void end() {
        if (m_process <= 0) return;
        signal(SIGKILL);
        waitpid(std::exchange(m_process, 0), nullptr, 0);
    }

  private:
    pid_t m_process = 0;
};

} // namespace

TEST_F(StartTurns, AreTakenOneAfterTheOther) {
    StartTurn first = take();
    EXPECT_TRUE(first.isHeld());
    EXPECT_FALSE(isFree());
    first.end();
    EXPECT_TRUE(isFree());
}

TEST_F(StartTurns, EndWithTheProcessThatHeldThem) {
    Holder other(folder.path());
    EXPECT_FALSE(isFree());
    other.end();
    EXPECT_TRUE(take(10s).isHeld());
}

TEST_F(StartTurns, LeaveNothingInTheFolder) {
    const StartTurn turn = take();
    EXPECT_EQ(folder.entries(), 1);
}

TEST_F(StartTurns, AreHandedOnByTheirDescriptor) {
    StartTurn turn = take();
    StartTurn handedOn = StartTurn::handedOn(dup(turn.descriptor()));
    turn.end();
    EXPECT_FALSE(isFree());
    handedOn.end();
    EXPECT_TRUE(isFree());
}

TEST_F(StartTurns, AreNotWaitedForBeyondThePatience) {
    const Holder stopped(folder.path());
    stopped.signal(SIGSTOP);
    EXPECT_FALSE(take(50ms).isHeld());
}

TEST_F(StartTurns, AreWaitedForAsLongAsOthersWriteTheirRuns) {
    Holder other(folder.path());
    std::thread writing([&] {
        for (int k = 0; k < 10; ++k) {
            std::this_thread::sleep_for(60ms);
            folder.put("next", "another run");
            std::filesystem::rename(folder.path("next"), folder.path(RunControlFileName));
        }
        other.end();
    });
    EXPECT_TRUE(take(300ms).isHeld());
    writing.join();
}

TEST_F(StartTurns, NeedNoRightToWriteInTheFolder) {
    std::filesystem::permissions(folder.path(), std::filesystem::perms(0555));
    const pid_t child = fork();
    if (child == 0) {
        constexpr unsigned nobody = 65534;
        if (geteuid() == 0 && (setgid(nobody) != 0 || setuid(nobody) != 0)) _exit(2);
        _exit(isFree() ? 0 : 1);
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    std::filesystem::permissions(folder.path(), std::filesystem::perms::all);
}

TEST_F(StartTurns, AreNobodysWhereThereIsNoFolder) {
    EXPECT_FALSE(StartTurn::waitFor(folder.path("none"), [] { FAIL() << "it waits"; }).isHeld());
}

TEST_F(StartTurns, EndOnceTheRunControlFileHasBeenOpened) {
    TurnOfEngine turn(take(), folder.path());
    turn.look();
    EXPECT_TRUE(turn.isHeld());
    EXPECT_FALSE(isFree());
    EXPECT_EQ(folder.textOf(RunControlFileName), "the run");
    turn.look();
    EXPECT_FALSE(turn.isHeld());
    EXPECT_TRUE(isFree());
}

TEST_F(StartTurns, EndAfterThreeSecondsOfAnEngineThatOpensNothing) {
    const auto begin = std::chrono::steady_clock::now();
    TurnOfEngine turn(take(), folder.path());
    while (turn.isHeld()) {
        std::this_thread::sleep_for(turn.left());
        turn.look();
    }
    const auto time = std::chrono::steady_clock::now() - begin;
    EXPECT_GE(time, 2990ms);
    EXPECT_LT(time, 4s);
}

TEST_F(StartTurns, PauseBetweenTwoLooks) {
    const StartTurn held = take();
    ASSERT_TRUE(held.isHeld());
    int pauses = 0;
    const auto pause = [&] {
        ++pauses;
        std::this_thread::sleep_for(2ms);
    };
    EXPECT_FALSE(StartTurn::waitFor(folder.path(), pause, 20ms).isHeld());
    EXPECT_GT(pauses, 0);
}

} // namespace korvel
