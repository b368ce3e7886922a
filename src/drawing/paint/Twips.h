// 15 twips are one logical pixel.
#pragma once

#include <cmath>

namespace korvel {

inline constexpr double twipsPerPixel = 15;

inline int pixels(double twips) {
    return static_cast<int>(std::lround(twips / twipsPerPixel));
}

} // namespace korvel
