// How numbers look in a workbook: about four figures, without exponents where that can be.
#pragma once

#include <array>
#include <cstddef>

namespace korvel {

struct NumberLook {
    double from = 0;            // of numbers as large as that
    const char* format = "";    // in the workbook's words
    double charactersAfter = 0; // of the point, with it
    bool hasExponent = false;
};

inline constexpr std::size_t generalLook = 0; // as few digits as needed: whole numbers, places

inline constexpr std::array<NumberLook, 12> numberLooks = {{{0, "General", 0},
                                                            {1e9, "0.000E+00", 8, true},
                                                            {1000, "#,##0", 0},
                                                            {100, "0.0", 2},
                                                            {10, "0.00", 3},
                                                            {1, "0.000", 4},
                                                            {0.1, "0.0000", 5},
                                                            {0.01, "0.00000", 6},
                                                            {0.001, "0.000000", 7},
                                                            {1e-4, "0.0000000", 8},
                                                            {1e-5, "0.00000000", 9},
                                                            {0, "0.000E+00", 8, true}}};

// Index of the look of a number by its size.
std::size_t numberLook(double value);

// How wide it is shown, in characters.
double shownWidth(double value, std::size_t look);

} // namespace korvel
