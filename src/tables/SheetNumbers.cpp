#include "tables/SheetNumbers.h"

#include "tables/ShortNumber.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace korvel {

namespace {

// Digits before the point, with their separators.
double charactersBefore(double size) {
    constexpr double digitsOfGroup = 3;
    const double digits = size < 10 ? 1 : std::floor(std::log10(size)) + 1;
    return digits + std::floor((digits - 1) / digitsOfGroup);
}

double generalWidth(double value) {
    constexpr double most = 12; // more digits are rounded to the width of the cell
    std::array<char, longestNumber> text;
    return std::min(static_cast<double>(writeShortest(text.data(), value) - text.data()), most);
}

} // namespace

std::size_t numberLook(double value) {
    const double size = std::abs(value);
    if (size == 0) return generalLook;
    const auto fits = [&](const NumberLook& look) { return size >= look.from; };
    return static_cast<std::size_t>(std::find_if(numberLooks.begin() + 1, numberLooks.end(), fits) -
                                    numberLooks.begin());
}

double shownWidth(double value, std::size_t look) {
    if (look == generalLook) return generalWidth(value);
    const double sign = value < 0 ? 1 : 0;
    const double before = numberLooks[look].hasExponent ? 1 : charactersBefore(std::abs(value));
    return sign + before + numberLooks[look].charactersAfter;
}

} // namespace korvel
