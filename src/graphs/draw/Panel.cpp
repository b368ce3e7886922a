#include "graphs/draw/Panel.h"

#include "basic/Text.h"

#include <algorithm>

namespace korvel {

namespace {

double tickLength(const PanelText& text) {
    return 0.2 * text.height;
}

void drawVerticals(const GraphSheet& sheet, const PlotArea& area, const PanelColumn& column) {
    for (const double x : column.ticks)
        if (x > area.left) sheet.line(looks::grid, {x, area.bottom}, {x, area.top});
    for (const double x : column.boundaries)
        sheet.line(looks::boundary, {x, area.bottom}, {x, area.top});
}

void drawVerticalAxis(const GraphSheet& sheet, const VerticalScale& scale, const PlotArea& area,
                      const PanelText& text) {
    // A low panel has at least one number beside 0, as long as the two do not touch.
    const double room = std::min(tickRoom(scale, text.height, text.largeTextMode),
                                 std::max(area.height() / 2, 0.8 * text.height));
    const double step = tickStep(scale, area.height(), room);
    const double tickEnd = area.left - tickLength(text);
    for (int k = 0; k <= lastTick(scale, step); ++k) {
        const double value = step * k;
        const double y = area.bottom + value / scale.top * area.height();
        if (k > 0) sheet.line(looks::grid, {area.left, y}, {area.right, y});
        sheet.line(looks::axis, {tickEnd, y}, {area.left, y});
        sheet.text({tickEnd - 0.2 * text.height, y - text.height / 2}, align::right, tickText(scale, value));
    }
    sheet.line(looks::axis, {area.left, area.bottom}, {area.left, area.top});
    sheet.line(looks::axis, {area.left, area.bottom}, {area.right, area.bottom});
}

void drawTexts(const GraphSheet& sheet, const Panel& panel, const PlotArea& area, const PanelText& text) {
    const double y = area.top + 0.1 * text.height;
    sheet.text({area.left, y}, align::left, panel.axisLabel);
    const double labelEnd = area.left + sheet.width(panel.axisLabel);
    if (!panel.kindOfValue.empty())
        sheet.text({labelEnd + 0.3 * text.height, y}, align::left, panel.kindOfValue);
    if (panel.heading.empty()) return;
    const double centred = (area.left + area.right - sheet.width(panel.heading)) / 2;
    sheet.text({std::max(centred, labelEnd + text.height), y}, align::left, panel.heading);
}

} // namespace

Panel makePanel(const GraphInputs& inputs, const PlottedColumn& column, int series, int reach) {
    const SeriesName name = inputs.results.nameOf(series);
    Panel panel;
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

void drawPanel(const GraphSheet& sheet, const Panel& panel, const PlotArea& area, const PanelColumn& column,
               const PanelText& text) {
    drawVerticals(sheet, area, column);
    drawVerticalAxis(sheet, panel.scale, area, text);
    for (const PanelCurve& curve : panel.curves)
        drawCurve(sheet, curve, column.points, column.scale, {area, panel.scale.top, sheet.crossHalf()});
    drawTexts(sheet, panel, area, text);
}

} // namespace korvel
