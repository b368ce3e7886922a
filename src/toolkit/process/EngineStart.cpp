#include "toolkit/process/EngineStart.h"

#include "basic/RunTimeError.h"
#include "toolkit/process/EngineProcess.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace korvel {

namespace {

constexpr int signalBase = 128;
constexpr const char* nowhere = "/dev/null";

void check(int errorCode) {
    if (errorCode != 0) throw runTimeErrorOfErrno(errorCode);
}

// How the new process differs from this one.
class Spawning {
  public:
    explicit Spawning(const std::string& folder) {
        check(posix_spawn_file_actions_init(&m_actions));
        check(posix_spawnattr_init(&m_attributes));
        check(posix_spawn_file_actions_addchdir_np(&m_actions, folder.c_str()));
        check(posix_spawn_file_actions_addopen(&m_actions, STDIN_FILENO, nowhere, O_RDONLY, 0));
    }
    ~Spawning() {
        posix_spawn_file_actions_destroy(&m_actions);
        posix_spawnattr_destroy(&m_attributes);
    }
    Spawning(const Spawning&) = delete;
    Spawning& operator=(const Spawning&) = delete;

    void sendOutputTo(int descriptor) {
        check(posix_spawn_file_actions_adddup2(&m_actions, descriptor, STDOUT_FILENO));
        check(posix_spawn_file_actions_adddup2(&m_actions, descriptor, STDERR_FILENO));
    }
    void dropOutput() {
        for (const int output : {STDOUT_FILENO, STDERR_FILENO})
            check(posix_spawn_file_actions_addopen(&m_actions, output, nowhere, O_WRONLY, 0));
    }
    // So that the end of a terminal doesn't end the engine.
    void startSession() { check(posix_spawnattr_setflags(&m_attributes, POSIX_SPAWN_SETSID)); }

    pid_t start(EngineCommand command) {
        if (command.program.empty()) throw RunTimeError(errors::fileNotFound, command.problem);
        std::array<char*, 3> arguments = {command.program.data(),
                                          command.argument ? command.argument->data() : nullptr, nullptr};
        pid_t process = 0;
        check(posix_spawn(&process, command.program.c_str(), &m_actions, &m_attributes, arguments.data(),
                          environ));
        return process;
    }

  private:
    posix_spawn_file_actions_t m_actions{};
    posix_spawnattr_t m_attributes{};
};

struct Pipe {
    Pipe() {
        std::array<int, 2> ends{};
        if (pipe2(ends.data(), O_CLOEXEC) != 0) check(errno);
        readEnd = ends[0];
        writeEnd = ends[1];
    }
    ~Pipe() {
        ::close(readEnd);
        closeWriteEnd();
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;

    void closeWriteEnd() {
        if (writeEnd >= 0) ::close(writeEnd);
        writeEnd = -1;
    }
    void readAll(const std::function<void(std::string_view)>& onOutput) const {
        std::array<char, 4096> bytes{};
        for (;;) {
            const ssize_t count = ::read(readEnd, bytes.data(), bytes.size());
            if (count > 0) onOutput({bytes.data(), static_cast<std::size_t>(count)});
            if (count == 0 || (count < 0 && errno != EINTR)) return;
        }
    }

    int readEnd = -1;
    int writeEnd = -1;
};

int statusOf(pid_t process) {
    int status = 0;
    while (waitpid(process, &status, 0) < 0)
        if (errno != EINTR) check(errno);
    return WIFEXITED(status) ? WEXITSTATUS(status) : signalBase + WTERMSIG(status);
}

} // namespace

void startEngineAlone(const std::string& enginePath, const std::string& folder) {
    Spawning spawning(folder);
    spawning.dropOutput();
    spawning.startSession();
    spawning.start(engineCommandOf(enginePath));
}

int runEngine(const std::string& enginePath, const std::string& folder,
              const std::function<void(std::string_view)>& onOutput) {
    Pipe output;
    Spawning spawning(folder);
    spawning.sendOutputTo(output.writeEnd);
    const pid_t process = spawning.start(engineCommandOf(enginePath));
    output.closeWriteEnd();
    output.readAll(onOutput);
    return statusOf(process);
}

} // namespace korvel
