// The four result display options: nested levels of detail, shown by check marks in the Options menu.
#pragma once

#include "platform/Platform.h"

#include <array>

namespace korvel {

// Marks of "Display full results", "Suppress interpolated points", "Suppress features", "Suppress reaches".
using DisplayLevelMarks = std::array<bool, 4>;

DisplayLevelMarks displayLevelMarks(int level);

// A display option item was chosen. Kept so: the settings are saved, but without the level, which lives in
// the check marks alone until the program ends.
void ChooseDisplayLevel(Platform& platform, int level);

} // namespace korvel
