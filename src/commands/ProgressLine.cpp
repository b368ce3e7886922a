#include "commands/ProgressLine.h"

#include <ostream>

namespace korvel {

namespace {

constexpr auto soon = std::chrono::milliseconds(400);

} // namespace

ProgressLine::~ProgressLine() {
    if (m_shownPercent >= 0) m_terminal << "\r\033[K" << std::flush;
}

void ProgressLine::show(double share) {
    const int percent = static_cast<int>(100 * share);
    if (percent == m_shownPercent || std::chrono::steady_clock::now() - m_start < soon) return;
    m_shownPercent = percent;
    m_terminal << '\r' << m_what << ' ' << percent << " %\033[K" << std::flush;
}

} // namespace korvel
