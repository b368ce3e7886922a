// The points of one column of the graph: a run of reaches, or one reach.
#pragma once

#include "drawing/Scale.h"
#include "global/GraphHandOver.h"
#include "results/ResultsDataSet.h"

#include <vector>

namespace korvel {

struct PlottedColumn {
    int number = 1;
    std::vector<int> points;       // indices of the points to plot, in order
    std::vector<double> distances; // km along the plotted run, of each
    std::vector<int>
        measured;      // those among them that are not interpolated; only where both kinds are plotted
    double lowest = 0; // ends of the distance axis, over all points
    double highest = 1;

    // Those that set the vertical scale: interpolated points only where there are no others.
    const std::vector<int>& scalePoints() const { return measured.empty() ? points : measured; }
};

PlottedColumn plottedColumn(const ResultsDataSet& results, const GraphHandOver& graph, int number);

// Turns distances into x; equal for all panels that show one column.
struct DistanceScale : Scale {
    double x(double distance) const { return place(distance); }
    double perKm() const { return perUnit(); }
};

} // namespace korvel
