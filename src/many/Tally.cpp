#include "many/Tally.h"

#include <cmath>

namespace korvel {

namespace {

using Row = Tally::Row;

Row rowOf(RunState state) {
    switch (state) {
    case RunState::started: return Row::running;
    case RunState::done: return Row::done;
    case RunState::failed: return Row::failed;
    case RunState::stopped: return Row::stopped;
    }
    return Row::waiting;
}

std::string timeText(double seconds) {
    if (seconds < 60) return std::to_string(std::lround(seconds)) + " s";
    const long minutes = std::lround(seconds / 60);
    if (minutes < 60) return std::to_string(minutes) + " min";
    return std::to_string(minutes / 60) + " h " + std::to_string(minutes % 60) + " min";
}

void add(std::string& text, std::size_t count, const char* what) {
    if (count == 0) return;
    if (!text.empty()) text += ", ";
    text += std::to_string(count) + ' ' + what;
}

} // namespace

void Tally::set(std::size_t row, Row state, const std::string& message) {
    --m_counts[static_cast<std::size_t>(m_rows[row])];
    ++m_counts[static_cast<std::size_t>(state)];
    m_rows[row] = state;
    m_messages[row] = message;
}

void Tally::set(std::size_t row, const RunRecord& record) {
    set(row, rowOf(record.state), record.message);
}

std::vector<std::size_t> Tally::rowsIn(Row state) const {
    std::vector<std::size_t> found;
    for (std::size_t row = 0; row < m_rows.size(); ++row)
        if (m_rows[row] == state) found.push_back(row);
    return found;
}

std::string Tally::progress(std::chrono::milliseconds elapsed) const {
    std::string text = std::to_string(count(Row::done) + count(Row::kept)) + " done";
    add(text, count(Row::running), "running");
    add(text, count(Row::failed), "failed");
    add(text, count(Row::stopped), "stopped");
    add(text, count(Row::waiting), "to go");
    const std::size_t ended = count(Row::done) + count(Row::failed);
    const std::size_t left = count(Row::waiting) + count(Row::running);
    if (ended > 0 && left > 0) {
        const double seconds = static_cast<double>(elapsed.count()) / 1000;
        text +=
            ", about " + timeText(seconds / static_cast<double>(ended) * static_cast<double>(left)) + " left";
    }
    return text;
}

std::string Tally::summary() const {
    std::string text;
    add(text, count(Row::done), "done");
    add(text, count(Row::kept), "kept");
    add(text, count(Row::failed), "failed");
    add(text, count(Row::stopped), "stopped");
    add(text, count(Row::running) + count(Row::waiting), "not run");
    return text + '.';
}

} // namespace korvel
