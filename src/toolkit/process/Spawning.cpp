#include "toolkit/process/Spawning.h"

#include "basic/RunTimeError.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace korvel {

namespace {

constexpr const char* nullDevice = "/dev/null";

} // namespace

int exitStatusOf(int waitStatus) {
    return WIFEXITED(waitStatus) ? WEXITSTATUS(waitStatus) : signalBase + WTERMSIG(waitStatus);
}

void checkCall(int errorCode) {
    if (errorCode != 0) throw runTimeErrorOfErrno(errorCode);
}

Pipe::Pipe() {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) checkCall(errno);
    readEnd = Descriptor(ends[0]);
    writeEnd = Descriptor(ends[1]);
}

Spawning::Spawning() {
    checkCall(posix_spawn_file_actions_init(&m_actions));
    checkCall(posix_spawnattr_init(&m_attributes));
    checkCall(posix_spawn_file_actions_addopen(&m_actions, STDIN_FILENO, nullDevice, O_RDONLY, 0));
}

Spawning::~Spawning() {
    posix_spawn_file_actions_destroy(&m_actions);
    posix_spawnattr_destroy(&m_attributes);
}

void Spawning::send(int output, const Descriptor& to) {
    checkCall(posix_spawn_file_actions_adddup2(&m_actions, to.number(), output));
}

void Spawning::drop(int output) {
    checkCall(posix_spawn_file_actions_addopen(&m_actions, output, nullDevice, O_WRONLY, 0));
}

} // namespace korvel
