// What the Explorer's tables take, made anew and painted, of a window's runs.
#pragma once

#include "explore/ExploreState.h"

namespace korvel {

void measureExploreTables(const ExploreState& state, int rounds);

} // namespace korvel
