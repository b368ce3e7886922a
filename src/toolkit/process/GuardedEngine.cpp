#include "toolkit/process/GuardedEngine.h"

#include "basic/Descriptor.h"
#include "basic/Interrupted.h"
#include "basic/RunTimeError.h"
#include "toolkit/process/EngineProcess.h"
#include "toolkit/process/Spawning.h"

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace korvel {

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds togetherness(300); // between two processes that get one signal
constexpr std::chrono::seconds patience(2);            // between asking the engine to end and ending it

Descriptor opened(int number) {
    if (number < 0) throw runTimeErrorOfErrno(errno);
    return Descriptor(number);
}

// All that the child needs, made before the fork: after it nothing may be allocated.
struct ChildPlan {
    const char* program;
    char* const* arguments;
    const char* folder;
    int input;
    int output;
    int problem; // takes the errno of what fails
    pid_t parent;
};

void restoreSignals() {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGPIPE, SIGCHLD})
        std::signal(signal, SIG_DFL);
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
}

[[noreturn]] void becomeEngine(const ChildPlan& plan) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != plan.parent) _exit(signalBase);
    setpgid(0, 0);
    restoreSignals();
    if (dup2(plan.input, STDIN_FILENO) >= 0 && dup2(plan.output, STDOUT_FILENO) >= 0 &&
        dup2(plan.output, STDERR_FILENO) >= 0 && chdir(plan.folder) == 0)
        execve(plan.program, plan.arguments, environ);
    const int code = errno;
    [[maybe_unused]] const ssize_t told = ::write(plan.problem, &code, sizeof code);
    _exit(signalBase - 1);
}

sigset_t awaitedSignals() {
    sigset_t awaited;
    sigemptyset(&awaited);
    for (const int signal : {SIGCHLD, SIGINT, SIGTERM, SIGHUP})
        sigaddset(&awaited, signal);
    return awaited;
}

// The next of the awaited signals; 0 where none comes in time.
int nextSignal(std::chrono::milliseconds atMost) {
    const sigset_t awaited = awaitedSignals();
    const timespec time{atMost.count() / 1000, (atMost.count() % 1000) * 1000000};
    const int signal = sigtimedwait(&awaited, nullptr, &time);
    return signal < 0 ? 0 : signal;
}

// Whether a stop is asked for in time.
bool nextStop(std::chrono::milliseconds atMost) {
    const auto end = Clock::now() + atMost;
    while (Clock::now() < end) {
        const int signal = nextSignal(std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now()));
        if (signal != 0 && signal != SIGCHLD) return true;
    }
    return false;
}

// The child's errno where it could not become the engine, else 0.
int problemOf(int descriptor) {
    int code = 0;
    const ssize_t count = untilNotInterrupted([&] { return ::read(descriptor, &code, sizeof code); });
    return count == static_cast<ssize_t>(sizeof code) ? code : 0;
}

// The exit status. A signal to all may have reached the engine first.
int takeEnd(pid_t engine, int status, bool& stopped) {
    if (WIFSIGNALED(status) && !stopped) stopped = nextStop(togetherness);
    if (stopped) ::kill(-engine, SIGKILL); // what is left of its children
    return exitStatusOf(status);
}

} // namespace

GuardedEngine::GuardedEngine(std::function<bool()> giveUp)
    : m_giveUp(std::move(giveUp)), m_parent(getppid()) {
    sigset_t ends;
    sigemptyset(&ends);
    sigaddset(&ends, SIGCHLD);
    sigprocmask(SIG_BLOCK, &ends, nullptr);
}

EngineEnd GuardedEngine::run(const std::string& program, const std::string& folder,
                             const std::string& output) {
    EngineCommand command = engineCommandOf(program);
    if (command.program.empty()) return {std::nullopt, false, command.problem};
    std::array<char*, 3> arguments = {command.program.data(),
                                      command.argument ? command.argument->data() : nullptr, nullptr};
    const Descriptor input = opened(::open("/dev/null", O_RDONLY | O_CLOEXEC));
    const Descriptor said = opened(::open(output.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666));
    Pipe problem;

    const pid_t self = getpid();
    const pid_t engine = fork();
    if (engine < 0) throw runTimeErrorOfErrno(errno);
    if (engine == 0)
        becomeEngine({command.program.c_str(), arguments.data(), folder.c_str(), input.number(),
                      said.number(), problem.writeEnd.number(), self});
    setpgid(engine, engine); // whoever of the two is first
    problem.writeEnd.close();
    const int code = problemOf(problem.readEnd.number());
    bool stopped = false;
    const int status = waitFor(engine, stopped);
    if (code != 0)
        return {std::nullopt, false,
                std::string("The engine can't be started: ") + std::strerror(code) + "."};
    return {status, stopped, ""};
}

// A stop is for the engine and all that it has started.
int GuardedEngine::waitFor(pid_t engine, bool& stopped) const {
    Clock::time_point end = Clock::time_point::max();
    for (;;) {
        int status = 0;
        const pid_t ended = waitpid(engine, &status, WNOHANG);
        if (ended == engine) return takeEnd(engine, status, stopped);
        if (ended < 0 && errno != EINTR) throw runTimeErrorOfErrno(errno);
        if (Clock::now() >= end) ::kill(-engine, SIGKILL);
        if (!stopComes(stopped)) continue;
        stop(engine);
        if (!stopped) end = Clock::now() + patience;
        stopped = true;
    }
}

// Waits a little.
bool GuardedEngine::stopComes(bool alreadyStopped) const {
    const int signal = nextSignal(std::chrono::milliseconds(alreadyStopped ? 50 : 1000));
    if (signal != 0) return signal != SIGCHLD;
    return !alreadyStopped && m_giveUp && m_giveUp();
}

// Where this process has lost its own parent nobody is left to be polite for.
void GuardedEngine::stop(pid_t engine) const {
    const bool alone = getppid() != m_parent;
    ::kill(-engine, alone ? SIGKILL : SIGTERM);
}

bool GuardedEngine::stopAsked() {
    sigset_t pending;
    sigpending(&pending);
    return sigismember(&pending, SIGTERM) == 1 || sigismember(&pending, SIGINT) == 1 ||
           sigismember(&pending, SIGHUP) == 1;
}

} // namespace korvel
