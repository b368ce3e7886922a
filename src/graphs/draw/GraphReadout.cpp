#include "graphs/draw/GraphReadout.h"

#include "basic/ModelName.h"
#include "basic/Text.h"
#include "tables/PeopleNumbers.h"

#include <algorithm>

namespace korvel {

namespace {

std::string featureOf(const ResultsDataSet& results, int point) {
    if (results.pointFeatureType[point] == InterpolatedPointType) return "interpolated point";
    const std::string side = trim(results.pointSide[point]), label = trim(results.pointLabel[point]);
    return side.empty() ? label : side + " " + label;
}

// Targets and observed values of 0 are values that do not exist.
bool hasValue(const PanelCurve& curve, std::size_t point) {
    return curve.kind == CurveKind::joined || curve.values[point] != 0;
}

// Two limits as one range.
ReadoutValue limitsOf(const PanelCurve& lower, const PanelCurve& upper, std::size_t point) {
    return {"limits", shownNumber(lower.values[point]) + " to " + shownNumber(upper.values[point]),
            lower.look.colour, CurveRole::limit};
}

// The limits of a main series stand under it.
std::vector<ReadoutValue> valuesOf(const std::vector<PanelCurve>& curves, std::size_t point) {
    std::vector<const PanelCurve*> limits;
    for (const PanelCurve& curve : curves)
        if (curve.role == CurveRole::limit) limits.push_back(&curve);
    std::vector<ReadoutValue> values;
    std::size_t next = 0;
    for (const PanelCurve& curve : curves) {
        if (curve.role == CurveRole::limit || !hasValue(curve, point)) continue;
        values.push_back({curve.name, shownNumber(curve.values[point]), curve.look.colour, curve.role});
        if (curve.role != CurveRole::main || next + 1 >= limits.size()) continue;
        values.push_back(limitsOf(*limits[next], *limits[next + 1], point));
        next += 2;
    }
    return values;
}

std::vector<ReadoutLine> linesOf(const GraphReadout& readout, bool (*shows)(CurveRole)) {
    using enum ReadoutLine::Kind;
    std::vector<ReadoutLine> lines;
    for (const std::string& text : {readout.distance, readout.reach, readout.feature})
        if (!text.empty()) lines.push_back({.kind = place, .text = text});
    for (const ReadoutPanel& panel : readout.panels) {
        lines.push_back({.kind = series, .text = panel.series});
        for (const ReadoutValue& each : panel.values)
            if (shows(each.role)) lines.push_back({value, each.name, each.value, each.colour, each.role});
    }
    return lines;
}

std::size_t pointsOf(const GraphBlock& block) {
    return block.column.points.size();
}

std::optional<GraphPoint> firstPoint(const GraphLayout& layout, std::size_t fromBlock) {
    for (std::size_t k = fromBlock; k < layout.blocks.size(); ++k)
        if (pointsOf(layout.blocks[k]) > 0) return GraphPoint{k, 0};
    return std::nullopt;
}

std::optional<GraphPoint> lastPoint(const GraphLayout& layout, std::size_t beforeBlock) {
    for (std::size_t k = beforeBlock; k-- > 0;)
        if (pointsOf(layout.blocks[k]) > 0) return GraphPoint{k, pointsOf(layout.blocks[k]) - 1};
    return std::nullopt;
}

} // namespace

GraphReadout graphReadout(const ResultsDataSet& results, const GraphLayout& layout, const GraphPoint& point) {
    const GraphBlock& block = layout.blocks.at(point.block);
    const int shown = block.column.points.at(point.index);
    GraphReadout readout{.distance = shownDecimals(block.column.distances[point.index], 2) + " km",
                         .reach = trim(results.reachNames[results.pointReach[shown]]),
                         .feature = featureOf(results, shown),
                         .panels = {}};
    for (const Panel& panel : block.panels)
        readout.panels.push_back({trim(results.seriesNames[panel.series]),
                                  valuesOf(panel.curves, static_cast<std::size_t>(shown))});
    return readout;
}

std::optional<GraphPoint> steppedFrom(const GraphLayout& layout, const std::optional<GraphPoint>& point,
                                      PointStep step) {
    const bool on = step == PointStep::on;
    if (!point || !exists(layout, *point))
        return on ? firstPoint(layout, 0) : lastPoint(layout, layout.blocks.size());
    if (on && point->index + 1 < pointsOf(layout.blocks[point->block]))
        return GraphPoint{point->block, point->index + 1};
    if (!on && point->index > 0) return GraphPoint{point->block, point->index - 1};
    const auto next = on ? firstPoint(layout, point->block + 1) : lastPoint(layout, point->block);
    return next ? next : point;
}

std::string spokenText(const GraphReadout& readout) {
    std::string text = readout.distance;
    for (const std::string& part : {readout.reach, readout.feature})
        if (!part.empty()) text += ", " + part;
    for (const ReadoutPanel& panel : readout.panels) {
        text += ". " + panel.series + ":";
        if (panel.values.empty()) text += " no values";
        for (std::size_t k = 0; k < panel.values.size(); ++k)
            text += (k == 0 ? " " : ", ") + panel.values[k].name + " " + panel.values[k].value;
    }
    return text + ".";
}

std::vector<ReadoutLine> readoutLines(const GraphReadout& readout, std::size_t most) {
    std::vector<ReadoutLine> lines = linesOf(readout, [](CurveRole) { return true; });
    if (lines.size() <= most) return lines;
    lines = linesOf(readout, [](CurveRole role) { return role != CurveRole::limit; });
    if (lines.size() >= most)
        lines = linesOf(readout, [](CurveRole role) { return role == CurveRole::main; });
    if (lines.size() >= most) lines.resize(most > 0 ? most - 1 : 0);
    if (most > 0) lines.push_back({.kind = ReadoutLine::Kind::more, .text = "more than fits here"});
    return lines;
}

std::string comparisonNote(const GraphHandOver& graph, const CheckedArray<std::string, 0, 1>& fileNames,
                           const ShownSlots& shown) {
    if (graph.plotType != PlotType::comparison) return "";
    std::string note;
    for (const int slot : {0, 1})
        note += "Set " + std::to_string(slot + 1) + ": " +
                (shown[slot] ? fileOf(trim(fileNames[slot])) : "not loaded") + "\n";
    if (shown[0] && shown[1]) note += "Where both are equal, set 2 lies above set 1.";
    return note;
}

} // namespace korvel
