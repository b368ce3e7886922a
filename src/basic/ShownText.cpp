#include "basic/ShownText.h"

#include "basic/Text.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace korvel {

namespace {

std::size_t lengthOf(char lead) {
    const auto byte = static_cast<unsigned char>(lead);
    return byte < 0x80 ? 1 : byte < 0xE0 ? 2 : byte < 0xF0 ? 3 : 4;
}

unsigned codePointOf(std::string_view character) {
    const auto lead = static_cast<unsigned char>(character[0]);
    if (character.size() == 1) return lead;
    unsigned code = lead & (0xFFU >> (character.size() + 1));
    for (const char byte : character.substr(1))
        code = (code << 6U) | (static_cast<unsigned char>(byte) & 0x3FU);
    return code;
}

// Calls `use` with each character of a text in valid UTF-8.
template <typename Use>
void forCharacters(std::string_view utf8, Use use) {
    for (std::size_t at = 0; at < utf8.size();) {
        const std::string_view character = utf8.substr(at, lengthOf(utf8[at]));
        use(character, codePointOf(character));
        at += character.size();
    }
}

bool isSpace(unsigned code) {
    return code == '\t' || code == '\n' || code == '\r';
}

// FFFE and FFFF are no characters at all.
bool isControl(unsigned code) {
    return code < 0x20 || (code >= 0x7F && code < 0xA0) || code == 0xFFFE || code == 0xFFFF;
}

// Letters from right to left, and the marks that order a direction.
bool turnsWords(unsigned code) {
    struct Range {
        unsigned from, to;
    };
    static constexpr std::array<Range, 8> turning{{{0x590, 0x8FF},
                                                   {0x200E, 0x200F},
                                                   {0x202A, 0x202E},
                                                   {0x2066, 0x2069},
                                                   {0xFB1D, 0xFDFF},
                                                   {0xFE70, 0xFEFE},
                                                   {0x10800, 0x10FFF},
                                                   {0x1E800, 0x1EFFF}}};
    return std::ranges::any_of(turning,
                               [code](const Range& range) { return code >= range.from && code <= range.to; });
}

} // namespace

std::string shownLine(std::string_view text) {
    std::string line;
    forCharacters(shownUtf8(text), [&](std::string_view character, unsigned code) {
        if (isSpace(code))
            line += ' ';
        else if (!isControl(code))
            line += character;
    });
    return line;
}

std::string shownName(std::string_view text) {
    std::string line = shownLine(text);
    bool turns = false;
    forCharacters(line, [&](std::string_view, unsigned code) { turns = turns || turnsWords(code); });
    return turns ? "\u2068" + line + "\u2069" : line;
}

} // namespace korvel
