// Lines that go on in each other, as one line each.
#pragma once

#include <QLine>

#include <vector>

namespace korvel {

// The vertical and the horizontal lines that touch or overlap on one another's way become one; slanting ones
// stay. Drawn with one solid pen, the picture is the same.
std::vector<QLine> mergedLines(const std::vector<QLine>& lines);

} // namespace korvel
