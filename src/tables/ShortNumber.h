// Numbers in their shortest exact form, quickly: what results files hold are decimals of a few digits, which
// are found without a general formatter.
#pragma once

#include <cstddef>

namespace korvel {

inline constexpr std::size_t longestNumber = 32; // bytes

// Writes the number as shortestNumber() gives it and returns the end. There is room for longestNumber.
char* writeShortest(char* into, double value);

} // namespace korvel
