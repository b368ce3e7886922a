#include "panels/PanelDrawing.h"

#include "panels/ChangeFill.h"
#include "panels/ProfileKey.h"
#include "panels/ScaledValues.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace korvel {

namespace {

constexpr double leastLogarithm = -299.5; // below stands what limits below 0 have on a logarithmic scale
constexpr double lightFill = 0.13;
constexpr double clearFill = 0.75;

// Of values as the scale counts them.
class RangeTaking {
  public:
    explicit RangeTaking(ScaleKind kind)
        : m_least(kind == ScaleKind::linear ? std::numeric_limits<double>::lowest() : leastLogarithm) {}

    std::optional<NumberRange> range;

    void take(double value) {
        if (!(value > m_least)) return;
        if (!range) range = {value, value};
        range->lowest = std::min(range->lowest, value);
        range->highest = std::max(range->highest, value);
    }
    void take(const std::optional<NumberRange>& other) {
        if (!other) return;
        take(other->lowest);
        take(other->highest);
    }

  private:
    double m_least;
};

double bandOpacity(std::size_t runs) {
    return runs <= 2 ? 0.18 : runs <= 4 ? 0.12 : 0.07;
}

class PanelFilling {
  public:
    PanelFilling(const PanelContext& context, const PanelData& data, ProfilePanel& panel)
        : m_context(context),
          m_data(data),
          m_panel(panel),
          m_values(scaleOfScaled(panel.values.scale)),
          m_place{panel.area, context.distance, m_values, context.measures.cross()} {}

    void fill() {
        if (m_context.view.kind != ProfileKind::values) addReference();
        for (const RunInPanel& run : m_data.runs) {
            if (m_context.view.kind == ProfileKind::change) addChanges(run);
            addLimits(run);
            addTargets(run);
            addObserved(run);
            m_panel.leftOut += leftOutInView(run);
        }
        for (const RunInPanel& run : m_data.runs)
            if (run.run != 0) addCurve(run);
        for (const RunInPanel& run : m_data.runs)
            if (run.run == 0) addCurve(run);
    }

  private:
    void addReference() {
        const Scale& scale = m_panel.values.scale;
        const double value = m_context.view.kind == ProfileKind::change ? 0 : 1;
        if (value >= scale.bottom && value <= scale.top) m_panel.reference = scale.place(value);
    }

    void addCurve(const RunInPanel& run) {
        bool thinned = false;
        ProfileCurve curve{run.run, curvePen(run.run, m_context.look), {}};
        curve.traced =
            tracedSeries(run.series.curve, m_place, m_context.look.pixel, thinned, &m_context.columns);
        // Dashes can't be told where a column of pixels holds several points.
        if (thinned) curve.pen.dash = Dash::solid;
        m_panel.curves.push_back(std::move(curve));
    }

    std::vector<DrawnPoint> edge(const std::vector<double>& km, std::vector<double>& values) const {
        return curveEdge(CurveValues(std::move(values)), km, m_place);
    }

    void addLimits(const RunInPanel& run) {
        const PathBand& limits = run.series.limits;
        const Rgb colour = runStyle(run.run, m_context.look.theme).colour;
        for (VisibleBand& band : visibleBands(limits.above, limits.below, m_context.way()))
            m_panel.bands.push_back({run.run,
                                     {edge(band.km, band.above), edge(band.km, band.below), colour,
                                      bandOpacity(m_data.runs.size())}});
    }

    void addChanges(const RunInPanel& run) {
        const double pixelKm = m_context.look.pixel / m_context.distance.perUnit();
        const PathValues& curve = run.series.curve;
        for (const VisibleBand& change : visibleBands(curve, curve, m_context.way()))
            for (const FilledSide side : {FilledSide::above, FilledSide::below}) {
                FilledEdge filled = filledToZero(change, side);
                FilledEdge clear = clearPart(filled, run.series.clear, pixelKm);
                addFilled(run, filled, lightFill);
                addFilled(run, clear, clearFill - lightFill);
            }
    }

