// Texts of files as pictures and pages show them. UTF-8.
#pragma once

#include <string>
#include <string_view>

namespace korvel {

// One line: as shownUtf8(), with blanks for tabs and line ends, and without the other control characters,
// which would be shown as boxes.
std::string shownLine(std::string_view text);

// The same for a name that stands among words of ours: one from right to left stands between marks, so that
// it doesn't turn the words beside it.
std::string shownName(std::string_view text);

} // namespace korvel
