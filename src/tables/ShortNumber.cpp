#include "tables/ShortNumber.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>

namespace korvel {

namespace {

constexpr int commonDecimals = 6; // engines write no more
constexpr int mostDecimals = 8;
// Below and above, the shortest form may be one with an exponent; within, with so few decimals, no decimal
// has more than 15 digits, so that it is exact when dividing gives the number back.
constexpr double smallest = 1e-3;
constexpr double largest = 1e5;

constexpr std::array<std::uint32_t, mostDecimals + 1> powers = {1,      10,      100,      1000,     10000,
                                                                100000, 1000000, 10000000, 100000000};

constexpr auto digitPairs = [] {
    std::array<char, 200> pairs{};
    for (std::size_t k = 0; k < 100; ++k) {
        pairs[2 * k] = static_cast<char>('0' + k / 10);
        pairs[2 * k + 1] = static_cast<char>('0' + k % 10);
    }
    return pairs;
}();

// Exactly so many digits, from the right.
void writeDigits(char* end, std::uint32_t number, int digits) {
    for (; digits >= 2; digits -= 2, number /= 100)
        std::memcpy(end -= 2, &digitPairs[2 * (number % 100)], 2);
    if (digits == 1) *--end = static_cast<char>('0' + number % 10);
}

// Of the digits before the point, five at most.
int digitsOf(std::uint32_t number) {
    return 1 + (number >= 10) + (number >= 100) + (number >= 1000) + (number >= 10000);
}

// Without a call: every number here is far below 2^51.
double nearestWhole(double value) {
    constexpr double shift = 6755399441055744; // 1.5 x 2^52
    return (value + shift) - shift;
}

char* writeDecimal(char* into, std::uint32_t whole, std::uint32_t fraction, int decimals) {
    const int digits = digitsOf(whole);
    writeDigits(into + digits, whole, digits);
    into += digits;
    for (; decimals > 0 && fraction % 10 == 0; --decimals)
        fraction /= 10;
    if (decimals == 0) return into;
    *into++ = '.';
    writeDigits(into + decimals, fraction, decimals);
    return into + decimals;
}

// As a decimal with so many digits after the point, less the zeros at its end; null where it is none.
char* writeExact(char* into, double size, int decimals) {
    const std::uint32_t unit = powers[static_cast<std::size_t>(decimals)];
    const double scaled = nearestWhole(size * unit);
    if (scaled / unit != size) return nullptr;
    const auto whole = static_cast<std::uint32_t>(size);
    const auto fraction = static_cast<std::int64_t>(scaled) - static_cast<std::int64_t>(whole) * unit;
    return writeDecimal(into, whole, static_cast<std::uint32_t>(fraction), decimals);
}

} // namespace

char* writeShortest(char* into, double value) {
    const double size = std::abs(value);
    if (size >= smallest && size < largest) {
        char* const digits = value < 0 ? into + 1 : into;
        *into = '-';
        for (const int decimals : {commonDecimals, mostDecimals})
            if (char* const end = writeExact(digits, size, decimals)) return end;
    }
    return std::to_chars(into, into + longestNumber, value).ptr;
}

} // namespace korvel
