// The numbers of a report without formatting them. All texts of four digits are made once, 10000 for each
// place of the point, with the comma that follows; most that are written are these:
//
//     without a point     1000, ... 9999,     and, behind a zero that is written first, 0.5679, 0.05679, ...
//     one decimal         99.9, ... 999.9,
//     two                 9.90, ... 99.90,
//     three              0.900, ... 9.900,
//
// A value's code (NumberCode) says which of them; writing is a copy of eight bytes, whatever the length.
// Where it isn't certain that the text is the plain way's (ReportNumber), the value is left to that.
#pragma once

#include "reports/NumberCode.h"

#include <array>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

namespace korvel {

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
        std::memcpy(to + (bits >> 16 & 0xF), m_texts[bits & 0xFFFF].data(), sizeof(Text));
        return to + (bits >> 20);
    }

  private:
    using Text = std::array<char, 8>; // of at most six characters

    NumberTexts();
    static Text textOf(unsigned number, unsigned decimals);
    static char* writeWhole(char* to, std::uint32_t bits);

    std::vector<Text> m_texts; // of 0 to 9999 without a point, then with one, two, three decimals
};

// The same text as reportNumber's.
std::string quickNumber(double value);

} // namespace korvel
