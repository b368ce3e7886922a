// The axes of panels: round ends about what is shown, and numbers that read well whatever their size.
#pragma once

#include "drawing/Axis.h"
#include "panels/RangePyramid.h"

#include <optional>

namespace korvel {

enum class AxisBegin { atZero, atLowest };

struct AxisRoom {
    double from = 0; // place of the bottom
    double to = 0;
    double tick = 0; // that a tick needs
};

// Without values from 0 to 1 (logarithmic: 1 to 10).
Axis valueAxis(const std::optional<NumberRange>& values, ScaleKind kind, AxisBegin begin,
               const AxisRoom& room);

// Ticks at least `room` apart on a scale that stays as it is.
Axis axisOf(const Scale& scale, double room);

// Between given distances; numbers stand `tick` apart.
Axis kmAxis(double from, double to, const AxisRoom& room);

} // namespace korvel
