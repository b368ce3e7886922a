#include "results/PointLayout.h"

#include "basic/ExactDecimal.h"
#include "basic/FieldCharacters.h"
#include "results/PointValues.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::size_t eight = sizeof(std::uint64_t);
constexpr int longestPause = 64;            // points
constexpr std::size_t comparedAtOnce = 512; // bytes

// By a count of characters: all bits of the bytes before the last so many.
constexpr std::array<std::uint64_t, eight + 1> bytesBeforeLast = [] {
    std::array<std::uint64_t, eight + 1> masks{};
    for (std::size_t count = 0; count < eight; ++count)
        masks[count] = ~std::uint64_t(0) >> (8 * count);
    return masks;
}();

// Digits before the decimal point with blanks before them. Yes in `plain` if there is nothing else.
struct WholePart {
    std::uint64_t value;
    bool plain;
    bool empty;
};

WholePart wholePartBefore(const char* point, std::size_t width) {
    const std::uint64_t outside = bytesBeforeLast[width];
    const std::uint64_t text = (eightCharacters(point - eight) & ~outside) | (eightTimes(' ') & outside);
    const std::uint64_t digitLike = text & eightTimes(0x10);
    const std::uint64_t blanks = ~digitLike & (digitLike - 1) & eightTimes(0x10); // before the first of them
    const std::uint64_t blankBytes = (blanks << 4) - (blanks >> 4);
    const std::uint64_t values = (text | blanks) ^ eightTimes('0');
    const std::uint64_t wrong = ((text ^ eightTimes(' ')) & blankBytes) | notDigitValues(values);
    return {joinedDigits(values), wrong == 0, digitLike == 0};
}

struct Fraction {
    std::uint64_t value;
    bool plain;
};

Fraction fractionBefore(const char* end, std::size_t width) {
    const std::uint64_t inside = ~bytesBeforeLast[width];
    const std::uint64_t values = (eightCharacters(end - eight) ^ eightTimes('0')) & inside;
    return {joinedDigits(values), notDigitValues(values) == 0};
}

constexpr std::array<std::uint64_t, eight + 1> wholePowers = {1,      10,      100,      1000,     10000,
                                                              100000, 1000000, 10000000, 100000000};

// A number in columns; no where it is anything but blanks, digits and the point.
bool readInEights(const char* start, const char* point, const char* end, double& value) {
    const WholePart whole = wholePartBefore(point, static_cast<std::size_t>(point - start));
    const std::size_t decimals = point == end ? 0 : static_cast<std::size_t>(end - point - 1);
    const Fraction fraction = fractionBefore(end, decimals);
    const std::uint64_t digits = whole.value * wholePowers[decimals] + fraction.value;
    if (!whole.plain || !fraction.plain || digits > exactInteger || (whole.empty && decimals == 0))
        return false;
    value = static_cast<double>(digits) / powersOfTen[decimals];
    return true;
}

bool isSign(char c) {
    return c == '-' || c == '+';
}

// Whether the characters are digits with at most one point, few enough on either side of it.
bool fitsEights(std::string_view number, std::size_t point) {
    const std::string_view whole = number.substr(isSign(number[0]) ? 1 : 0);
    const auto isPlain = [](char c) { return isDigit(c) || c == '.'; };
    return std::ranges::all_of(whole, isPlain) && std::ranges::count(whole, '.') <= 1 && point <= eight &&
           number.size() - point <= eight + 1;
}

} // namespace

std::size_t PointLayout::read(std::string_view text, std::span<double> into) {
    if (m_frame.empty() || text.size() < m_frame.size()) return 0;
    if (!hasFrame(text.data())) return 0;
    if (!readNumbers(text.data(), into)) {
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

bool PointLayout::readNumbers(const char* text, std::span<double> into) const {
    double* value = into.data();
    for (const Number& number : m_numbers) {
        const char* start = text + number.start;
        const char* end = text + number.end;
        if (!number.inEights || !readInEights(start, text + number.point, end, *value)) {
            if (readExactDecimal(pastBlanks(start), *value) != end) return false;
        }
        ++value;
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
            fieldEnd = at = text.find('"', at + 1) + 1;
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
    const std::string_view characters = text.substr(first, end - first);
    const std::size_t point = std::min(end, first + std::min(characters.find('.'), characters.size()));
    const bool inEights = point >= eight && fitsEights(characters, point - first);
    if (inEights) start = std::max(start, point - eight);
    const auto mayDiffer = std::span(m_isFrame).subspan(start, end - start);
    std::ranges::fill(mayDiffer, char(0));
    if (inEights && point < end) m_isFrame[point] = ~char(0);
    m_numbers.push_back({static_cast<std::uint32_t>(start), static_cast<std::uint32_t>(point),
                         static_cast<std::uint32_t>(end), inEights});
}
