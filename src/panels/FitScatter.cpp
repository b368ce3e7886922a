#include "panels/FitScatter.h"

#include "panels/ValueAxis.h"

#include <algorithm>
#include <cmath>

namespace korvel {

namespace {

const char* const nameAcross = "Observed";
constexpr double margin = 90; // twips
constexpr double tickRoom = 900;
constexpr double halfMarker = 45;
constexpr double halfMarked = 90;

struct Range {
    double bottom = 0, top = 0;
};

// Of all values, observed or simulated; from 0, or on a logarithmic scale from the smallest.
Range rangeOf(const std::vector<ObservedPoint>& points, ScaleKind kind) {
    Range range{points.front().value, points.front().value};
    for (const ObservedPoint& each : points) {
        range.bottom = std::min({range.bottom, each.value, each.observed});
        range.top = std::max({range.top, each.value, each.observed});
    }
    if (kind == ScaleKind::logarithmic) return {range.bottom / 1.2, range.top * 1.2};
    range.bottom = std::min(range.bottom, 0.0);
    range.top = std::max(range.top, 0.0);
    if (range.top == range.bottom) range.top = range.bottom + 1;
    const double room = (range.top - range.bottom) * 0.05;
    return {range.bottom < 0 ? range.bottom - room : 0, range.top + room};
}

bool canBeLogarithmic(const std::vector<ObservedPoint>& points) {
    return std::ranges::all_of(points,
                               [](const ObservedPoint& each) { return each.value > 0 && each.observed > 0; });
}

double widest(const std::vector<AxisTick>& ticks, const Font& font, const TextMetrics& metrics) {
    double width = 0;
    for (const AxisTick& tick : ticks)
        width = std::max(width, metrics.measure(tick.text, font).width);
    return width;
}

std::string titleOf(const FittedPoints& points) {
    return points.run.results().seriesNames[points.series] + ", " + std::string(nameOf(points.statistic)) +
           ", " + points.run.name;
}

class ScatterDrawing {
  public:
    ScatterDrawing(double width, double height, const Font& font, const ScatterColours& colours,
                   const TextMetrics& metrics)
        : m_font(font), m_colours(colours), m_metrics(metrics) {
        m_drawing.width = width;
        m_drawing.height = height;
    }

    void line(DrawnPoint from, DrawnPoint to, Rgb colour, Dash dash = Dash::solid) {
        m_drawing.commands.push_back(DrawnLine{from, to, {colour, 1, dash}});
    }
    void marker(DrawnPoint at, double half, Rgb colour, double width) {
        m_drawing.commands.push_back(DrawnMarker{at, half, {colour, width, Dash::solid}});
    }
    // `x` is where the text begins, ends or has its middle.
    void text(double x, double y, const std::string& words, TextAlign align) {
        const TextSize size = m_metrics.measure(words, m_font);
        const double left = align == TextAlign::left    ? x
                            : align == TextAlign::right ? x - size.width
                                                        : x - size.width / 2;
        m_drawing.commands.push_back(
            DrawnText{{left, y}, size.width, size.height, words, m_font, m_colours.ink, 1});
    }
    double lineHeight() const { return m_metrics.measure("0", m_font).height; }

    Drawing drawing() && { return std::move(m_drawing); }

  private:
    const Font& m_font;
    const ScatterColours& m_colours;
    const TextMetrics& m_metrics;
    Drawing m_drawing;
};

void drawAxes(ScatterDrawing& drawing, const FitScatter& scatter, const ScatterColours& colours) {
    const Scale &across = scatter.across, &up = scatter.up;
    for (const AxisTick& tick : scatter.ticksAcross) {
        drawing.line({tick.place, up.from}, {tick.place, up.to}, colours.faint);
        drawing.text(tick.place, up.from + margin / 3, tick.text, TextAlign::centre);
    }
    for (const AxisTick& tick : scatter.ticksUp) {
        drawing.line({across.from, tick.place}, {across.to, tick.place}, colours.faint);
        drawing.text(across.from - margin / 2, tick.place - drawing.lineHeight() / 2, tick.text,
                     TextAlign::right);
    }
    drawing.line({across.from, up.from}, {across.to, up.from}, colours.ink);
    drawing.line({across.from, up.from}, {across.from, up.to}, colours.ink);
    drawing.line({across.from, up.from}, {across.to, up.to}, colours.ink, Dash::dash);
}

} // namespace

const ScatterPoint* FitScatter::pointAt(const DrawnPoint& place, double reach) const {
    const ScatterPoint* nearest = nullptr;
    double best = reach;
    for (const ScatterPoint& each : points) {
        const double away = std::hypot(each.at.x - place.x, each.at.y - place.y);
        if (away > best || (nearest != nullptr && away == best)) continue;
        nearest = &each;
        best = away;
    }
    return nearest;
}

FitScatter layOutScatter(const FittedPoints& points, double width, double height, ScaleKind kind,
                         const TextMetrics& metrics, const Font& font) {
    FitScatter scatter;
    scatter.font = font;
    scatter.run = points.run;
    if (points.points.empty()) return scatter;
    scatter.title = titleOf(points);
    if (!canBeLogarithmic(points.points)) kind = ScaleKind::linear;
    const Range range = rangeOf(points.points, kind);
    const double line = metrics.measure("0", font).height;
    const double name = metrics.measure(nameAcross, font).width + 2 * margin;
    // Where the square leaves room beside it.
    scatter.isNamedBeside = width - height > name;
    const double under = (scatter.isNamedBeside ? 1 : 2) * line + 2 * margin;
    scatter.up = {range.bottom, range.top, height - under, 2 * line + 2 * margin, kind};
    scatter.ticksUp = axisOf(scatter.up, tickRoom / 2).ticks;
    const double left = margin * 2 + widest(scatter.ticksUp, font, metrics);
    const double side = std::max(1.0, std::min(width - left - 2 * margin, scatter.up.from - scatter.up.to));
    scatter.up.to = scatter.up.from - side;
    scatter.across = {range.bottom, range.top, left, left + side, kind};
    scatter.ticksUp = axisOf(scatter.up, tickRoom / 2).ticks;
    scatter.ticksAcross = axisOf(scatter.across, tickRoom).ticks;
    for (const ObservedPoint& each : points.points)
        scatter.points.push_back({{scatter.across.place(each.observed), scatter.up.place(each.value)}, each});
    return scatter;
}

Drawing drawScatter(const FitScatter& scatter, double width, double height, const ScatterPoint* marked,
                    const ScatterColours& colours, const TextMetrics& metrics) {
    ScatterDrawing drawing(width, height, scatter.font, colours, metrics);
    if (scatter.points.empty()) return std::move(drawing).drawing();
    drawAxes(drawing, scatter, colours);
    drawing.text(margin, margin / 2, scatter.title, TextAlign::left);
    drawing.text(margin, margin / 2 + drawing.lineHeight(), "Simulated", TextAlign::left);
    if (scatter.isNamedBeside)
        drawing.text(scatter.across.to + margin, scatter.up.from - drawing.lineHeight() / 2, nameAcross,
                     TextAlign::left);
    else
        drawing.text(scatter.across.to, height - margin / 2 - drawing.lineHeight(), nameAcross,
                     TextAlign::right);
    for (const ScatterPoint& each : scatter.points)
        drawing.marker(each.at, halfMarker, colours.points, 1);
    if (marked != nullptr) drawing.marker(marked->at, halfMarked, colours.ink, 2);
    return std::move(drawing).drawing();
}

} // namespace korvel
