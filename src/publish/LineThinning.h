// Lines of many points told with few.
#pragma once

#include "drawing/Drawing.h"

#include <cstddef>
#include <vector>

namespace korvel {

// Of the points some, so that the line looks the same: of stretches of equal count the first, the lowest, the
// highest and the last.
std::vector<DrawnPoint> thinned(const std::vector<DrawnPoint>& points, std::size_t most);
// Without those that lie on the line between others, to a tenth of a pixel.
std::vector<DrawnPoint> simplified(const std::vector<DrawnPoint>& points);

} // namespace korvel
