// The points of one column of the graph: a run of reaches, or one reach.
#pragma once

#include "global/GraphHandOver.h"
#include "results/ResultsDataSet.h"

#include <vector>

struct PlottedColumn {
    int number = 1;
    std::vector<int> points;       // indices of the points to plot, in order
    std::vector<double> distances; // km along the plotted run, of each
    std::vector<int> scalePoints;  // those that set the vertical scale
    double lowest = 0;             // ends of the distance axis, over all points
    double highest = 1;
};

PlottedColumn plottedColumn(const ResultsDataSet& results, const GraphHandOver& graph, int column);

// Turns distances into x; equal for all panels that show one column.
struct DistanceScale {
    double lowest = 0;
    double highest = 1;
    double left = 0;
    double right = 0;

    double perKm() const { return (right - left) / (highest - lowest); }
    double x(double distance) const { return left + (distance - lowest) * perKm(); }
};
