// Values as a panel's scale counts them: on a logarithmic scale their logarithms, taken once, so that a frame
// has linear scales only.
#pragma once

#include "drawing/Scale.h"

#include <cmath>
#include <limits>

namespace korvel {

// What is not above 0 lies below everything else there.
inline double scaled(ScaleKind kind, double value) {
    if (kind == ScaleKind::linear) return value;
    return value > 0 ? std::log10(value) : -std::numeric_limits<double>::infinity();
}

inline double unscaled(ScaleKind kind, double scaled) {
    return kind == ScaleKind::linear ? scaled : std::pow(10, scaled);
}

// The scale of what scaled() returns.
inline Scale scaleOfScaled(const Scale& scale) {
    return {scaled(scale.kind, scale.bottom), scaled(scale.kind, scale.top), scale.from, scale.to};
}

} // namespace korvel
