// Which of very many labels are worth a search.
#pragma once

#include "drawing/LabelPlacing.h"

#include <cstddef>
#include <vector>

namespace korvel {

// Indices, in order, of a few times as many requests as the rows could hold, spread over the strip: the
// required ones, and of those close together the most important and then the narrowest.
std::vector<std::size_t> worthSearching(const std::vector<LabelRequest>& requests, const LabelStrip& strip);

} // namespace korvel
