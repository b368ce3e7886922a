// Decimal numbers whose digits and power of ten are both exact doubles: one correctly rounded operation away
// from their value, so that they need no general parser. Eight digits at a time can be taken from one
// word, without a branch a digit.
#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace korvel {

// Eight characters as a number, the first in its lowest byte.
inline std::uint64_t eightCharacters(const char* at) {
    std::uint64_t word = 0;
    std::memcpy(&word, at, sizeof word);
    if constexpr (std::endian::native == std::endian::big) word = __builtin_bswap64(word);
    return word;
}

constexpr std::uint64_t eightTimes(std::uint8_t byte) {
    return byte * 0x0101010101010101U;
}

// The places, as a high half byte that is not 0, where a byte is no digit value 0 to 9. A place that follows
// such a one may be marked wrongly.
constexpr std::uint64_t notDigitValues(std::uint64_t values) {
    return (values | (values + eightTimes(6))) & eightTimes(0xF0);
}

// The number that eight digit values form, the most significant one in the lowest byte: neighbours are joined
// to pairs, pairs to fours, fours to the whole.
constexpr std::uint64_t joinedDigits(std::uint64_t values) {
    values = values * 10 + (values >> 8);
    constexpr std::uint64_t pairs = 0x000000FF000000FF;
    return ((values & pairs) * 0x000F424000000064U + ((values >> 16) & pairs) * 0x0000271000000001U) >> 32;
}

inline constexpr std::uint64_t exactInteger = std::uint64_t(1) << 53; // whole numbers up to it are exact
inline constexpr int exactPower = 22; // 10^22 is the largest power of ten that a double holds exactly
inline constexpr std::array<double, exactPower + 1> powersOfTen = {
    1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
    1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

// Reads the number at `at` with its sign and exponent, up to a blank, a comma or a line end. Returns where it
// ends, or nothing where it has another form or too many digits.
const char* readExactDecimal(const char* at, double& value);

} // namespace korvel
