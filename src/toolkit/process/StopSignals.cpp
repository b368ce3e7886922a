#include "toolkit/process/StopSignals.h"

#include "basic/RunTimeError.h"

#include <cerrno>
#include <csignal>
#include <poll.h>
#include <sys/signalfd.h>
#include <unistd.h>

namespace korvel {

namespace {

sigset_t stopSignals() {
    sigset_t signals;
    sigemptyset(&signals);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP})
        sigaddset(&signals, signal);
    return signals;
}

} // namespace

StopSignals::StopSignals() {
    const sigset_t signals = stopSignals();
    sigprocmask(SIG_BLOCK, &signals, nullptr);
    std::signal(SIGPIPE, SIG_IGN); // a reader that has gone is no reason to leave runs behind
    m_signals = Descriptor(signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK));
    if (!m_signals.isOpen()) throw runTimeErrorOfErrno(errno);
}

StopWish StopSignals::wait(std::chrono::milliseconds atMost) {
    pollfd waited{descriptor(), POLLIN, 0};
    ::poll(&waited, 1, static_cast<int>(atMost.count()));
    return next();
}

StopWish StopSignals::next() const {
    signalfd_siginfo info{};
    if (::read(descriptor(), &info, sizeof info) != static_cast<ssize_t>(sizeof info)) return StopWish::none;
    return info.ssi_signo == SIGHUP ? StopWish::hangUp : StopWish::stop;
}

} // namespace korvel
