#include "toolkit/process/EndSignals.h"

#include <QSocketNotifier>

#include <array>
#include <csignal>
#include <fcntl.h>

namespace korvel {

namespace {

constexpr std::array<int, 3> endSignals = {SIGTERM, SIGINT, SIGHUP};
volatile std::sig_atomic_t noticeEnd = -1;

// In a signal handler little is allowed; a byte through a pipe is.
void notice(int signal) {
    const auto byte = static_cast<unsigned char>(signal);
    if (::write(noticeEnd, &byte, 1) < 0) return; // the pipe is full of signals
}

} // namespace

EndSignals::EndSignals(std::function<void(int)> onSignal) {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0) return; // the signals then end the program as ever
    m_readEnd = Descriptor(ends[0]);
    m_writeEnd = Descriptor(ends[1]);
    noticeEnd = m_writeEnd.number();
    auto* notifier = new QSocketNotifier(m_readEnd.number(), QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this, onSignal = std::move(onSignal)] {
        unsigned char signal = 0;
        if (::read(m_readEnd.number(), &signal, 1) == 1) onSignal(signal);
    });
    for (const int signal : endSignals)
        std::signal(signal, notice);
}

EndSignals::~EndSignals() {
    for (const int signal : endSignals)
        std::signal(signal, SIG_DFL);
}

} // namespace korvel
