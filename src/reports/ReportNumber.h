// How a report shows a number: with about four digits, in one of eight formats picked by its value. This is
// the plain way; QuickNumber finds the same texts in fewer steps.
#pragma once

#include <array>
#include <string>

namespace korvel {

// A value below the k-th bound (counted from 0) has more than k decimals. Kept so: the value is compared with
// its sign, so that every negative one has seven decimals, and the bounds are no powers of ten.
inline constexpr std::array<double, 7> decimalBounds{999.9, 99.9, 9.9, 0.9, 0.09, 0.009, 0.0009};

// The format for a value, "########0" down to "0.0000000".
const char* reportFormat(double value);

std::string reportNumber(double value);

} // namespace korvel
