#include "graphs/GraphSample.h"

namespace korvel {

void GraphSample::setDeterminands(const std::vector<std::string>& names) {
    const int count = static_cast<int>(names.size());
    results.determinandCount = count;
    results.seriesCount = 2 * count;
    results.seriesNames[0] = "Flow";
    for (int d = 1; d <= count; ++d) {
        const std::string& name = names[static_cast<std::size_t>(d - 1)];
        results.seriesNames[d] = name + " (Conc)";
        results.seriesNames[count + d] = name + " (Load)";
        results.determinandTypes[d] = 1;
        results.determinandStatistics[d] = 1;
    }
}

void GraphSample::addReach(int number, const std::string& name, double length) {
    results.reachNames.set(number, name);
    results.reachLengths.set(number, length);
    results.reachOrder.push_back(number);
    ++results.reachCount;
}

int GraphSample::addPoint(const SamplePoint& point) {
    const int index = ++results.pointCount;
    results.pointReach.set(index, point.reach);
    results.pointDistance.set(index, point.distance);
    results.pointLabel.set(index, point.label);
    results.pointFeatureType.set(index, point.type);
    return index;
}

void GraphSample::set(ValueField field, int series, const std::vector<double>& values, int slot, int level) {
    const std::span<double> column = results.values[slot].column(field, series, level);
    for (std::size_t k = 0; k < values.size(); ++k)
        column[k + 1] = values[k];
    results.values[slot].markWritten();
    results.slotLoaded[slot] = true;
}

void GraphSample::set(ValueField field, int series, double everywhere, int slot, int level) {
    set(field, series, std::vector<double>(static_cast<std::size_t>(results.pointCount), everywhere), slot,
        level);
}

void GraphSample::unload(int slot) {
    results.values[slot].reset();
    results.slotLoaded[slot] = false;
}

double GraphSample::takePoints(int reach, int column, double offset) {
    int& count = graph.graphPointCounts[column];
    for (int i = 1; i <= results.pointCount; ++i) {
        if (results.pointReach[i] != reach) continue;
        ++count;
        graph.graphPoints[column].set(count, i);
        graph.graphDistances[column].set(count, results.pointDistance[i] + offset);
    }
    return offset + results.reachLengths[reach];
}

void GraphSample::plotSeries(const std::vector<int>& reaches, const std::vector<int>& series) {
    graph.displayMode1 = true;
    graph.selectedDeterminands = series;
    graph.graphReaches = reaches;
    graph.graphReachCount = static_cast<int>(reaches.size());
    graph.graphPointCounts.fill(0);
    double offset = 0;
    for (const int reach : reaches)
        offset = takePoints(reach, 1, offset);
}

void GraphSample::plotReaches(const std::vector<int>& reaches, int series) {
    graph.displayMode1 = false;
    graph.selectedDeterminands = {series};
    graph.graphReaches = reaches;
    graph.graphReachCount = static_cast<int>(reaches.size());
    graph.graphPointCounts.fill(0);
    int column = 0;
    for (const int reach : reaches)
        takePoints(reach, ++column, 0);
}

void GraphSample::labelAllTypes() {
    graph.labelFeatureTypes.fill(true);
}

void GraphSample::useArea(int width, int height) {
    constants.ScaleX = width / 640.0;
    constants.ScaleY = height / 452.0;
    area = {width * 15.0, height * 15.0, width * 15.0};
}

} // namespace korvel
