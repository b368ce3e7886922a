// Text as a cell of a workbook holds it.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace korvel {

inline constexpr std::size_t longestSheetText = 32767; // characters of a cell

struct SheetText {
    std::string text;   // UTF-8
    bool isCut = false; // it was too long, and ends with an ellipsis
};

// The text as in the files. What looks like the workbook's own way to write a character by its code
// ("_x0041_") stays what it is; so does the character 0.
SheetText sheetText(std::string_view text);

} // namespace korvel
