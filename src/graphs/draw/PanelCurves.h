// What a panel draws: series, confidence limits, targets and observed values of one or two data sets.
#pragma once

#include "drawing/Curve.h"
#include "global/GraphHandOver.h"
#include "graphs/draw/GraphSheet.h"
#include "graphs/draw/PlottedColumn.h"

#include <span>
#include <string>
#include <vector>

namespace korvel {

// The main series come first, then the limits, two of each main series and in their order.
enum class CurveRole { main, limit, target, observed };

struct PanelCurve {
    CurveKind kind = CurveKind::joined;
    LineLook look;
    std::span<const double> values = {}; // by point index
    std::string name = {};               // "mean", "95%-ile, set 2", "mean, limit 1", "quality target" ...
    CurveRole role = CurveRole::main;
};

// Whether means or percentiles are shown. A comparison shows one of them: the means where they are chosen.
bool showsMeans(const GraphHandOver& graph);
bool showsPercentiles(const GraphHandOver& graph);

// Whether the targets of a series are to be drawn.
bool showsTargets(const ResultsDataSet& results, const GraphHandOver& graph, int series);

// In the order of drawing.
std::vector<PanelCurve> panelCurves(const ResultsDataSet& results, const GraphHandOver& graph, int series);

// 0 where nothing is above it.
double largestValue(const std::vector<PanelCurve>& curves, const std::vector<int>& points);

} // namespace korvel
