#include "graphs/draw/PlottedColumn.h"

#include <algorithm>

namespace korvel {

namespace {

bool plotsInterpolated(const GraphHandOver& graph) {
    return graph.plotInterpolatedPoints && graph.displayLevel < 1;
}

} // namespace

PlottedColumn plottedColumn(const ResultsDataSet& results, const GraphHandOver& graph, int number) {
    PlottedColumn column{.number = number, .points = {}, .distances = {}, .measured = {}};
    const bool interpolated = plotsInterpolated(graph);
    const auto& points = graph.graphPoints[number];
    const auto& distances = graph.graphDistances[number];
    const int count = graph.graphPointCounts[number];
    column.points.reserve(static_cast<std::size_t>(std::max(count, 0)));
    column.distances.reserve(column.points.capacity());
    double lowest = 0, highest = 0;
    for (int j = 1; j <= count; ++j) {
        const int point = points[j];
        const double distance = distances[j];
        lowest = std::min(lowest, distance);
        highest = std::max(highest, distance);
        const bool measured = results.pointFeatureType[point] != InterpolatedPointType;
        if (!measured && !interpolated) continue;
        column.points.push_back(point);
        column.distances.push_back(distance);
        if (measured && interpolated) column.measured.push_back(point);
    }
    column.lowest = lowest;
    column.highest = highest > lowest ? highest : lowest + 1;
    return column;
}

} // namespace korvel
