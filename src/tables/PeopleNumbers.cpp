#include "tables/PeopleNumbers.h"

#include "basic/Numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace korvel {

namespace {

constexpr int figures = 4;
constexpr int mostPlainPower = 7, leastPlainPower = -4; // of ten: from the first on, and below the other

std::string shown(double value, std::chars_format format, int precision) {
    std::array<char, 400> digits;
    const auto end =
        std::to_chars(digits.data(), digits.data() + digits.size(), value, format, precision).ptr;
    std::string text(digits.data(), end);
    const bool isZero = text.find_first_not_of("-0.") == std::string::npos;
    return isZero && text[0] == '-' ? text.substr(1) : text;
}

} // namespace

std::string shownNumber(double value) {
    const double size = std::abs(value);
    if (!std::isfinite(size)) return "-"; // beyond a double's range
    if (size == 0) return "0";
    if (size >= 1e9 || size < 1e-5) return shown(value, std::chars_format::scientific, 3);
    const int magnitude = static_cast<int>(std::floor(std::log10(size)));
    return shownDecimals(value, magnitude >= 3 ? 0 : 3 - magnitude);
}

std::string shownNumber(const std::optional<double>& value) {
    return value ? shownNumber(*value) : "-";
}

std::string shownFigures(double value) {
    if (!std::isfinite(value)) return "-";
    if (value == 0) return "0";
    const std::string rounded = shown(value, std::chars_format::scientific, figures - 1);
    const std::size_t exponent = rounded.find('e');
    const int power = std::stoi(rounded.substr(exponent + 1));
    if (power >= mostPlainPower || power < leastPlainPower)
        return rounded.substr(0, exponent) + "E" + std::to_string(power);
    return shownDecimals(value, std::max(0, figures - 1 - power));
}

std::string shownKm(double distance) {
    return shortestNumber(distance) + " km";
}

std::string shownDecimals(double value, int decimals) {
    return shown(value, std::chars_format::fixed, decimals);
}

std::string shownPercent(const std::optional<double>& value) {
    return value ? shownDecimals(*value, 1) : "-";
}

std::string counted(int count, const std::string& one, const std::string& many) {
    return std::to_string(count) + " " + (count == 1 ? one : many);
}

} // namespace korvel
