// The plotting points of a catchment in river order. They follow from reaches, features and spacing alone, so
// that two data files of one river have the same points whatever their flows and qualities.
#pragma once

#include "engine/Catchment.h"

#include <cstddef>
#include <vector>

namespace korvel::engine {

enum class Side { none, upstream, downstream };

struct Point {
    const Reach* reach = nullptr;
    const Feature* feature = nullptr; // null at boundaries and interpolated points
    double distance = 0;              // km from the head of the reach
    std::string label;                // without the side
    Side side = Side::none;
    FeatureType type = FeatureType::reachBoundary;
};

// The points refer to the catchment's reaches and features.
std::vector<Point> pointsOfReach(const Catchment& catchment, const Reach& reach);

} // namespace korvel::engine
