// What a set of shots amounts to.
#pragma once

#include "engine/MonteCarlo.h"

#include <array>

namespace korvel::engine {

struct Limits {
    double lower = 0;
    double upper = 0;
};

// Mean and the 90, 95 and 99 percentiles, with the limits between which each lies with 90 % confidence.
struct Summary {
    double mean = 0;
    double deviation = 0;
    Limits meanLimits;
    std::array<double, 3> percentiles{};
    std::array<Limits, 3> percentileLimits{};
};

double meanOf(const Shots& values);

// Not exceeded for this share of the time: interpolated between the shots of ranks around share x (count +
// 1).
double percentileOf(const Shots& sorted, double share);

// The limits are those of that many independent samples of a log-normal quality.
Summary summarise(Shots values, int samples);

// Mean, and in all three percentiles the flow that is exceeded for 95 % of the time.
Summary summariseFlow(Shots flows);

} // namespace korvel::engine
