#include "reports/QuickNumber.h"

#include "reports/ReportNumber.h"

#include <algorithm>
#include <charconv>

namespace {

constexpr std::array<double, 8> powersOfTen{1, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7};
constexpr std::uint32_t textsOfEachKind = 10000;

// By the number of decimals. From four on, "0.", "0.0" ... stand before four digits without a point.
constexpr std::array<std::uint32_t, 8> codesFrom{
    0, textsOfEachKind, 2 * textsOfEachKind, 3 * textsOfEachKind, 2 << 16, 3 << 16, 4 << 16, 5 << 16};

// Between one power of two and the next there is at most one of the bounds between the formats.
struct BinarySize {
    double bound;      // 0 without one
    unsigned decimals; // from the bound on; one more below it
};
constexpr int leastExponent = -11; // what is smaller has seven decimals
constexpr int exponentBias = 1023;
constexpr int mantissaBits = 52;
constexpr double smallestNotScaled = 99999998; // scaled values have eight digits

constexpr double twoTo(int exponent) {
    return std::bit_cast<double>(static_cast<std::uint64_t>(exponent + exponentBias) << mantissaBits);
}

constexpr auto makeBinarySizes() {
    std::array<BinarySize, 38> sizes{};
    for (int i = 0; i < static_cast<int>(sizes.size()); ++i) {
        BinarySize& size = sizes[static_cast<std::size_t>(i)];
        for (const double bound : decimalBounds) {
            if (bound >= twoTo(leastExponent + i + 1))
                ++size.decimals;
            else if (bound > twoTo(leastExponent + i))
                size.bound = bound;
        }
    }
    return sizes;
}
constexpr auto binarySizes = makeBinarySizes();

unsigned decimalsOf(double value, std::uint64_t bits) {
    const int exponent = std::max(static_cast<int>(bits >> mantissaBits) - exponentBias, leastExponent);
    const BinarySize& size = binarySizes[static_cast<std::size_t>(exponent - leastExponent)];
    return size.decimals + static_cast<unsigned>(value < size.bound);
}

// Half away from zero, judged on the value's first 15 digits: within 3e-16 of a half it is one in that
// decimal form too. -1 where it is so near to a half that the 16th digit might matter.
int roundedNearHalf(double scaled) {
    const int whole = static_cast<int>(scaled);
    return std::fabs(scaled - whole - 0.5) <= 3e-16 * scaled ? whole + 1 : -1;
}

// A difference of the 16th digit moves no scaled value by as much as this.
constexpr double doubt = 1e-14 * smallestNotScaled;

int rounded(double scaled) {
    const int whole = static_cast<int>(scaled);
    const double fraction = scaled - whole;
    const int nearest = whole + static_cast<int>(fraction > 0.5);
    return std::fabs(fraction - 0.5) > doubt ? nearest : roundedNearHalf(scaled);
}

} // namespace

// Compared as bits, negative values, infinities and what is no number are above the limit, too.
NumberCode numberCode(double value) {
    const auto bits = std::bit_cast<std::uint64_t>(value);
    if (bits >= std::bit_cast<std::uint64_t>(smallestNotScaled)) return NumberCode::plainWay;
    const unsigned decimals = decimalsOf(value, bits);
    const int number = rounded(value * powersOfTen[decimals]);
    if (number < 0) return NumberCode::plainWay;
    const auto digits = static_cast<std::uint32_t>(number);
    if (digits >= textsOfEachKind)
        return NumberCode{static_cast<std::uint32_t>(NumberCode::wholeNumber) + digits};
    return NumberCode{codesFrom[decimals] + digits};
}

const NumberTexts& NumberTexts::all() {
    static const NumberTexts texts;
    return texts;
}

NumberTexts::NumberTexts() {
    for (unsigned decimals = 0; decimals < 4; ++decimals)
        for (unsigned number = 0; number < textsOfEachKind; ++number)
            m_texts.push_back(textOf(number, decimals));
}

// Without a point all four digits are there, with one no zero stands first, but before the point.
NumberTexts::Text NumberTexts::textOf(unsigned number, unsigned decimals) {
    std::string text = std::to_string(textsOfEachKind + number).substr(1);
    if (decimals > 0) text.insert(4 - decimals, ".");
    if (decimals > 0 && decimals < 3 && text.front() == '0') text.erase(0, 1);
    text += ',';
    Text result{};
    std::ranges::copy(text, result.characters.begin());
    result.length = static_cast<std::uint8_t>(text.size());
    return result;
}

char* NumberTexts::writeWhole(char* to, std::uint32_t bits) {
    const std::uint32_t number = bits - static_cast<std::uint32_t>(NumberCode::wholeNumber);
    char* const end = std::to_chars(to, to + room, number).ptr;
    *end = ',';
    return end + 1;
}

std::string quickNumber(double value) {
    const NumberCode code = numberCode(value);
    if (code == NumberCode::plainWay) return reportNumber(value);
    std::array<char, NumberTexts::room> text;
    const char* const end = NumberTexts::all().write(text.data(), code);
    return {text.data(), static_cast<std::size_t>(end - text.data()) - 1};
}
