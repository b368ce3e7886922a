// Where on a reach or a way a point stands: points of two runs with equal spots are the same place.
#pragma once

#include <functional>
#include <string_view>

namespace korvel {

struct Spot {
    double distance = 0; // km
    std::string_view side;
    bool operator==(const Spot&) const = default;
};

struct SpotHash {
    std::size_t operator()(const Spot& spot) const {
        const double distance = spot.distance == 0 ? 0 : spot.distance; // 0 and -0 are equal
        return std::hash<double>()(distance) * 31 + std::hash<std::string_view>()(spot.side);
    }
};

} // namespace korvel
