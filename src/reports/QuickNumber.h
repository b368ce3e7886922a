// The numbers of a report without formatting them: the text of a whole number (NumberCode) is looked up with
// the comma that follows it. Where it isn't certain that the text is the plain way's (ReportNumber), the
// value is left to that.
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
