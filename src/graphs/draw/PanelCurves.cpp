#include "graphs/draw/PanelCurves.h"

#include "results/Statistics.h"

#include <algorithm>
#include <string>
#include <utility>

namespace korvel {

namespace {

constexpr int typeWithoutTargets = 4;

enum class Shown { mean, percentile };

struct ShownSet {
    int slot;
    Shown statistic;
    LineLook look;
};

// The main series, in order.
std::vector<ShownSet> shownSets(const GraphHandOver& graph) {
    if (graph.plotType == PlotType::comparison) {
        const Shown statistic = showsMeans(graph) ? Shown::mean : Shown::percentile;
        return {{0, statistic, looks::first}, {1, statistic, looks::second}};
    }
    const int slot = graph.plotType == PlotType::secondDataSet ? 1 : 0;
    std::vector<ShownSet> sets;
    if (showsMeans(graph)) sets.push_back({slot, Shown::mean, looks::first});
    if (showsPercentiles(graph)) sets.push_back({slot, Shown::percentile, looks::second});
    return sets;
}

class CurveCollector {
  public:
    CurveCollector(const ResultsDataSet& results, const GraphHandOver& graph, int series)
        : m_results(results),
          m_row(graph.percentileRow),
          m_series(series),
          m_compares(graph.plotType == PlotType::comparison) {}

    std::vector<PanelCurve> curves;

    void addMain(const ShownSet& set) {
        if (set.statistic == Shown::mean)
            add(set.slot, ValueField::meanValue, 0, {.look = set.look, .name = nameOf(set)});
        else
            add(set.slot, ValueField::percentileValues, m_row, {.look = set.look, .name = nameOf(set)});
    }
    void addLimits(const ShownSet& set) {
        if (m_series == 0) return;
        const bool mean = set.statistic == Shown::mean;
        const int level = mean ? 0 : m_row;
        addLimit(set, mean ? ValueField::meanLimit1 : ValueField::percentileLimit1, level, ", limit 1");
        addLimit(set, mean ? ValueField::meanLimit2 : ValueField::percentileLimit2, level, ", limit 2");
    }
    void addObserved(const ShownSet& set) {
        const bool mean = set.statistic == Shown::mean;
        add(set.slot, mean ? ValueField::observedMean : ValueField::observedPercentiles, mean ? 0 : m_row,
            {.kind = CurveKind::crosses,
             .look = looks::observed,
             .name = "observed " + nameOf(set),
             .role = CurveRole::observed});
    }
    // Always the first data set's: those of a second one are not used.
    void addTargets() {
        add(0, ValueField::targetValue, 0,
            {.kind = CurveKind::runsOfEqualValue,
             .look = looks::targets,
             .name = "quality target",
             .role = CurveRole::target});
    }

  private:
    std::string nameOf(const ShownSet& set) const {
        const std::string name =
            set.statistic == Shown::mean ? "mean" : factsOf(percentileOfLevel(m_row)).caption;
        return m_compares ? name + ", set " + std::to_string(set.slot + 1) : name;
    }
    void addLimit(const ShownSet& set, ValueField field, int level, const char* ending) {
        add(set.slot, field, level,
            {.look = looks::limits, .name = nameOf(set) + ending, .role = CurveRole::limit});
    }
    void add(int slot, ValueField field, int level, PanelCurve curve) {
        if (!m_results.slotLoaded[slot]) return;
        curve.values = m_results.values[slot].column(field, m_series, level);
        curves.push_back(std::move(curve));
    }

    const ResultsDataSet& m_results;
    int m_row;
    int m_series;
    bool m_compares;
};

} // namespace

bool showsMeans(const GraphHandOver& graph) {
    return graph.plotMeans;
}

bool showsPercentiles(const GraphHandOver& graph) {
    return graph.plotType == PlotType::comparison ? !graph.plotMeans : graph.plotPercentiles;
}

bool showsTargets(const ResultsDataSet& results, const GraphHandOver& graph, int series) {
    const int determinand = results.determinandOf(series);
    if (determinand < 1 || determinand > results.determinandCount) return false;
    if (results.determinandTypes[determinand] == typeWithoutTargets) return false;
    std::size_t entry = 0;
    for (int d = 1; d < determinand; ++d)
        if (results.determinandTypes[d] != typeWithoutTargets) ++entry;
    return entry < graph.showTargets.size() && graph.showTargets[entry];
}

std::vector<PanelCurve> panelCurves(const ResultsDataSet& results, const GraphHandOver& graph, int series) {
    CurveCollector collector(results, graph, series);
    const std::vector<ShownSet> sets = shownSets(graph);
    for (const ShownSet& set : sets)
        collector.addMain(set);
    if (graph.plotConfidenceLimits)
        for (const ShownSet& set : sets)
            collector.addLimits(set);
    if (showsTargets(results, graph, series)) collector.addTargets();
    // A comparison shows the first set's observed values only: both runs are held against the same river.
    if (graph.plotObservedValues)
        for (const ShownSet& set : sets)
            if (graph.plotType != PlotType::comparison || set.slot == 0) collector.addObserved(set);
    return std::move(collector.curves);
}

double largestValue(const std::vector<PanelCurve>& curves, const std::vector<int>& points) {
    double largest = 0;
    for (const PanelCurve& curve : curves)
        for (const int point : points)
            largest = std::max(largest, curve.values[static_cast<std::size_t>(point)]);
    return largest;
}

} // namespace korvel
