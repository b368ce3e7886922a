#include "commands/RunsProgress.h"

#include <ostream>

namespace korvel {

namespace {

constexpr std::chrono::milliseconds betweenTerminalLines(200);
constexpr std::chrono::seconds betweenFileLines(10);
constexpr const char* cleared = "\r\033[K";

} // namespace

RunsProgress::RunsProgress(const Tally& tally, std::ostream& out, Place place)
    : m_tally(tally), m_out(out), m_place(place) {
    if (m_place == Place::file) m_next += betweenFileLines;
}

void RunsProgress::show() {
    const Clock::time_point now = Clock::now();
    if (now < m_next) return;
    m_next = now + (m_place == Place::terminal ? Clock::duration(betweenTerminalLines) : betweenFileLines);
    const auto elapsed = std::chrono::duration_cast<std::chrono::milliseconds>(now - m_begun);
    const std::string text = m_tally.progress(elapsed);
    if (text == m_shown) return;
    m_shown = text;
    if (m_place == Place::terminal)
        m_out << cleared << text << std::flush;
    else
        m_out << text << std::endl;
}

void RunsProgress::end() {
    if (m_place == Place::terminal && !m_shown.empty()) m_out << cleared << std::flush;
    m_shown.clear();
}

} // namespace korvel
