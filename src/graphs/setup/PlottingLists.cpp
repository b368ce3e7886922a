#include "graphs/setup/PlottingLists.h"

#include "basic/Text.h"
#include "results/Statistics.h"

#include <algorithm>

namespace korvel {

namespace {

constexpr int noPoint = 0;

Message missing(const char* text) {
    return {text, "Missing data", Icon::exclamation, Buttons::ok};
}

Message incompleteResults() {
    return {"The selected graph cannot be plotted as the Korvel results are incomplete.  This may be due to "
            "the Korvel "
            "run having been stopped by an error before all reaches were processed.",
            "Incomplete Results", Icon::question, Buttons::ok};
}

std::vector<int> chosenSeries(const GraphChoices& choices) {
    if (choices.displayMode1) return selectedIndices(choices.selectedSeries);
    return {choices.determinand};
}

std::vector<int> chosenReaches(const GraphChoices& choices) {
    std::vector<int> numbers;
    if (choices.displayMode1) {
        for (int i = 0; i <= choices.downstream; ++i)
            numbers.push_back(choices.downstreamReaches.at(static_cast<std::size_t>(i)).number);
    } else {
        for (int i : selectedIndices(choices.selectedSites))
            numbers.push_back(choices.reaches.at(static_cast<std::size_t>(i)).number);
    }
    return numbers;
}

void handOverChoices(const GraphChoices& choices, GraphHandOver& graph) {
    graph.displayMode1 = choices.displayMode1;
    graph.selectedDeterminands = chosenSeries(choices);
    graph.graphReaches = chosenReaches(choices);
    graph.graphReachCount = static_cast<int>(graph.graphReaches.size());
    graph.graphTitle = trim(choices.title);
    graph.graphSubTitle = trim(choices.subTitle);
    graph.plotType = choices.plotType;
    graph.percentileRow = factsOf(choices.percentile).level;
    graph.plotMeans = choices.plotMeans;
    graph.plotPercentiles = choices.plotPercentiles;
    graph.plotConfidenceLimits = choices.plotConfidenceLimits;
    graph.plotObservedValues = choices.plotObservedValues;
    graph.plotInterpolatedPoints = choices.plotInterpolatedPoints;
    graph.displayLevel = std::clamp(choices.displayLevel, 0, 3);
}

// A standard for the 95 percentile leaves the level as it is.
void takePercentileLevel(int code, ResultsDataSet& results) {
    const auto standard = statisticOfStandard(code);
    if (standard != Statistic::p90 && standard != Statistic::p99) return;
    const StatisticFacts& percentile = factsOf(*standard);
    results.percentileLevel = percentile.name;
    results.percentileCaption = percentile.caption;
}

bool showsTargets(const GraphChoices& choices, int statistic) {
    if (!choices.plotQualityTargets) return false;
    return (choices.plotMeans && statistic == 1) ||
           (choices.plotPercentiles && statistic >= 2 && statistic <= 6);
}

void handOverTargets(const GraphChoices& choices, ResultsDataSet& results, GraphHandOver& graph) {
    graph.showTargets.clear();
    for (int d = 1; d <= results.determinandCount; ++d) {
        const int statistic = results.determinandStatistics[d];
        takePercentileLevel(statistic, results);
        if (results.determinandTypes[d] != UnjudgedDeterminandType)
            graph.showTargets.push_back(showsTargets(choices, statistic));
    }
}

void handOverFeatureTypes(const GraphChoices& choices, GraphHandOver& graph) {
    for (int code = 0; code <= 20; ++code)
        graph.labelFeatureTypes[code] = false;
    for (int entry : selectedIndices(choices.selectedFeatures)) {
        const int code = entry == 6 ? 7 : entry;
        graph.labelFeatureTypes[code] = true;
        if (code == 0) graph.labelFeatureTypes[10] = true;
        if (code == 3) graph.labelFeatureTypes[17] = true;
    }
}

// The first point of each reach.
std::vector<int> firstPoints(const ResultsDataSet& results) {
    std::vector<int> first(MaxReachNumber + 1, noPoint);
    for (int point = results.pointCount; point >= 1; --point) {
        const int reach = results.pointReach[point];
        if (reach >= 0 && reach <= MaxReachNumber) first[static_cast<std::size_t>(reach)] = point;
    }
    return first;
}

void clearLists(GraphHandOver& graph) {
    for (auto& column : graph.graphPoints)
        column.clear();
    for (auto& column : graph.graphDistances)
        column.clear();
    graph.graphPointCounts.fill(0);
}

// Adds the consecutive points of one reach, `first` being the first of them, to a column.
void addPoints(const ResultsDataSet& results, int first, double offset, int column, GraphHandOver& graph) {
    const int reach = results.pointReach[first];
    for (int point = first; point <= results.pointCount && results.pointReach[point] == reach; ++point) {
        const int j = ++graph.graphPointCounts[column];
        graph.graphPoints[column].set(j, point);
        graph.graphDistances[column].set(j, results.pointDistance[point] + offset);
    }
}

enum class Found { allReaches, notAllReaches };

Found handOverPoints(const ResultsDataSet& results, GraphHandOver& graph) {
    clearLists(graph);
    const std::vector<int> first = firstPoints(results);
    double offset = 0; // km, of the reach's head along the plotted run
    int column = 1;
    for (int reach : graph.graphReaches) {
        const int point = first.at(static_cast<std::size_t>(reach));
        if (point == noPoint) return Found::notAllReaches;
        addPoints(results, point, offset, column, graph);
        if (graph.displayMode1)
            offset += results.reachLengths[reach];
        else
            ++column;
    }
    return Found::allReaches;
}

} // namespace

std::optional<Message> missingData(const GraphChoices& choices) {
    if (!choices.firstDataSetLoaded) return missing("You have not selected a data set");
    if (choices.displayMode1) {
        if (choices.upstream == NothingChosen) return missing("You must select the Upstream Reach");
        if (choices.downstream == NothingChosen) return missing("You must select the Downstream Reach");
        if (selectedIndices(choices.selectedSeries).empty())
            return missing("You must select one or more determinands.");
    } else {
        if (selectedIndices(choices.selectedSites).empty())
            return missing("You must select one or more reaches.");
        if (choices.determinand == NothingChosen) return missing("You must select a determinand.");
    }
    return std::nullopt;
}

std::optional<Message> prepareGraph(const GraphChoices& choices, ResultsDataSet& results,
                                    GraphHandOver& graph, GraphView& view) {
    handOverChoices(choices, graph);
    handOverTargets(choices, results, graph);
    handOverFeatureTypes(choices, graph);
    if (handOverPoints(results, graph) == Found::notAllReaches) return incompleteResults();
    view = {};
    return std::nullopt;
}

} // namespace korvel
