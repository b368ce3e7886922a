#include "basic/ExactDecimal.h"

#include "basic/FieldCharacters.h"

namespace korvel {

namespace {

constexpr std::ptrdiff_t countedDigits = 18; // as many never overflow 64 bits

// Appends the digits from `at` on to a number. One by one, since the lengths of neighbours mostly agree: the
// next number's reading then begins long before this one's end is known for certain.
const char* readDigits(const char* at, std::uint64_t& number) {
    std::uint64_t value = number;
    for (; isDigit(*at); ++at)
        value = value * 10 + static_cast<std::uint64_t>(*at - '0');
    number = value;
    return at;
}

// The exponent's digits after its mark; where there are none or too many, the pointer that came in.
const char* readExponent(const char* mark, int& power) {
    const char* at = mark + 1;
    const bool negative = *at == '-';
    if (negative || *at == '+') ++at;
    std::uint64_t digits = 0;
    const char* end = readDigits(at, digits);
    if (end == at || end - at > 4) return mark;
    power += negative ? -static_cast<int>(digits) : static_cast<int>(digits);
    return end;
}

} // namespace

const char* readExactDecimal(const char* at, double& value) {
    const bool negative = *at == '-';
    if (negative || *at == '+') ++at;
    std::uint64_t digits = 0;
    const char* first = at;
    at = readDigits(at, digits);
    std::ptrdiff_t count = at - first;
    int power = 0;
    if (*at == '.') {
        const char* fraction = at + 1;
        at = readDigits(fraction, digits);
        power = -static_cast<int>(at - fraction);
        count -= power;
    }
    if (count == 0 || count > countedDigits || digits > exactInteger) return nullptr;
    if (isExponentMark(*at)) at = readExponent(at, power);
    if (power < -exactPower || power > exactPower || !endsNumber(*at)) return nullptr;
    const double whole = static_cast<double>(digits);
    const double size = power < 0 ? whole / powersOfTen[static_cast<std::size_t>(-power)]
                                  : whole * powersOfTen[static_cast<std::size_t>(power)];
    value = negative ? -size : size;
    return at;
}

} // namespace korvel
