// What to write for a value, as one number, found without branches: values of every size stand in a row, so
// that none could be foreseen.
//
//     0.567913 --how many decimals-->  4       by counting the bounds that it lies below
//              --times 10^4, rounded-->  5679  always four digits, but for the rarest
//              --code-->  characters 7 | zeros 2 | place of "5679," in the table of texts
//
//     "0.000000"     is written first, always the same eight characters,
//       "5679,"      goes over it behind so many characters of the zero (QuickNumber),
//     "0.5679,"      and the next number begins so many characters further on.
//
// It is certain wherever the scaled value is not near a half; there, and for sizes that no report has, the
// plain way (ReportNumber) is asked. Measured: with a division a digit the file takes 2.3 times as long. It
// stands in a header so that it becomes a part of the loop over a column.
#pragma once

#include "reports/ReportNumber.h"

#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace korvel {

// The place of the last digits in the table of texts; above these 16 bits, how many characters of a zero
// stand before them; above four more, how many are written in all, so that the next number's place is known
// before the table has been looked at.
enum class NumberCode : std::uint32_t {
    wholeNumber = 0x80000000, // added to a number of more than four digits, which is written without a table
    plainWay = 0xFFFFFFFF
};

namespace numbers {

inline constexpr std::uint32_t textsOfEachKind = 10000; // the numbers of four digits

struct Format {
    double powerOfTen;
    std::uint32_t code; // of 0000
};

constexpr Format format(double powerOfTen, std::uint32_t kind, std::uint32_t zeros,
                        std::uint32_t characters) {
    return {powerOfTen, kind * textsOfEachKind + (zeros << 16) + (characters << 20)};
}

// By the number of decimals. From four on, "0.", "0.0" ... stand before four digits without a point.
inline constexpr std::array<Format, 8> formats{
    format(1, 0, 0, 5),   format(1e1, 1, 0, 6), format(1e2, 2, 0, 6), format(1e3, 3, 0, 6),
    format(1e4, 0, 2, 7), format(1e5, 0, 3, 8), format(1e6, 0, 4, 9), format(1e7, 0, 5, 10)};

inline constexpr double smallestNotScaled = 99999998; // scaled values have eight digits

inline unsigned decimalsOf(double value) {
    unsigned decimals = 0;
    for (const double bound : decimalBounds)
        decimals += static_cast<unsigned>(value < bound);
    return decimals;
}

// The rarer ones, of which a branch can be foreseen: near a half, and not of four digits.
std::int32_t roundedNearHalf(double scaled); // -1 where it isn't certain
NumberCode rareCode(std::int32_t number, unsigned decimals);

// A difference of the 16th digit moves no scaled value by as much as this.
inline constexpr double epsilon = 1e-14 * smallestNotScaled;

inline std::int32_t rounded(double scaled) {
    const double raised = scaled + 0.5;
    const auto nearest = static_cast<std::int32_t>(raised);
    const double past = raised - nearest; // the last half: 0 to 1
    return std::fabs(past - 0.5) < 0.5 - epsilon ? nearest : roundedNearHalf(scaled);
}

} // namespace numbers

// Compared as bits, negative values, infinities and what is no number are above the limit, too.
inline NumberCode numberCode(double value) {
    using namespace numbers;
    const auto bits = std::bit_cast<std::uint64_t>(value);
    if (bits >= std::bit_cast<std::uint64_t>(smallestNotScaled)) return NumberCode::plainWay;
    const unsigned decimals = decimalsOf(value);
    const std::int32_t number = rounded(value * formats[decimals].powerOfTen);
    const bool fourDigits = number >= 1000 && number < 10000;
    if (!fourDigits) return rareCode(number, decimals);
    return NumberCode{formats[decimals].code + static_cast<std::uint32_t>(number)};
}

} // namespace korvel
