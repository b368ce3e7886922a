#include "toolkit/process/ToolCalls.h"

#include "basic/Interrupted.h"
#include "toolkit/process/Spawning.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

namespace korvel {

namespace {

// A tool gets none of the signals that this process takes in its own way.
class ToolSpawning : public Spawning {
  public:
    ToolSpawning() {
        sigset_t none;
        sigset_t usual;
        sigemptyset(&none);
        sigemptyset(&usual);
        sigaddset(&usual, SIGPIPE);
        checkCall(posix_spawnattr_setsigmask(&m_attributes, &none));
        checkCall(posix_spawnattr_setsigdefault(&m_attributes, &usual));
        checkCall(posix_spawnattr_setflags(&m_attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF |
                                                              POSIX_SPAWN_SETPGROUP));
    }

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
        checkCall(code);
        return process;
    }
};

// No more than one read; whether the other side is still there.
bool takeSome(const Descriptor& from, std::string& into) {
    std::array<char, 65536> bytes{};
    const ssize_t count = ::read(from.number(), bytes.data(), bytes.size());
    if (count > 0) into.append(bytes.data(), static_cast<std::size_t>(count));
    return count > 0 || (count < 0 && errno == EINTR);
}

void takeAll(Pipe& output, Pipe& errors, ToolEnd& end) {
    const Descriptor &said = output.readEnd, &complained = errors.readEnd;
    while (said.isOpen() || complained.isOpen()) {
        std::array<pollfd, 2> waited = {{{said.number(), POLLIN, 0}, {complained.number(), POLLIN, 0}}};
        ::poll(waited.data(), waited.size(), -1);
        if (waited[0].revents != 0 && !takeSome(said, end.output)) output.readEnd.close();
        if (waited[1].revents != 0 && !takeSome(complained, end.errors)) errors.readEnd.close();
    }
}

int statusOf(pid_t process) {
    int status = 0;
    if (untilNotInterrupted([&] { return waitpid(process, &status, 0); }) < 0) checkCall(errno);
    return exitStatusOf(status);
}

} // namespace

std::optional<ToolEnd> ToolCalls::run(const std::vector<std::string>& words) {
    Pipe output;
    Pipe errors;
    ToolSpawning spawning;
    spawning.send(STDOUT_FILENO, output.writeEnd);
    spawning.send(STDERR_FILENO, errors.writeEnd);
    const std::optional<pid_t> process = spawning.start(words);
    output.writeEnd.close();
    errors.writeEnd.close();
    if (!process) return std::nullopt;
    ToolEnd end;
    takeAll(output, errors, end);
    end.status = statusOf(*process);
    return end;
}

} // namespace korvel
