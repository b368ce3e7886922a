// The checks of points and their values.
#pragma once

#include "analysis/Check.h"

namespace korvel {

// Percentiles out of order, means above the 99 percentile, limits beside their value, values below 0.
std::vector<CheckFinding> checkValues(const RunFile& run, std::size_t places);

// Distances that go back, and beyond the reach's end.
std::vector<CheckFinding> checkDistances(const RunFile& run, std::size_t places);

// Samples without a target, targets without samples.
std::vector<CheckFinding> checkTargets(const RunFile& run, std::size_t places);

// One label at two places.
std::vector<CheckFinding> checkLabels(const RunFile& run, std::size_t places);

} // namespace korvel
