// The distance axis: a ruler in km, with the names of the reaches standing on it.
#pragma once

#include "drawing/Axis.h"
#include "graphs/draw/GraphSheet.h"
#include "graphs/draw/PlottedColumn.h"

#include <string>
#include <vector>

namespace korvel {

// Round distances, at least `room` (graph units) apart; never closer than the tenth that is shown.
Axis distanceAxis(const DistanceScale& scale, double room);

// Line, ticks and numbers; the numbers hang under `y`. "km" stands left of them.
void paintDistanceAxis(const GraphSheet& sheet, const Axis& axis, double y);

struct ReachSpan { // km along the plotted run
    double from = 0;
    double to = 0;
    std::string name;
};

// Where the names of reaches stand, on the axis.
struct ReachStrip { // graph coordinates
    double bottom = 0;
    double height = 0;
};

// Each name in the middle of its reach, cut where the reach is too short for it, and lines between the
// reaches.
void paintReachNames(const GraphSheet& sheet, const DistanceScale& scale,
                     const std::vector<ReachSpan>& reaches, const ReachStrip& strip);

} // namespace korvel
