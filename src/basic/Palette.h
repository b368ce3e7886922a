// The classic palette of sixteen colours, 0 to 15.
#pragma once

#include <cstdint>

namespace korvel {

struct Rgb {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    bool operator==(const Rgb&) const = default;
};

// Error 5 outside 0..15.
Rgb paletteColour(int number);

namespace colours {
inline constexpr int black = 0, blue = 1, green = 2, cyan = 3, red = 4, magenta = 5, brown = 6, lightGrey = 7,
                     darkGrey = 8, lightBlue = 9, lightGreen = 10, lightCyan = 11, lightRed = 12,
                     lightMagenta = 13, yellow = 14, white = 15;
} // namespace colours

} // namespace korvel
