#include "panels/RunStyle.h"

#include <array>

namespace korvel {

namespace {

// Okabe and Ito's, but for the yellow, which is hardly seen on white. The last is black or white, as the
// ground is.
constexpr std::array<Rgb, 6> runColours{{
    {0x00, 0x72, 0xB2},
    {0xD5, 0x5E, 0x00},
    {0x00, 0x9E, 0x73},
    {0xCC, 0x79, 0xA7},
    {0xE6, 0x9F, 0x00},
    {0x56, 0xB4, 0xE9},
}};
constexpr Rgb onLight{0x1A, 0x1A, 0x1A};
constexpr Rgb onDark{0xF0, 0xF0, 0xF0};

} // namespace

RunStyle runStyle(std::size_t run, Theme theme) {
    constexpr std::size_t different = runColours.size() + 1;
    constexpr std::array dashes{Dash::solid, Dash::dash, Dash::dashDot, Dash::dot};
    const std::size_t colour = run % different;
    const Dash dash = dashes[run / different % dashes.size()];
    if (colour < runColours.size()) return {runColours[colour], dash};
    return {theme == Theme::dark ? onDark : onLight, dash};
}

} // namespace korvel
