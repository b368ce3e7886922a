// The checks of reaches and of how they run together.
#pragma once

#include "analysis/Check.h"

namespace korvel {

// Reaches without points, next reaches without a line, circles.
std::vector<CheckFinding> checkNetwork(const RunFile& run, std::size_t places);

// Reaches that begin with another flow or load than runs into them.
std::vector<CheckFinding> checkConfluences(const RunFile& run, std::size_t places);

} // namespace korvel
