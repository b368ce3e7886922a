// The numbers of a report in few steps, the same ones for values of every size, since no branch could be
// foreseen where all sizes stand in a row: a value is scaled to a whole number, whose text is looked up with
// the comma that follows it. Where it isn't certain that the text is the plain way's (ReportNumber), the
// value is left to that.
#pragma once

#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

// What to write for a value: the place of its last digits in the table of texts and, above these 16 bits, how
// many characters of a zero stand before them.
enum class NumberCode : std::uint32_t {
    wholeNumber = 0x80000000, // added to a number of more than four digits, which is written without a table
    plainWay = 0xFFFFFFFF
};

NumberCode numberCode(double value);

class NumberTexts {
  public:
    // Room that write needs.
    static constexpr std::size_t room = 16;

    static const NumberTexts& all();

    // Writes a number and a comma; what follows them in the room is overwritten too. Returns the end. Not for
    // plainWay.
    char* write(char* to, NumberCode code) const {
        const auto bits = static_cast<std::uint32_t>(code);
        if (bits >= static_cast<std::uint32_t>(NumberCode::wholeNumber)) return writeWhole(to, bits);
        // NOLINTNEXTLINE(bugprone-not-null-terminated-result): more text follows
        std::memcpy(to, "0.000000", 8);
        to += bits >> 16;
        const Text& text = m_texts[bits & 0xFFFF];
        std::memcpy(to, &text, sizeof text);
        return to + text.length;
    }

  private:
    struct Text {
        std::array<char, 7> characters;
        std::uint8_t length;
    };

    NumberTexts();
    static Text textOf(unsigned number, unsigned decimals);
    static char* writeWhole(char* to, std::uint32_t bits);

    std::vector<Text> m_texts; // of 0 to 9999 without a point, then with one, two, three decimals
};

// The same text as reportNumber's.
std::string quickNumber(double value);
