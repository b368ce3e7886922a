// Twips as pixels.
#pragma once

#include "drawing/Units.h"

#include <cmath>

namespace korvel {

inline int pixels(double twips) {
    return static_cast<int>(std::lround(twips / twipsPerPixel));
}

} // namespace korvel
