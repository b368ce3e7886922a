#include "tables/ShortNumber.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>

namespace korvel {

namespace {

constexpr int mostDecimals = 8;
// Below and above, the shortest form may be one with an exponent; within, with so few decimals, no decimal
// has more than 15 digits, so that it is exact when dividing gives the number back.
constexpr double smallest = 1e-3;
constexpr double largest = 1e5;

constexpr std::array<double, mostDecimals + 1> powers = {1, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8};

constexpr auto digitPairs = [] {
    std::array<char, 200> pairs{};
    for (std::size_t k = 0; k < 100; ++k) {
        pairs[2 * k] = static_cast<char>('0' + k / 10);
        pairs[2 * k + 1] = static_cast<char>('0' + k % 10);
    }
    return pairs;
}();

// Exactly so many digits, from the right.
void writeDigits(char* end, std::uint64_t number, int digits) {
    for (; digits >= 2; digits -= 2, number /= 100)
        std::memcpy(end -= 2, &digitPairs[2 * (number % 100)], 2);
    if (digits == 1) *--end = static_cast<char>('0' + number % 10);
}

int digitsOf(std::uint64_t number) {
    int digits = 1;
    for (; number >= 10; number /= 10)
        ++digits;
    return digits;
}

char* writeDecimal(char* into, std::uint64_t scaled, int decimals) {
    const auto unit = static_cast<std::uint64_t>(powers[static_cast<std::size_t>(decimals)]);
    const std::uint64_t whole = scaled / unit;
    const int digits = digitsOf(whole);
    writeDigits(into + digits, whole, digits);
    into += digits;
    if (decimals == 0) return into;
    *into++ = '.';
    writeDigits(into + decimals, scaled % unit, decimals);
    return into + decimals;
}

} // namespace

char* writeShortest(char* into, double value) {
    const double size = std::abs(value);
    if (size >= smallest && size < largest) {
        const double scaled = std::nearbyint(size * powers[mostDecimals]);
        if (scaled / powers[mostDecimals] == size) {
            auto digits = static_cast<std::uint64_t>(scaled);
            int decimals = mostDecimals;
            for (; decimals > 0 && digits % 10 == 0; --decimals)
                digits /= 10;
            if (value < 0) *into++ = '-';
            return writeDecimal(into, digits, decimals);
        }
    }
    return std::to_chars(into, into + longestNumber, value).ptr;
}

} // namespace korvel
