#include "results/PointLayout.h"

#include "basic/FieldCharacters.h"
#include "results/PointValues.h"

#include <algorithm>

namespace {

constexpr int longestPause = 64;            // points
constexpr std::size_t comparedAtOnce = 512; // bytes

} // namespace

std::size_t PointLayout::read(std::string_view text, std::span<double> into) {
    if (m_frame.empty() || text.size() < m_frame.size()) return 0;
    if (!hasFrame(text.data())) return 0;
    if (!readColumns(text.data(), m_numbers, into.data())) {
        std::ranges::fill(into, notReadYet);
        return 0;
    }
    m_patience = 1;
    m_pointsToPass = 0;
    return m_frame.size();
}

// Left to the compiler to compare as many bytes at once as the machine can.
bool PointLayout::hasFrame(const char* text) const {
    const char* frame = m_frame.data();
    const char* isFrame = m_isFrame.data();
    for (std::size_t from = 0; from < m_frame.size(); from += comparedAtOnce) {
        const std::size_t to = std::min(from + comparedAtOnce, m_frame.size());
        char differs = 0;
        for (std::size_t i = from; i < to; ++i)
            differs = static_cast<char>(differs | ((text[i] ^ frame[i]) & isFrame[i]));
        if (differs != 0) return false;
    }
    return true;
}

void PointLayout::learn(std::string_view text, std::size_t captions, std::size_t numbers) {
    if (m_pointsToPass > 0) {
        --m_pointsToPass;
        return;
    }
    m_pointsToPass = m_patience - 1;
    m_patience = std::min(2 * m_patience, longestPause);
    if (!build(text, captions, numbers)) m_frame.clear();
}

// With as many quoted fields as captions, and as many others as numbers, no field is empty and none is of the
// other kind: what is left to differ are the digits. The last byte ends a field for good, so that whatever
// follows belongs to the next point.
bool PointLayout::build(std::string_view text, std::size_t captions, std::size_t numbers) {
    if (!text.ends_with('\n') && !text.ends_with(',')) return false;
    m_frame = text;
    m_isFrame.assign(text.size(), ~char(0));
    m_numbers.clear();
    std::size_t quoted = 0;
    std::size_t fieldEnd = 0;
    for (std::size_t at = 0; at < text.size();) {
        if (text[at] == '"') {
            ++quoted;
            const std::size_t closing = text.find('"', at + 1);
            if (closing == std::string_view::npos) return false; // it stands in a text without quotes
            fieldEnd = at = closing + 1;
        } else if (endsNumber(text[at])) {
            ++at;
        } else {
            const std::size_t end = static_cast<std::size_t>(
                std::find_if(text.begin() + static_cast<std::ptrdiff_t>(at), text.end(), endsNumber) -
                text.begin());
            addNumber(text, fieldEnd, at, end);
            at = end;
            fieldEnd = end + 1;
        }
    }
    return quoted == captions && m_numbers.size() == numbers;
}

// The number from `first` to `end`, with the blanks before it down to `lowest`.
void PointLayout::addNumber(std::string_view text, std::size_t lowest, std::size_t first, std::size_t end) {
    std::size_t start = first;
    while (start > lowest && text[start - 1] == ' ')
        --start;
    const ColumnNumber number = columnNumber(text, start, first, end);
    std::fill(m_isFrame.begin() + number.start, m_isFrame.begin() + number.end, char(0));
    if (number.inEights && number.point < end) m_isFrame[number.point] = ~char(0);
    m_numbers.push_back(number);
}
