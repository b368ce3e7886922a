#include "reports/ReportNumber.h"

#include "basic/Numbers.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <optional>

namespace {

constexpr std::array<const char*, 8> formats{"########0", "######0.0", "#####0.00", "####0.000",
                                             "###0.0000", "##0.00000", "#0.000000", "0.0000000"};
constexpr std::array<double, 8> powersOfTen{1, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7};

// Each bound passed adds a decimal, because the bounds fall.
unsigned decimalsFor(double value) {
    return static_cast<unsigned>(value < 999.9) + static_cast<unsigned>(value < 99.9) +
           static_cast<unsigned>(value < 9.9) + static_cast<unsigned>(value < 0.9) +
           static_cast<unsigned>(value < 0.09) + static_cast<unsigned>(value < 0.009) +
           static_cast<unsigned>(value < 0.0009);
}

// The texts "0000" to "9999" in a row, then what stands before small numbers: eight characters can be read
// from any of these places.
constexpr std::size_t zerosAt = 40000;
constexpr auto makeDigitTexts() {
    std::array<char, zerosAt + 8> texts{};
    for (std::size_t i = 0; i < 10000; ++i) {
        texts[4 * i] = static_cast<char>('0' + i / 1000);
        texts[4 * i + 1] = static_cast<char>('0' + i / 100 % 10);
        texts[4 * i + 2] = static_cast<char>('0' + i / 10 % 10);
        texts[4 * i + 3] = static_cast<char>('0' + i % 10);
    }
    for (std::size_t i = 0; i < 8; ++i)
        texts[zerosAt + i] = i == 1 ? '.' : '0';
    return texts;
}
constexpr auto digitTexts = makeDigitTexts();

const char* fourDigits(std::uint32_t number) {
    return digitTexts.data() + std::size_t{4} * number;
}

constexpr double largestScaled = 99999999; // eight digits

// A scaled value rounded half away from zero, judged on its first 15 digits: within 3e-16 of a half it is
// one in that decimal form too. Nothing where it is near enough to a half that the 16th digit might matter.
std::optional<std::uint32_t> roundedScaled(double scaled) {
    const auto whole = static_cast<std::uint32_t>(scaled);
    const double beyondHalf = scaled - whole - 0.5;
    const double distance = std::fabs(beyondHalf);
    const bool isHalf = distance <= 3e-16 * scaled;
    if (static_cast<int>(distance < 1e-14 * largestScaled) & static_cast<int>(!isHalf)) return std::nullopt;
    return whole + (static_cast<std::uint32_t>(isHalf) | static_cast<std::uint32_t>(beyondHalf > 0));
}

char* writeLargeWhole(char* to, std::uint32_t number) {
    const std::uint32_t high = number / 10000;
    const unsigned skipped = static_cast<unsigned>(high < 1000) + static_cast<unsigned>(high < 100) +
                             static_cast<unsigned>(high < 10);
    std::memcpy(to, fourDigits(high) + skipped, 4);
    to += 4 - skipped;
    std::memcpy(to, fourDigits(number % 10000), 4);
    return to + 4;
}

// How the four digits of a scaled value stand, by the number of decimals: "1234", "123.4" ... "1.234", of
// which the first digit may be missing, then "0.1234" ... "0.0001234".
struct Layout {
    unsigned digitsFirst; // 1, or 0 where zeros come first
    unsigned point;       // where the point stands
    unsigned tail;        // where the digits stand that are written after it
    unsigned behind;      // the first of them
    unsigned end;
};
constexpr std::array<Layout, 8> layouts{{{1, 4, 0, 0, 4},
                                         {1, 3, 4, 3, 5},
                                         {1, 2, 3, 2, 5},
                                         {1, 1, 2, 1, 5},
                                         {0, 1, 2, 0, 6},
                                         {0, 1, 3, 0, 7},
                                         {0, 1, 4, 0, 8},
                                         {0, 1, 5, 0, 9}}};

// Every step the same for every value, because values of all sizes stand in a row: no branch could be
// foreseen.
char* writeFourDigits(char* to, std::uint32_t number, unsigned decimals) {
    const Layout& layout = layouts[decimals];
    const unsigned skipped = static_cast<unsigned>(number < 1000) & static_cast<unsigned>(decimals < 3);
    const std::size_t digitsAt = std::size_t{4} * number;
    const std::size_t head = zerosAt - layout.digitsFirst * (zerosAt - digitsAt - skipped);
    std::memcpy(to, digitTexts.data() + head, 8);
    to -= skipped;
    to[layout.point] = '.';
    std::memcpy(to + layout.tail, digitTexts.data() + digitsAt + layout.behind, 4);
    return to + layout.end;
}

} // namespace

const char* reportFormat(double value) {
    return formats[decimalsFor(value)];
}

std::string reportNumber(double value) {
    std::array<char, reportNumberRoom> text;
    const char* const end = writeReportNumber(text.data(), value);
    if (!end) return formatPattern(value, reportFormat(value));
    return {text.data(), static_cast<std::size_t>(end - text.data())};
}

char* writeReportNumber(char* to, double value) {
    const unsigned decimals = decimalsFor(value);
    const double scaled = value * powersOfTen[decimals];
    if (!(scaled >= 0 && scaled < largestScaled)) return nullptr;
    const auto rounded = roundedScaled(scaled);
    if (!rounded) return nullptr;
    if (*rounded >= 10000) return writeLargeWhole(to, *rounded);
    return writeFourDigits(to, *rounded, decimals);
}
