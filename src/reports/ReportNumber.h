// How a report shows a number: with about four digits, in one of eight formats picked by its value.
#pragma once

#include <cstddef>
#include <string>

// The format for a value, "########0" down to "0.0000000". Kept so: the value is compared with its sign, so
// that every negative one has seven decimals, and the bounds are 999.9, 99.9 ..., no powers of ten.
const char* reportFormat(double value);

std::string reportNumber(double value);

// Room that writeReportNumber needs.
inline constexpr std::size_t reportNumberRoom = 16;

// The same written at `to`, fast; what follows it in the room is overwritten too. Returns its end, or null
// where the value isn't one of the usual kind and needs reportNumber.
char* writeReportNumber(char* to, double value);
