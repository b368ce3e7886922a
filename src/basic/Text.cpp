#include "basic/Text.h"

#include <algorithm>
#include <array>
#include <optional>

namespace korvel {

namespace {

// The code points of Windows-1252's characters 80 to 9F; its five undefined ones stand for themselves.
constexpr std::array<char16_t, 32> windows1252{
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

unsigned byteAt(std::string_view text, std::size_t index) {
    return static_cast<unsigned char>(text[index]);
}

bool continuesSequence(char character) {
    return (static_cast<unsigned char>(character) & 0xC0U) == 0x80U;
}

// The length of the UTF-8 sequence that a byte begins; 0 where it begins none.
std::size_t sequenceLength(unsigned lead) {
    if (lead < 0x80) return 1;
    if (lead >= 0xC2 && lead <= 0xDF) return 2;
    if (lead >= 0xE0 && lead <= 0xEF) return 3;
    if (lead >= 0xF0 && lead <= 0xF4) return 4;
    return 0;
}

// Second bytes that would make an overlong form, a surrogate or a code point beyond 10FFFF are refused.
bool secondByteFits(unsigned lead, unsigned second) {
    switch (lead) {
    case 0xE0: return second >= 0xA0;
    case 0xED: return second <= 0x9F;
    case 0xF0: return second >= 0x90;
    case 0xF4: return second <= 0x8F;
    default: return true;
    }
}

enum class Sequence { whole, cutOff, invalid };

Sequence checkSequence(std::string_view rest, std::size_t length) {
    if (length == 0) return Sequence::invalid;
    for (std::size_t i = 1; i < std::min(length, rest.size()); ++i) {
        if (!continuesSequence(rest[i])) return Sequence::invalid;
        if (i == 1 && !secondByteFits(byteAt(rest, 0), byteAt(rest, 1))) return Sequence::invalid;
    }
    return rest.size() < length ? Sequence::cutOff : Sequence::whole;
}

// How many bytes of the text are whole UTF-8 sequences, but for one cut off at the end of a text that holds
// longer ones; nothing where it isn't UTF-8.
std::optional<std::size_t> utf8Extent(std::string_view text) {
    std::size_t position = 0;
    bool hasLonger = false;
    while (position < text.size()) {
        const std::size_t length = sequenceLength(byteAt(text, position));
        const Sequence verdict = checkSequence(text.substr(position), length);
        if (verdict == Sequence::cutOff && hasLonger) break;
        if (verdict != Sequence::whole) return std::nullopt;
        if (length > 1) hasLonger = true;
        position += length;
    }
    return position;
}

std::string utf8OfWindows1252(std::string_view text) {
    std::string shown;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const unsigned code = byteAt(text, i);
        appendUtf8(shown, code >= 0x80 && code < 0xA0 ? windows1252[code - 0x80] : code);
    }
    return shown;
}

} // namespace

std::string trimLeft(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    return first == std::string_view::npos ? std::string() : std::string(text.substr(first));
}

std::string trimRight(std::string_view text) {
    return std::string(text.substr(0, text.find_last_not_of(' ') + 1));
}

std::string trim(std::string_view text) {
    return trimLeft(text.substr(0, text.find_last_not_of(' ') + 1));
}

std::string upperCase(std::string_view text) {
    std::string upper(text);
    for (char& c : upper)
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    return upper;
}

std::string lowerCase(std::string_view text) {
    std::string lower(text);
    for (char& c : lower)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return lower;
}

bool beginsWith(std::string_view text, std::string_view start) {
    return text.starts_with(start);
}

bool contains(std::string_view text, std::string_view part) {
    return text.find(part) != std::string_view::npos;
}

std::string last(std::string_view text, std::size_t count) {
    return std::string(text.substr(text.size() - std::min(count, text.size())));
}

std::string withoutLast(std::string_view text, std::size_t count) {
    return std::string(text.substr(0, text.size() - std::min(count, text.size())));
}

std::string inWords(const std::vector<std::string>& parts, std::string_view conjunction) {
    std::string words;
    for (std::size_t k = 0; k < parts.size(); ++k) {
        if (k > 0) words += k + 1 < parts.size() ? ", " : " " + std::string(conjunction) + " ";
        words += parts[k];
    }
    return words;
}

std::string shownUtf8(std::string_view text) {
    const auto extent = utf8Extent(text);
    return extent ? std::string(text.substr(0, *extent)) : utf8OfWindows1252(text);
}

void appendUtf8(std::string& text, unsigned codePoint) {
    if (codePoint < 0x80) {
        text.push_back(static_cast<char>(codePoint));
    } else if (codePoint < 0x800) {
        text.push_back(static_cast<char>(0xC0U | (codePoint >> 6U)));
        text.push_back(static_cast<char>(0x80U | (codePoint & 0x3FU)));
    } else {
        text.push_back(static_cast<char>(0xE0U | (codePoint >> 12U)));
        text.push_back(static_cast<char>(0x80U | ((codePoint >> 6U) & 0x3FU)));
        text.push_back(static_cast<char>(0x80U | (codePoint & 0x3FU)));
    }
}

std::string firstShown(std::string_view utf8, std::size_t count) {
    std::size_t end = 0;
    for (; end < utf8.size(); ++end) {
        if (continuesSequence(utf8[end])) continue;
        if (count == 0) break;
        --count;
    }
    return std::string(utf8.substr(0, end));
}

std::size_t shownLength(std::string_view utf8) {
    return utf8.size() - static_cast<std::size_t>(std::count_if(utf8.begin(), utf8.end(), continuesSequence));
}

} // namespace korvel
