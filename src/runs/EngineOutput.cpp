#include "runs/EngineOutput.h"

#include "basic/Text.h"

#include <utility>

namespace korvel {

namespace {

constexpr std::size_t longestPiece = 1000; // characters of a line
constexpr int mostPieces = 10;
const char* const notShown = "[ The rest of this line is not shown. ]";

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
            if (m_pieces == 0 || !m_open.empty()) endLine(completed);
            beginLine();
            continue;
        }
        if (c == '\r') {
            m_afterReturn = true;
            continue;
        }
        if (m_afterReturn) beginLine();
        take(c, completed);
    }
    return completed;
}

void EngineOutput::beginLine() {
    m_open.clear();
    m_afterReturn = false;
    m_pieces = 0;
}

void EngineOutput::take(char c, std::vector<std::string>& completed) {
    if (m_pieces > mostPieces) return;
    if (m_pieces == mostPieces) {
        completed.push_back(notShown);
        ++m_pieces;
        return;
    }
    m_open.push_back(c);
    if (m_open.size() < longestPiece) return;
    endLine(completed);
    ++m_pieces;
}

void EngineOutput::endLine(std::vector<std::string>& completed) {
    if (tellsFileInHand(m_open)) m_fileInHand = m_open;
    completed.push_back(std::move(m_open));
    m_open.clear();
}

} // namespace korvel
