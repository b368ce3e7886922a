#include "fuzz/Fuzzing.h"

#include "fakes/LetterByLetterInput.h"

#include <cstdio>
#include <cstdlib>

namespace korvel {

namespace {

// The code point that a sequence stands for.
std::uint32_t codePointOf(std::string_view sequence) {
    const auto lead = static_cast<unsigned char>(sequence[0]);
    std::uint32_t point = sequence.size() == 1 ? lead : lead & (0xFFU >> (sequence.size() + 1));
    for (const char next : sequence.substr(1)) {
        const auto byte = static_cast<unsigned char>(next);
        require((byte & 0xC0U) == 0x80U, "a sequence goes on with continuing bytes");
        point = point << 6 | (byte & 0x3FU);
    }
    return point;
}

std::size_t lengthBy(unsigned char lead) {
    if (lead < 0x80) return 1;
    return lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
}

} // namespace

void require(bool kept, const char* promise) {
    if (kept) return;
    std::fprintf(stderr, "Not kept: %s\n", promise);
    std::abort();
}

std::string textOf(const std::uint8_t* data, std::size_t size) {
    return size == 0 ? std::string() : std::string(reinterpret_cast<const char*>(data), size);
}

std::size_t ShortReads::read(char* into, std::size_t capacity) {
    m_last = m_last % m_longest + 1;
    const std::size_t count = m_text.copy(into, std::min(capacity, m_last), m_position);
    m_position += count;
    return count;
}

std::vector<std::string> plainLines(const std::string& text) {
    LetterByLetterInput input(text);
    std::vector<std::string> lines;
    try {
        for (;;)
            lines.push_back(input.line());
    } catch (const RunTimeError&) { // the end of the file
    }
    return lines;
}

std::vector<std::string> utf8Characters(std::string_view text) {
    constexpr std::uint32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000};
    std::vector<std::string> characters;
    while (!text.empty()) {
        const std::size_t length = lengthBy(static_cast<unsigned char>(text[0]));
        require(length <= text.size(), "no sequence is cut off");
        const std::string_view sequence = text.substr(0, length);
        const std::uint32_t point = codePointOf(sequence);
        require(point >= smallest[length] && point <= 0x10FFFF, "a code point has its own length");
        require(point < 0xD800 || point > 0xDFFF, "no surrogates");
        characters.emplace_back(sequence);
        text.remove_prefix(length);
    }
    return characters;
}

} // namespace korvel
