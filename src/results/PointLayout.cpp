#include "results/PointLayout.h"

#include "basic/FieldCharacters.h"
#include "results/PointValues.h"

#include <algorithm>

namespace korvel {

namespace {

constexpr int longestPause = 64;            // points
constexpr std::size_t comparedAtOnce = 512; // bytes

// Where the text goes on: past blanks, past the separator that ends a field, past a caption in quotes. The
// last one stays where there is none. Of blanks that separate, all but the first may be the next number's.
std::size_t pastBlanksAt(std::string_view text, std::size_t at) {
    while (at < text.size() && isBlank(text[at]))
        ++at;
    return at;
}

std::size_t pastSeparator(std::string_view text, std::size_t at) {
    const std::size_t ender = pastBlanksAt(text, at);
    if (ender == text.size() || !endsText(text[ender])) return std::min(at + 1, ender);
    const bool isPair = text.substr(ender, 2) == "\r\n";
    return ender + (isPair ? 2 : 1);
}

std::size_t pastCaption(std::string_view text, std::size_t at) {
    const std::size_t opening = pastBlanksAt(text, at);
    if (opening == text.size() || text[opening] != '"') return at;
    const std::size_t closing = text.find('"', opening + 1);
    return closing == std::string_view::npos ? at : pastSeparator(text, closing + 1);
}

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

void PointLayout::learn(std::string_view text, std::span<const int> numbersByCaption) {
    if (m_pointsToPass > 0) {
        --m_pointsToPass;
        return;
    }
    m_pointsToPass = m_patience - 1;
    m_patience = std::min(2 * m_patience, longestPause);
    if (!build(text, numbersByCaption)) m_frame.clear();
}

// Goes from field to field as the general reader has gone. With every caption in quotes and no field empty,
// what is left to differ are the digits. The last byte ends a field for good, so that whatever follows
// belongs to the next point.
bool PointLayout::build(std::string_view text, std::span<const int> numbersByCaption) {
    if (!text.ends_with('\n') && !text.ends_with(',')) return false;
    m_frame = text;
    m_isFrame.assign(text.size(), ~char(0));
    m_numbers.clear();
    std::size_t at = 0;
    for (const int numbers : numbersByCaption) {
        const std::size_t caption = at;
        at = pastCaption(text, at);
        if (at == caption) return false;
        for (int number = 0; number < numbers; ++number) {
            const std::size_t first = pastBlanksAt(text, at);
            if (first == text.size() || endsText(text[first])) return false;
            at = pastSeparator(text, addNumber(text, at, first));
        }
    }
    return at == text.size();
}

// The number from `first` on, with the blanks before it down to `lowest`; returns where it ends.
std::size_t PointLayout::addNumber(std::string_view text, std::size_t lowest, std::size_t first) {
    const auto end = static_cast<std::size_t>(
        std::find_if(text.begin() + static_cast<std::ptrdiff_t>(first), text.end(), endsNumber) -
        text.begin());
    std::size_t start = first;
    while (start > lowest && text[start - 1] == ' ')
        --start;
    const ColumnNumber number = columnNumber(text, start, first, end);
    std::fill(m_isFrame.begin() + number.start, m_isFrame.begin() + number.end, char(0));
    if (number.inEights && number.point < end) m_isFrame[number.point] = ~char(0);
    m_numbers.push_back(number);
    return end;
}

} // namespace korvel
