// A results file as large as the program takes: 59999 points with ten determinands, made up and always the
// same.
#pragma once

#include <filesystem>

namespace korvel {

inline constexpr int largePoints = 59999;
inline constexpr int largeDeterminands = 10;
inline constexpr int largeValuesPerPoint = 8 + 34 * largeDeterminands;

enum class ResultsForm {
    fixedWidth, // every number in 12 columns after a comma, CR LF
    blanks // one blank between numbers as short as they are, captions of varying length, LF, CR and CR LF
};

// Another draw has other values at the same points. Of several reaches each has as many of them; they run
// into each other as the twigs of a tree do.
void writeLargeResultsFile(const std::filesystem::path& path, ResultsForm form, int points = largePoints,
                           unsigned draw = 1, int reaches = 1);

} // namespace korvel
