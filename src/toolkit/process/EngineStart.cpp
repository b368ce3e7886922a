#include "toolkit/process/EngineStart.h"

#include "basic/RunTimeError.h"
#include "toolkit/process/EngineProcess.h"
#include "toolkit/process/Spawning.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <optional>
#include <poll.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace korvel {

namespace {

using Clock = std::chrono::steady_clock;
using OnOutput = std::function<void(std::string_view)>;

constexpr std::chrono::milliseconds longestDrain{1000};
constexpr int betweenQuestions = 50; // milliseconds, where the system tells of no process's end

class EngineSpawning : public Spawning {
  public:
    explicit EngineSpawning(const std::string& folder) {
        checkCall(posix_spawn_file_actions_addchdir_np(&m_actions, folder.c_str()));
    }

    // So that the end of a terminal doesn't end the engine.
    void startSession() { checkCall(posix_spawnattr_setflags(&m_attributes, POSIX_SPAWN_SETSID)); }

    pid_t start(EngineCommand command) {
        if (command.program.empty()) throw RunTimeError(errors::fileNotFound, command.problem);
        if (command.argument)
            for (const auto& [name, value] : wineSettings())
                setenv(name.c_str(), value.c_str(), 0);
        std::array<char*, 3> arguments = {command.program.data(),
                                          command.argument ? command.argument->data() : nullptr, nullptr};
        pid_t process = 0;
        checkCall(posix_spawn(&process, command.program.c_str(), &m_actions, &m_attributes, arguments.data(),
                              environ));
        return process;
    }
};

// Hands on what can be read without waiting; closes the end of a pipe that nobody writes to any more.
void handOn(Descriptor& pipe, const OnOutput& onOutput) {
    std::array<char, 65536> bytes{};
    const ssize_t count = ::read(pipe.number(), bytes.data(), bytes.size());
    if (count > 0) onOutput({bytes.data(), static_cast<std::size_t>(count)});
    if (count == 0 || (count < 0 && errno != EINTR)) pipe.close();
}

bool canRead(const Descriptor& pipe) {
    pollfd readable{pipe.number(), POLLIN, 0};
    return pipe.isOpen() && poll(&readable, 1, 0) > 0;
}

Descriptor endOf(pid_t process) {
    return Descriptor(static_cast<int>(syscall(SYS_pidfd_open, process, 0)));
}

std::optional<int> statusOf(pid_t process) {
    int status = 0;
    const pid_t ended = waitpid(process, &status, WNOHANG);
    if (ended < 0 && errno != EINTR) checkCall(errno);
    if (ended != process) return std::nullopt;
    return exitStatusOf(status);
}

// Sleeps until there is something to do: output, the engine's end, the end of its turn.
void waitForNews(const Descriptor& pipe, const Descriptor& end, const TurnOfEngine& turn) {
    std::array<pollfd, 3> things = {pollfd{pipe.number(), POLLIN, 0}, pollfd{end.number(), POLLIN, 0},
                                    pollfd{turn.watch(), POLLIN, 0}};
    int longest = end.isOpen() ? -1 : betweenQuestions;
    if (turn.isHeld()) {
        const int left = static_cast<int>(turn.left().count());
        longest = longest < 0 ? left : std::min(longest, left);
    }
    poll(things.data(), things.size(), longest);
}

int followEngine(pid_t process, Descriptor& pipe, TurnOfEngine& turn, const OnOutput& onOutput) {
    const Descriptor end = endOf(process);
    std::optional<int> status;
    while (!(status = statusOf(process))) {
        waitForNews(pipe, end, turn);
        turn.look();
        if (canRead(pipe)) handOn(pipe, onOutput);
    }
    turn.end();
    const auto latest = Clock::now() + longestDrain;
    while (canRead(pipe) && Clock::now() < latest)
        handOn(pipe, onOutput);
    return *status;
}

// A child of its own keeps the turn, so that this program can go on.
void keepTurn(TurnOfEngine turn, pid_t process) {
    if (!turn.isHeld() || fork() != 0) return;
    for (const int channel : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        ::close(channel); // whoever reads what this program says must not wait for the child
    const Descriptor end = endOf(process), noPipe;
    while (turn.isHeld()) {
        pollfd ended{end.number(), POLLIN, 0};
        if (poll(&ended, 1, 0) != 0) break;
        waitForNews(noPipe, end, turn);
        turn.look();
    }
    _exit(0);
}

} // namespace

void startEngineAlone(const std::string& enginePath, const std::string& folder, StartTurn turn) {
    EngineSpawning spawning(folder);
    for (const int output : {STDOUT_FILENO, STDERR_FILENO})
        spawning.drop(output);
    spawning.startSession();
    TurnOfEngine turnOfEngine(std::move(turn), folder);
    const pid_t process = spawning.start(engineCommandOf(enginePath));
    keepTurn(std::move(turnOfEngine), process);
}

int runEngine(const std::string& enginePath, const std::string& folder, const OnOutput& onOutput,
              StartTurn turn) {
    Pipe output;
    EngineSpawning spawning(folder);
    for (const int channel : {STDOUT_FILENO, STDERR_FILENO})
        spawning.send(channel, output.writeEnd);
    TurnOfEngine turnOfEngine(std::move(turn), folder);
    const pid_t process = spawning.start(engineCommandOf(enginePath));
    output.writeEnd.close();
    return followEngine(process, output.readEnd, turnOfEngine, onOutput);
}

} // namespace korvel
