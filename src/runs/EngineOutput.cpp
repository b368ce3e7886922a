#include "runs/EngineOutput.h"

#include "basic/Text.h"

#include <utility>

namespace korvel {

namespace {

constexpr std::size_t longestLine =
    10000; // characters; a longer line is broken, so that the window stays quick

bool tellsFileInHand(std::string_view line) {
    if (!beginsWith(line, "File ")) return false;
    const std::size_t afterNumber = line.find_first_not_of("0123456789", 5);
    return afterNumber > 5 && afterNumber != std::string_view::npos && line.substr(afterNumber, 4) == " of ";
}

} // namespace

std::vector<std::string> EngineOutput::feed(std::string_view bytes) {
    std::vector<std::string> completed;
    for (const char c : bytes) {
        if (c == '\n') {
            endLine(completed);
            m_afterReturn = false;
            continue;
        }
        if (c == '\r') {
            m_afterReturn = true;
            continue;
        }
        if (std::exchange(m_afterReturn, false)) m_open.clear();
        m_open.push_back(c);
        if (m_open.size() >= longestLine) endLine(completed);
    }
    return completed;
}

void EngineOutput::endLine(std::vector<std::string>& completed) {
    if (tellsFileInHand(m_open)) m_fileInHand = m_open;
    completed.push_back(std::move(m_open));
    m_open.clear();
}

} // namespace korvel
