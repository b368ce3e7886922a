// Which points of two runs are the same place.
#pragma once

#include "study/RunFile.h"

#include <vector>

namespace korvel {

// By point index of one run the other's point, 0 for none.
struct PointMatch {
    std::vector<int> ofBase;
    std::vector<int> ofRun;
};

// Points match where reach, distance and side are equal; of several such in one run the first matches the
// first, the second the second. Points of reaches without a line match nothing.
PointMatch matchPoints(const RunFile& base, const RunFile& run);

} // namespace korvel
