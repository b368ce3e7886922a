// Numbers as the engine's files show them; independent of the locale.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace korvel::engine {

// So many digits after the point.
std::string fixed(double value, int decimals);
// About six significant digits, never an exponent; 0 is "0". Values below 1e-9 are 0.
std::string significant(double value);
// About four significant digits, for tables.
std::string tableNumber(double value);

// Padded with blanks to a width; longer text is cut by `padded` and kept by `rightAligned`.
std::string padded(std::string_view text, std::size_t width);
std::string rightAligned(std::string_view text, std::size_t width);

} // namespace korvel::engine
