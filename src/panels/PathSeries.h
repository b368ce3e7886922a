// One series of one run along a way.
#pragma once

#include "panels/RangePyramid.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace korvel {

// Values along a way in pieces: a piece goes from one break to the next. They are as the scale counts them,
// see scaled().
struct PathValues {
    std::shared_ptr<const std::vector<double>> km;
    std::vector<double> values;
    std::vector<std::size_t> breaks; // where each piece begins
    RangePyramid pyramid;
    bool ascending = true; // the distances never go back

    std::size_t size() const { return values.size(); }
};

// Upper and lower edge have the same distances and breaks.
struct PathBand {
    PathValues above;
    PathValues below;
};

// Where a change is a clear one: around each such point as far as halfway to its neighbours.
struct ClearStretch {
    double from = 0; // km
    double to = 0;
    bool operator==(const ClearStretch&) const = default;
};

struct PathSeries {
    PathValues curve;
    PathBand limits;                 // empty where there are none or they are not shown
    std::vector<ClearStretch> clear; // of changes, in order
    std::vector<double> leftOut;     // km of the values that have no place on a logarithmic scale, in order
};

} // namespace korvel
