#include "tables/ShortNumber.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>

namespace korvel {

namespace {

// Below and above, the shortest form may be one with an exponent; within, with so few decimals, no decimal
// has more than 15 digits, so that it is exact when dividing gives the number back.
constexpr double smallest = 1e-3;
constexpr double largest = 1e5;
constexpr std::uint32_t thousand = 1000;
constexpr std::uint32_t million = thousand * thousand; // engines write no more than six decimals

// What stands for a number below a thousand, made before, since its length can't be foreseen.
struct Digits {
    std::array<char, 3> text;
    std::uint8_t shown; // characters of it
};

// Without zeros before it: 7 is "7".
constexpr auto beginnings = [] {
    std::array<Digits, thousand> digits{};
    for (std::uint32_t k = 0; k < thousand; ++k) {
        Digits& each = digits[k];
        for (const std::uint32_t place : {100U, 10U, 1U})
            if (k >= place || place == 1) each.text[each.shown++] = static_cast<char>('0' + k / place % 10);
    }
    return digits;
}();

// With the zeros before it, of which those behind it are not shown: 70 is "07".
constexpr auto endings = [] {
    std::array<Digits, thousand> digits{};
    for (std::uint32_t k = 0; k < thousand; ++k) {
        std::uint8_t at = 0;
        for (const std::uint32_t place : {100U, 10U, 1U}) {
            digits[k].text[at++] = static_cast<char>('0' + k / place % 10);
            if (k / place % 10 != 0) digits[k].shown = at;
        }
    }
    return digits;
}();

// Without a call: every number here is far below 2^51.
double nearestWhole(double value) {
    constexpr double shift = 6755399441055744; // 1.5 x 2^52
    return (value + shift) - shift;
}

// More is written than is shown, and written over.
char* writeWhole(char* into, std::uint32_t whole) {
    const bool isLong = whole >= thousand;
    const Digits& first = beginnings[isLong ? whole / thousand : whole];
    std::memcpy(into, &first, sizeof first);
    into += first.shown;
    if (!isLong) return into;
    std::memcpy(into, &endings[whole % thousand], sizeof(Digits));
    return into + 3;
}

// Less the zeros at its end; of 0 nothing at all.
char* writeMillionths(char* into, std::uint32_t millionths) {
    const Digits &first = endings[millionths / thousand], &second = endings[millionths % thousand];
    *into = '.';
    std::memcpy(into + 1, &first, sizeof first);
    std::memcpy(into + 4, &second, sizeof second);
    const int shown = second.shown > 0 ? 3 + second.shown : first.shown;
    return into + (shown > 0 ? 1 + shown : 0);
}

} // namespace

char* writeShortest(char* into, double value) {
    const double size = std::abs(value);
    if (size >= smallest && size < largest) {
        const double scaled = nearestWhole(size * million);
        if (scaled / million == size) {
            const auto whole = static_cast<std::uint32_t>(size);
            const auto millionths = static_cast<std::uint64_t>(scaled) - std::uint64_t{whole} * million;
            *into = '-';
            into = writeWhole(value < 0 ? into + 1 : into, whole);
            return writeMillionths(into, static_cast<std::uint32_t>(millionths));
        }
    }
    return std::to_chars(into, into + longestNumber, value).ptr;
}

} // namespace korvel
