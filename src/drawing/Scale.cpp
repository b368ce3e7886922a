#include "drawing/Scale.h"

#include <cmath>
#include <limits>

namespace korvel {

double Scale::place(double value) const {
    if (kind == ScaleKind::linear) return from + (value - bottom) * perUnit();
    if (!(value > 0)) return std::numeric_limits<double>::quiet_NaN();
    return from + std::log(value / bottom) / std::log(top / bottom) * (to - from);
}

double Scale::value(double place) const {
    if (kind == ScaleKind::linear) return bottom + (place - from) / perUnit();
    return bottom * std::pow(top / bottom, (place - from) / (to - from));
}

} // namespace korvel
