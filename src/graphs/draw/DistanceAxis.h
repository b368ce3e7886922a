// The distance axis: a ruler in km, with the names of the reaches standing on it.
#pragma once

#include "graphs/draw/GraphSheet.h"
#include "graphs/draw/PlottedColumn.h"

#include <string>
#include <vector>

namespace korvel {

// Round distances, at least `room` (graph units) apart; never closer than the tenth that is shown.
std::vector<double> distanceTicks(const DistanceScale& scale, double room);

// Line, ticks and numbers; the numbers hang under `y`. "km" stands left of them.
void drawDistanceAxis(const GraphSheet& sheet, const DistanceScale& scale, const std::vector<double>& ticks,
                      double y);

struct ReachSpan { // km along the plotted run
    double from = 0;
    double to = 0;
    std::string name;
};

// Each name in the middle of its reach, cut where the reach is too short for it, and lines between the
// reaches.
void drawReachNames(const GraphSheet& sheet, const DistanceScale& scale,
                    const std::vector<ReachSpan>& reaches, double y, double height);

} // namespace korvel
