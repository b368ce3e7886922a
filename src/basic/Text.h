// Text is a string of 8-bit characters, as the files hold it. Upper and lower case mean a-z alone; trimming
// drops blanks (code 32) only.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace korvel {

std::string trim(std::string_view text);
std::string trimLeft(std::string_view text);
std::string trimRight(std::string_view text);
std::string upperCase(std::string_view text);
std::string lowerCase(std::string_view text);
bool beginsWith(std::string_view text, std::string_view start);
bool contains(std::string_view text, std::string_view part);
// The last `count` characters, or all of a shorter text.
std::string last(std::string_view text, std::size_t count);
// The text less its last `count` characters; "" for a shorter one.
std::string withoutLast(std::string_view text, std::size_t count);

// "a, b or c"
std::string inWords(const std::vector<std::string>& parts, std::string_view conjunction);

// How a text is shown: valid UTF-8 as UTF-8, anything else read as Windows-1252. Fixed columns cut sequences
// off: one that is cut off at the end is dropped where another, whole one of two or more bytes tells that the
// text is UTF-8. The result is always valid UTF-8.
std::string shownUtf8(std::string_view text);

// Of a code point below 10000.
void appendUtf8(std::string& text, unsigned codePoint);

// The first `count` characters of a UTF-8 text, counted as shown.
std::string firstShown(std::string_view utf8, std::size_t count);
std::size_t shownLength(std::string_view utf8);

} // namespace korvel
