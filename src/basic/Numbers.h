// Numbers as the run-time reads and prints them. Nothing here depends on the locale.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace korvel {

// Free print format: one blank or "-", the digits, one trailing blank: " 3 ".
std::string freePrint(long long value);
// The same without the trailing blank: " 3".
std::string withLeadingBlank(long long value);

// A text that is wholly a decimal number, with a sign and an exponent (E, e, D or d) where they stand;
// nothing for any other. Too small for a double it is 0, too large infinite.
std::optional<double> decimalNumber(std::string_view text);

// The longest leading decimal number of the text, blanks before it skipped; 0 where there is none.
// Exponents with E, e, D or d. Error 6 beyond a double's range; a number too small for it is 0.
double leadingNumber(std::string_view text);

// A pattern such as "###0.000" or "##0.0": digits after the point are fixed, "#" prints nothing for a missing
// digit. Rounded half away from zero on the value's decimal form of 15 significant digits; no minus sign on a
// zero. Error 6 for an infinite value and for what is no number.
std::string formatPattern(double value, std::string_view pattern);

// The shortest decimal text that reads back as exactly this number ("0.1", "1e+23").
std::string shortestNumber(double value);

// Round half to even, as the run-time converts to whole numbers; 6 beyond 32 bits.
int roundHalfToEven(double value);

} // namespace korvel
