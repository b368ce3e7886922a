#include "graphs/draw/PlottedData.h"

#include "basic/Numbers.h"
#include "basic/Text.h"
#include "graphs/draw/PanelCurves.h"
#include "graphs/draw/PlottedColumn.h"

namespace korvel {

namespace {

struct NamedCurve {
    std::string name;
    PanelCurve curve;
};

std::vector<NamedCurve> curvesOf(const ResultsDataSet& results, const GraphHandOver& graph) {
    std::vector<NamedCurve> curves;
    for (const int series : graph.selectedDeterminands)
        for (const PanelCurve& curve : panelCurves(results, graph, series))
            curves.push_back({results.seriesNames[series] + " " + curve.name, curve});
    return curves;
}

std::string feature(const ResultsDataSet& results, int point) {
    const std::string& side = results.pointSide[point];
    return side.empty() ? results.pointLabel[point] : side + " " + results.pointLabel[point];
}

// A line ends where the file's text says so; a name can't be allowed to break the table.
std::string cell(std::string text) {
    for (char& c : text)
        if (c == '\t' || c == '\r' || c == '\n') c = ' ';
    return text;
}

// Targets and observed values of 0 are values that do not exist.
std::string valueCell(const PanelCurve& curve, int point) {
    const double value = curve.values[static_cast<std::size_t>(point)];
    return curve.kind != CurveKind::joined && value == 0 ? "" : shortestNumber(value);
}

void addColumn(std::string& table, const ResultsDataSet& results, const std::vector<NamedCurve>& curves,
               const PlottedColumn& column) {
    for (std::size_t j = 0; j < column.points.size(); ++j) {
        const int point = column.points[j];
        table += cell(trim(results.reachNames[results.pointReach[point]])) + "\t" +
                 shortestNumber(column.distances[j]) + "\t" + cell(feature(results, point));
        for (const NamedCurve& named : curves)
            table += "\t" + valueCell(named.curve, point);
        table += "\n";
    }
}

} // namespace

std::string plottedData(const ResultsDataSet& results, const GraphHandOver& graph) {
    const std::vector<NamedCurve> curves = curvesOf(results, graph);
    std::string table = "Reach\tDistance (km)\tFeature";
    for (const NamedCurve& named : curves)
        table += "\t" + cell(named.name);
    table += "\n";
    const int columns = graph.displayMode1 ? 1 : graph.graphReachCount;
    for (int column = 1; column <= columns; ++column)
        addColumn(table, results, curves, plottedColumn(results, graph, column));
    return table;
}

} // namespace korvel
