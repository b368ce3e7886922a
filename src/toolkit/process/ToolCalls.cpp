#include "toolkit/process/ToolCalls.h"

#include "basic/RunTimeError.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace korvel {

namespace {

constexpr int signalBase = 128;

void check(int errorCode) {
    if (errorCode != 0) throw runTimeErrorOfErrno(errorCode);
}

struct Pipe {
    Pipe() {
        if (pipe2(ends.data(), O_CLOEXEC) != 0) check(errno);
    }
    ~Pipe() {
        close(0);
        close(1);
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;
    void close(std::size_t end) {
        if (ends[end] >= 0) ::close(ends[end]);
        ends[end] = -1;
    }
    std::array<int, 2> ends{-1, -1};
};

class Spawning {
  public:
    Spawning() {
        check(posix_spawn_file_actions_init(&m_actions));
        check(posix_spawnattr_init(&m_attributes));
        sigset_t none;
        sigset_t usual;
        sigemptyset(&none);
        sigemptyset(&usual);
        sigaddset(&usual, SIGPIPE);
        check(posix_spawnattr_setsigmask(&m_attributes, &none));
        check(posix_spawnattr_setsigdefault(&m_attributes, &usual));
        check(posix_spawnattr_setflags(&m_attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF |
                                                          POSIX_SPAWN_SETPGROUP));
        check(posix_spawn_file_actions_addopen(&m_actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0));
    }
    ~Spawning() {
        posix_spawn_file_actions_destroy(&m_actions);
        posix_spawnattr_destroy(&m_attributes);
    }
    Spawning(const Spawning&) = delete;
    Spawning& operator=(const Spawning&) = delete;

    void send(int output, int to) { check(posix_spawn_file_actions_adddup2(&m_actions, to, output)); }

    // Nothing where there is no such program.
    std::optional<pid_t> start(const std::vector<std::string>& words) {
        std::vector<std::string> held = words;
        std::vector<char*> arguments;
        arguments.reserve(held.size() + 1);
        for (std::string& word : held)
            arguments.push_back(word.data());
        arguments.push_back(nullptr);
        pid_t process = 0;
        const int code = posix_spawnp(&process, words.front().c_str(), &m_actions, &m_attributes,
                                      arguments.data(), environ);
        if (code == ENOENT) return std::nullopt;
        check(code);
        return process;
    }

  private:
    posix_spawn_file_actions_t m_actions{};
    posix_spawnattr_t m_attributes{};
};

// No more than one read; whether the other side is still there.
bool takeSome(int descriptor, std::string& into) {
    std::array<char, 65536> bytes{};
    const ssize_t count = ::read(descriptor, bytes.data(), bytes.size());
    if (count > 0) into.append(bytes.data(), static_cast<std::size_t>(count));
    return count > 0 || (count < 0 && errno == EINTR);
}

void takeAll(Pipe& output, Pipe& errors, ToolEnd& end) {
    while (output.ends[0] >= 0 || errors.ends[0] >= 0) {
        std::array<pollfd, 2> waited = {{{output.ends[0], POLLIN, 0}, {errors.ends[0], POLLIN, 0}}};
        ::poll(waited.data(), waited.size(), -1);
        if (waited[0].revents != 0 && !takeSome(output.ends[0], end.output)) output.close(0);
        if (waited[1].revents != 0 && !takeSome(errors.ends[0], end.errors)) errors.close(0);
    }
}

int statusOf(pid_t process) {
    int status = 0;
    while (waitpid(process, &status, 0) < 0)
        if (errno != EINTR) check(errno);
    return WIFEXITED(status) ? WEXITSTATUS(status) : signalBase + WTERMSIG(status);
}

} // namespace

std::optional<ToolEnd> ToolCalls::run(const std::vector<std::string>& words) {
    Pipe output;
    Pipe errors;
    Spawning spawning;
    spawning.send(STDOUT_FILENO, output.ends[1]);
    spawning.send(STDERR_FILENO, errors.ends[1]);
    const std::optional<pid_t> process = spawning.start(words);
    output.close(1);
    errors.close(1);
    if (!process) return std::nullopt;
    ToolEnd end;
    takeAll(output, errors, end);
    end.status = statusOf(*process);
    return end;
}

} // namespace korvel
