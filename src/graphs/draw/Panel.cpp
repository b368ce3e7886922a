#include "graphs/draw/Panel.h"

#include "basic/Text.h"

#include <algorithm>
#include <utility>

namespace korvel {

namespace {

void paintVerticals(const GraphSheet& sheet, const PlotArea& area, const PanelColumn& column) {
    for (const AxisTick& tick : column.distances.ticks)
        if (tick.place > area.left)
            sheet.line(looks::grid, {tick.place, area.bottom}, {tick.place, area.top});
    for (const double x : column.boundaries)
        sheet.line(looks::boundary, {x, area.bottom}, {x, area.top});
}

void paintVerticalAxis(const GraphSheet& sheet, const PlotArea& area, const Axis& values) {
    const double height = sheet.lineHeight();
    const double tickEnd = area.left - 0.2 * height;
    for (const AxisTick& tick : values.ticks) {
        const double y = tick.place;
        if (tick.value > values.scale.bottom) sheet.line(looks::grid, {area.left, y}, {area.right, y});
        sheet.line(looks::axis, {tickEnd, y}, {area.left, y});
        sheet.text({tickEnd - 0.2 * height, y - height / 2}, TextAlign::right, tick.text);
    }
    sheet.line(looks::axis, {area.left, area.bottom}, {area.left, area.top});
    sheet.line(looks::axis, {area.left, area.bottom}, {area.right, area.bottom});
}

void paintCurve(const GraphSheet& sheet, const PanelCurve& curve, const PanelColumn& column,
                const CurvePlace& place) {
    TracedCurve traced = traceCurve(curveOver(curve, column.points), column.points.distances, place);
    for (std::vector<DrawnPoint>& run : traced.runs)
        sheet.run(curve.look, std::move(run));
    for (const CurveStroke& stroke : traced.strokes)
        sheet.line(curve.look, stroke.from, stroke.to);
    for (const DrawnPoint& centre : traced.marks)
        sheet.cross(curve.look, centre, place.mark);
}

void paintTexts(const GraphSheet& sheet, const Panel& panel) {
    const PlotArea& area = panel.area;
    const double height = sheet.lineHeight();
    const double y = area.top + 0.1 * height;
    sheet.text({area.left, y}, TextAlign::left, panel.axisLabel);
    const double labelEnd = area.left + sheet.width(panel.axisLabel);
    if (!panel.kindOfValue.empty())
        sheet.text({labelEnd + 0.3 * height, y}, TextAlign::left, panel.kindOfValue);
    if (panel.heading.empty()) return;
    const double centred = (area.left + area.right - sheet.width(panel.heading)) / 2;
    sheet.text({std::max(centred, labelEnd + height), y}, TextAlign::left, panel.heading);
}

} // namespace

Panel makePanel(const GraphInputs& inputs, const PlottedColumn& column, int series, int reach) {
    const SeriesName name = inputs.results.nameOf(series);
    Panel panel;
    panel.series = series;
    panel.axisLabel = trim(name.title);
    if (inputs.graph.displayMode1)
        panel.kindOfValue = name.kind;
    else
        panel.heading = trim(inputs.results.seriesNames[series]) + " - " +
                        trim(inputs.results.reachNames[reach]) + " reach";
    panel.curves = panelCurves(inputs.results, inputs.graph, series);
    panel.scale = verticalScale(largestValue(panel.curves, column.scalePoints()));
    return panel;
}

double gutterOf(const GraphSheet& sheet, const Panel& panel) {
    const double numbers =
        std::max(sheet.width(tickText(panel.scale, 0)), sheet.width(tickText(panel.scale, panel.scale.top)));
    const double unit = sheet.width("km") + sheet.width("0.0");
    return std::max(numbers + 0.4 * sheet.lineHeight(), unit) + 0.4 * sheet.lineHeight();
}

void placePanel(Panel& panel, const PlotArea& area, double textHeight, int largeTextMode) {
    const VerticalScale& scale = panel.scale;
    panel.area = area;
    panel.values = {{0, scale.top, area.bottom, area.top}, {}};
    // A low panel has at least one number beside 0, as long as the two do not touch.
    const double room =
        std::min(tickRoom(scale, textHeight, largeTextMode), std::max(area.height() / 2, 0.8 * textHeight));
    const double step = tickStep(scale, area.height(), room);
    for (int k = 0; k <= lastTick(scale, step); ++k) {
        const double value = step * k;
        panel.values.ticks.push_back({value, panel.values.scale.place(value), tickText(scale, value)});
    }
}

void paintPanel(const GraphSheet& sheet, const Panel& panel, const PanelColumn& column) {
    paintVerticals(sheet, panel.area, column);
    paintVerticalAxis(sheet, panel.area, panel.values);
    const CurvePlace place{panel.area, column.scale, panel.values.scale, sheet.crossHalf()};
    for (const PanelCurve& curve : panel.curves)
        paintCurve(sheet, curve, column, place);
    paintTexts(sheet, panel);
}

Curve curveOver(const PanelCurve& curve, const PlottedColumn& column) {
    return {curve.kind, {curve.values, column.points}};
}

} // namespace korvel
