// Chooses which labels are shown and on which row.
#pragma once

#include "drawing/LabelPlacing.h"

#include <vector>

namespace korvel {

using LabelPlaces = std::vector<std::optional<LabelPlace>>;

// Requests in the order of their anchors. `fixed`: the places of the required ones.
LabelPlaces searchLabelPlaces(const std::vector<LabelRequest>& requests, const LabelStrip& strip,
                              const LabelPlaces& fixed);

} // namespace korvel
