// The last hand on labels whose rows and order were found.
#pragma once

#include "drawing/LabelSearch.h"

namespace korvel {

// Labels go to better places where they have room, and what still finds room is added.
void settleLabels(const std::vector<LabelRequest>& requests, const LabelStrip& strip, LabelPlaces& places);

} // namespace korvel
