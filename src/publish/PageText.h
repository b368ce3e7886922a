// Texts of results files as a page holds them: never markup, never script.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace korvel {

// As shown, in UTF-8 and on one line: control characters are gone, tabs and line ends are blanks. Of a very
// long text its beginning and an ellipsis.
inline constexpr std::size_t longestPageText = 400; // characters as shown
std::string pageText(std::string_view asInFiles, std::size_t longest = longestPageText);

// For the text of an element and for attributes in double quotes. UTF-8.
std::string htmlOf(std::string_view utf8);

// A JSON text in quotes that neither ends the element that it stands in nor begins another. UTF-8.
std::string jsonOf(std::string_view utf8);

} // namespace korvel
