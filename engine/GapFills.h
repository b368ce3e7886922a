// What gap filling adds to the river between two places of a reach, kept in a text file beside the data file
// so that later runs can use it.
#pragma once

#include "engine/Catchment.h"
#include "engine/DataRow.h"

#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace korvel::engine {

struct Stretch {
    int reach = 0;
    double from = 0, to = 0; // km from the head of the reach
    double length() const { return to - from; }
    bool holds(double distance) const { return distance > from && distance < to; }
};

// Flow gained over the stretch, evenly, Ml/day; below 0 it is lost.
struct FlowFill {
    Stretch stretch;
    double mean = 0;
    double low = 0;
};

// Concentration grows by this rate along the stretch, 1/km; below 0 it falls.
struct QualityFill {
    Stretch stretch;
    int determinand = 0;
    double rate = 0;
};

struct GapFills {
    std::vector<FlowFill> flows;
    std::vector<QualityFill> qualities;
};

std::string gapFillsText(const GapFills& fills, const std::string& title);
// A pure function of any bytes; a fill that does not fit the catchment is an error.
std::variant<GapFills, DataError> parseGapFills(std::string_view text, const Catchment& catchment);

} // namespace korvel::engine
