// The ticks of an axis.
#pragma once

#include "drawing/Scale.h"

#include <string>
#include <vector>

namespace korvel {

struct AxisTick {
    double value = 0;
    double place = 0;
    std::string text;
    bool operator==(const AxisTick&) const = default;
};

struct Axis {
    Scale scale;
    std::vector<AxisTick> ticks;
};

// The smallest of 1, 2, 5, 10, 20 ... times `least` whose ticks stand at least `room` apart on a linear
// scale.
double roundStep(const Scale& scale, double room, double least);

// Multiples of the step within the scale, rounding errors allowed for.
std::vector<double> multiplesOf(double step, const Scale& scale);

// Values for ticks at least `room` apart: round ones on a linear scale, whatever its bottom; on a logarithmic
// one powers of ten, and with room for them 2 and 5 times these, too.
std::vector<double> tickValues(const Scale& scale, double room);

} // namespace korvel
