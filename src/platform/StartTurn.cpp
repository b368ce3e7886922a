#include "platform/StartTurn.h"

#include "basic/DiskNames.h"
#include "basic/ModelName.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <fcntl.h>
#include <optional>
#include <sys/file.h>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <utility>

namespace korvel {

namespace {

using Clock = std::chrono::steady_clock;

std::string runControlFile(const std::string& folder) {
    return hostPathOf(inFolder(modelNameOfHostPath(folder), RunControlFileName));
}

// Nobody else's turn, or one of nobody's; nothing where it is another's.
std::optional<Descriptor> lockedFolder(const std::string& folder) {
    Descriptor descriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!descriptor.isOpen() || flock(descriptor.number(), LOCK_EX | LOCK_NB) == 0) return descriptor;
    if (errno == EWOULDBLOCK || errno == EINTR) return std::nullopt;
    return Descriptor();
}

// Another file, each time that a start has written its own.
ino_t fileOf(const std::string& path) {
    struct stat status {};
    return stat(path.c_str(), &status) == 0 ? status.st_ino : 0;
}

} // namespace

StartTurn StartTurn::handedOn(int descriptor) {
    fcntl(descriptor, F_SETFD, FD_CLOEXEC); // the engine must not keep the turn
    return StartTurn(Descriptor(descriptor));
}

StartTurn StartTurn::waitFor(const std::string& folder, const std::function<void()>& pause,
                             std::chrono::milliseconds patience) {
    const std::string path = runControlFile(folder);
    ino_t file = fileOf(path);
    auto end = Clock::now() + patience;
    for (;;) {
        if (auto locked = lockedFolder(folder)) return StartTurn(std::move(*locked));
        if (const ino_t now = fileOf(path); std::exchange(file, now) != now) end = Clock::now() + patience;
        if (Clock::now() >= end) return {};
        pause();
    }
}

TurnOfEngine::TurnOfEngine(StartTurn turn, const std::string& folder)
    : m_turn(std::move(turn)), m_end(Clock::now() + longest) {
    if (!m_turn.isHeld()) return;
    Descriptor watch(inotify_init1(IN_NONBLOCK | IN_CLOEXEC));
    if (inotify_add_watch(watch.number(), runControlFile(folder).c_str(), IN_OPEN) >= 0)
        m_watch = std::move(watch);
}

std::chrono::milliseconds TurnOfEngine::left() const {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(m_end - Clock::now());
    return std::max(left, std::chrono::milliseconds(0));
}

bool TurnOfEngine::wasOpened() const {
    std::array<char, 1024> events{};
    return m_watch.isOpen() && ::read(m_watch.number(), events.data(), events.size()) > 0;
}

void TurnOfEngine::look() {
    if (isHeld() && (wasOpened() || left().count() == 0)) end();
}

void TurnOfEngine::end() {
    m_turn.end();
    m_watch.close();
}

} // namespace korvel
