// Texts as they are shown, shortened with an ellipsis where they must be.
#pragma once

#include "drawing/Drawing.h"

#include <string>

namespace korvel {

// Which part of a text goes first: names of files differ most in their ends.
enum class Shorten { end, middle };

// UTF-8; as it is where it has no more letters than this, the ellipsis counted.
std::string shortenedTo(const std::string& utf8, std::size_t letters, Shorten shorten);

// UTF-8; "" where not even one letter fits.
std::string fittedText(const std::string& utf8, double width, const Font& font, const TextMetrics& metrics,
                       Shorten shorten = Shorten::end);

// `at`: the left end, the middle or the right end of the text's top edge.
DrawnText textAt(DrawnPoint at, TextAlign align, const std::string& text, const Font& font, Rgb colour,
                 const TextMetrics& metrics);

} // namespace korvel
