#include "panels/PanelDrawing.h"

#include "panels/ProfileKey.h"

#include <algorithm>
#include <utility>

namespace korvel {

namespace {

constexpr double nextToZero = 1e-300; // stands for limits below 0 on a logarithmic scale
constexpr double lightFill = 0.13;
constexpr double clearFill = 0.75;

class RangeTaking {
  public:
    explicit RangeTaking(ScaleKind kind) : m_kind(kind) {}

    std::optional<NumberRange> range;

    void take(double value) {
        if (m_kind == ScaleKind::logarithmic && value <= nextToZero) return;
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
    ScaleKind m_kind;
};

double bandOpacity(std::size_t runs) {
    return runs <= 2 ? 0.18 : runs <= 4 ? 0.12 : 0.07;
}

// The points of a piece and those where it passes 0.
VisiblePiece withCrossings(const VisiblePiece& piece) {
    VisiblePiece made;
    for (std::size_t j = 0; j < piece.km.size(); ++j) {
        const double value = piece.values[j];
        if (j > 0 && value * piece.values[j - 1] < 0) {
            const double share = piece.values[j - 1] / (piece.values[j - 1] - value);
            made.km.push_back(piece.km[j - 1] + (piece.km[j] - piece.km[j - 1]) * share);
            made.values.push_back(0);
        }
        made.km.push_back(piece.km[j]);
        made.values.push_back(value);
    }
    return made;
}

class PanelFilling {
  public:
    PanelFilling(const PanelContext& context, const PanelData& data, ProfilePanel& panel)
        : m_context(context),
          m_data(data),
          m_panel(panel),
          m_place{panel.area, context.distance, panel.values.scale, context.measures.cross()} {}

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

    std::vector<DrawnPoint> edge(const VisiblePiece& piece) const {
        return curveEdge(CurveValues(piece.values), piece.km, m_place);
    }

    void addLimits(const RunInPanel& run) {
        const PathBand& limits = run.series.limits;
        const std::vector<VisiblePiece> above = visiblePieces(limits.above, m_context.way());
        const std::vector<VisiblePiece> below = visiblePieces(limits.below, m_context.way());
        const Rgb colour = runStyle(run.run, m_context.look.theme).colour;
        for (std::size_t k = 0; k < above.size(); ++k)
            m_panel.bands.push_back(
                {run.run, {edge(above[k]), edge(below[k]), colour, bandOpacity(m_data.runs.size())}});
    }

    void addChanges(const RunInPanel& run) {
        const Rgb colour = runStyle(run.run, m_context.look.theme).colour;
        for (const VisiblePiece& piece : visiblePieces(run.series.curve, m_context.way())) {
            fillToZero(run, piece, colour, lightFill);
            addClear(run, piece, colour);
        }
    }

    // Stretches that lie within a pixel of each other are filled as one.
    void addClear(const RunInPanel& run, const VisiblePiece& piece, Rgb colour) {
        if (piece.km.size() < 2 || !std::ranges::is_sorted(piece.km)) return;
        const double from = piece.km.front(), to = piece.km.back();
        const double pixelKm = m_context.look.pixel / m_context.distance.perUnit();
        const auto& stretches = run.series.clear;
        auto next = std::ranges::lower_bound(stretches, from, {}, &ClearStretch::to);
        while (next != stretches.end() && next->from < to) {
            ClearStretch stretch = *next++;
            while (next != stretches.end() && next->from <= stretch.to + pixelKm)
                stretch.to = (next++)->to;
            const VisiblePiece part =
                partOf(piece, std::max(from, stretch.from), std::min(to, stretch.to), ScaleKind::linear);
            fillToZero(run, part, colour, clearFill - lightFill);
        }
    }

    void fillToZero(const RunInPanel& run, const VisiblePiece& piece, Rgb colour, double opacity) {
        if (piece.km.size() < 2) return;
        const VisiblePiece crossed = withCrossings(piece);
        for (const double sign : {1.0, -1.0}) {
            VisiblePiece side = crossed;
            bool any = false;
            for (double& value : side.values) {
                any = any || value * sign > 0;
                value = sign * std::max(0.0, value * sign);
            }
            if (!any) continue;
            const double zero = m_panel.values.scale.place(0);
            std::vector<DrawnPoint> outer = edge(side);
            const std::vector<DrawnPoint> inner{{outer.front().x, zero}, {outer.back().x, zero}};
            m_panel.bands.push_back({run.run, {std::move(outer), inner, colour, opacity}});
        }
    }

    void addTargets(const RunInPanel& run) {
        const Pen pen = targetPen(run.run, m_context.look);
        const Scale& distance = m_context.distance;
        const double mark = m_place.mark;
        const PlacedValues::InView seen = run.targetsByPlace.inView(distance, 2 * mark);
        m_panel.targetsThinned = m_panel.targetsThinned || seen.thinned;
        for (const std::size_t place : seen.places) {
            const TargetRun& target = run.targets[place];
            const double y = m_panel.values.scale.place(target.target);
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
        m_panel.observedThinned = m_panel.observedThinned || seen.thinned;
        for (const std::size_t place : seen.places) {
            const ObservedMark& mark = run.observed[place];
            m_panel.observed.push_back(
                {run.run, pen, {m_context.distance.place(mark.km), m_panel.values.scale.place(mark.value)}});
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
    CurvePlace m_place;
};

} // namespace

std::optional<NumberRange> valuesInView(const PanelContext& context, const PanelData& panel) {
    RangeTaking taking(context.data.view.scale);
    for (const RunInPanel& run : panel.runs) {
        taking.take(rangeInView(run.series.curve, context.way()));
        taking.take(rangeInView(run.series.limits.above, context.way()));
        taking.take(rangeInView(run.series.limits.below, context.way()));
        taking.take(run.targetsByPlace.rangeInView(context.distance));
        taking.take(run.observedByPlace.rangeInView(context.distance));
    }
    if (taking.range && context.view.kind == ProfileKind::change) taking.take(0);
    if (taking.range && context.view.kind == ProfileKind::ratio) taking.take(1);
    return taking.range;
}

void fillPanel(const PanelContext& context, const PanelData& data, ProfilePanel& panel) {
    PanelFilling(context, data, panel).fill();
}

TracedCurve tracedSeries(const PathValues& values, const CurvePlace& place, double pixel, bool& thinned,
                         PixelColumnsOfKm* columns) {
    TracedCurve all;
    for (VisiblePiece& piece : visiblePieces(values, {place.distance, place.value.kind, pixel, columns})) {
        thinned = thinned || piece.thinned;
        TracedCurve traced =
            traceCurve({CurveKind::joined, CurveValues(std::move(piece.values))}, piece.km, place);
        std::ranges::move(traced.runs, std::back_inserter(all.runs));
        std::ranges::move(traced.strokes, std::back_inserter(all.strokes));
    }
    return all;
}

} // namespace korvel