    void addFilled(const RunInPanel& run, FilledEdge& filled, double opacity) {
        if (filled.isEmpty()) return;
        const double zero = m_values.place(0);
        std::vector<DrawnPoint> outer = edge(filled.km, filled.values);
        const std::vector<DrawnPoint> inner{{outer.front().x, zero}, {outer.back().x, zero}};
        const Rgb colour = runStyle(run.run, m_context.look.theme).colour;
        m_panel.bands.push_back({run.run, {std::move(outer), inner, colour, opacity}});
    }

    void addTargets(const RunInPanel& run) {
        const Pen pen = targetPen(run.run, m_context.look);
        const Scale& distance = m_context.distance;
        const double mark = m_place.mark;
        const PlacedValues::InView seen = run.targetsByPlace.inView(distance, 2 * mark);
        m_panel.targets.reserve(m_panel.targets.size() + seen.places.size());
        m_panel.targetsThinned = m_panel.targetsThinned || seen.thinned;
        for (const std::size_t place : seen.places) {
            const PlacedValue target = run.targetsByPlace[place];
            if (!std::isfinite(target.value)) continue; // it has no place on this scale
            const double y = m_values.place(target.value);
            double left = distance.place(std::max(target.from, distance.bottom));
            double right = distance.place(std::min(target.to, distance.top));
            if (right <= left) {
                left = std::max(left - mark, m_panel.area.left);
                right = std::min(right + mark, m_panel.area.right);
            }
            m_panel.targets.push_back({run.run, pen, {{left, y}, {right, y}}});
        }
    }

    void addObserved(const RunInPanel& run) {
        const Pen pen = observedPen(run.run, m_context.look);
        const PlacedValues::InView seen = run.observedByPlace.inView(m_context.distance, 2 * m_place.mark);
        m_panel.observed.reserve(m_panel.observed.size() + seen.places.size());
        m_panel.observedThinned = m_panel.observedThinned || seen.thinned;
        for (const std::size_t place : seen.places) {
            const PlacedValue mark = run.observedByPlace[place];
            m_panel.observed.push_back(
                {run.run, pen, {m_context.distance.place(mark.from), m_values.place(mark.value)}});
        }
    }

    std::size_t leftOutInView(const RunInPanel& run) const {
        const std::vector<double>& km = run.series.leftOut;
        const auto from = std::ranges::lower_bound(km, m_context.distance.bottom);
        const auto to = std::ranges::upper_bound(km, m_context.distance.top);
        return static_cast<std::size_t>(to - from);
    }

    const PanelContext& m_context;
    const PanelData& m_data;
    ProfilePanel& m_panel;
    Scale m_values;
    CurvePlace m_place;
};

} // namespace

std::optional<NumberRange> valuesInView(const PanelContext& context, const PanelData& panel) {
    const ScaleKind kind = context.data.view.scale;
    RangeTaking taking(kind);
    for (const RunInPanel& run : panel.runs) {
        taking.take(rangeInView(run.series.curve, context.way()));
        taking.take(rangeInView(run.series.limits.above, context.way()));
        taking.take(rangeInView(run.series.limits.below, context.way()));
        taking.take(run.targetsByPlace.rangeInView(context.distance));
        taking.take(run.observedByPlace.rangeInView(context.distance));
    }
    if (!taking.range) return std::nullopt;
    if (context.view.kind == ProfileKind::change) taking.take(0);
    if (context.view.kind == ProfileKind::ratio) taking.take(scaled(kind, 1));
    return NumberRange{unscaled(kind, taking.range->lowest), unscaled(kind, taking.range->highest)};
}

void fillPanel(const PanelContext& context, const PanelData& data, ProfilePanel& panel) {
    PanelFilling(context, data, panel).fill();
}

TracedCurve tracedSeries(const PathValues& values, const CurvePlace& place, double pixel, bool& thinned,
                         PixelColumnsOfKm* columns) {
    TracedCurve all;
    for (VisiblePiece& piece : visiblePieces(values, {place.distance, pixel, columns})) {
        thinned = thinned || piece.thinned;
        TracedCurve traced =
            traceCurve({CurveKind::joined, CurveValues(std::move(piece.values))}, piece.km, place);
        std::ranges::move(traced.runs, std::back_inserter(all.runs));
        std::ranges::move(traced.strokes, std::back_inserter(all.strokes));
    }
    return all;
}

} // namespace korvel
