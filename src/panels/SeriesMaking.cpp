#include "panels/SeriesMaking.h"

#include "analysis/Change.h"
#include "analysis/Judging.h"
#include "panels/ScaledValues.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace korvel {

namespace {

constexpr double farthest = 1e300; // numbers beyond can't be told apart on any scale
constexpr double nextToZero = 1e-300;

bool canBeShown(double value) {
    return std::abs(value) < farthest; // false for what is no number, too
}

// Gathers points into pieces. A piece ends where a value is missing, and where a reach is without points.
class Gathering {
  public:
    Gathering(ScaleKind scale, std::size_t points) : m_scale(scale) {
        m_km.reserve(points);
        m_values.reserve(points);
    }
    // At the distances of `other`, which takes the same points.
    Gathering(const Gathering& other, std::size_t points) : m_scale(other.m_scale), m_hasKm(false) {
        m_values.reserve(points);
    }

    void take(double km, std::size_t reach, double value) {
        if (m_scale == ScaleKind::logarithmic && value <= 0) m_leftOut.push_back(km);
        if (!canBeShown(value) || (m_scale == ScaleKind::logarithmic && value <= 0)) return interrupt();
        if (m_interrupted || reach > m_reach + 1) m_breaks.push_back(m_values.size());
        m_interrupted = false;
        m_reach = reach;
        if (m_hasKm) m_km.push_back(km);
        m_values.push_back(scaled(m_scale, value));
    }
    void interrupt() { m_interrupted = true; }

    PathValues made() {
        const bool ascending = std::ranges::is_sorted(m_km);
        return madeAt(std::make_shared<const std::vector<double>>(std::move(m_km)), ascending);
    }
    PathValues madeAt(std::shared_ptr<const std::vector<double>> km, bool ascending) {
        PathValues made;
        made.ascending = ascending;
        made.km = std::move(km);
        made.values = std::move(m_values);
        made.breaks = std::move(m_breaks);
        made.pyramid = RangePyramid(made.values);
        return made;
    }
    std::vector<double> leftOut() {
        std::ranges::sort(m_leftOut);
        return std::move(m_leftOut);
    }

  private:
    ScaleKind m_scale;
    bool m_hasKm = true;
    bool m_interrupted = true;
    std::size_t m_reach = 0;
    std::vector<double> m_km;
    std::vector<double> m_values;
    std::vector<std::size_t> m_breaks;
    std::vector<double> m_leftOut;
};

// Shows the limits wherever there are two.
class BandGathering {
  public:
    BandGathering(ScaleKind scale, std::size_t points)
        : m_scale(scale), m_above(scale, points), m_below(m_above, points) {}

    void take(double km, std::size_t reach, double low, double high) {
        const bool logarithmic = m_scale == ScaleKind::logarithmic;
        if (!(low < high) || !canBeShown(low) || !canBeShown(high) || (logarithmic && high <= 0))
            return interrupt();
        m_above.take(km, reach, high);
        m_below.take(km, reach, logarithmic ? std::max(low, nextToZero) : low);
    }
    void interrupt() {
        m_above.interrupt();
        m_below.interrupt();
    }
    PathBand made() {
        PathValues above = m_above.made();
        PathValues below = m_below.madeAt(above.km, above.ascending);
        return {std::move(above), std::move(below)};
    }

  private:
    ScaleKind m_scale;
    Gathering m_above;
    Gathering m_below;
};

// Calls `use` with km, reach and point of each of a run's points that are shown, in the file's order.
template <typename Use>
void forShownPoints(const StudyRun& run, const PathRun& points, const ProfileView& view, Use use) {
    const ResultsDataSet& results = run.results();
    for (std::size_t reach = 0; reach + 1 < points.starts.size(); ++reach)
        for (std::size_t j = points.starts[reach]; j < points.starts[reach + 1]; ++j) {
            const int point = points.points[j];
            if (!view.interpolated && results.pointFeatureType[point] == InterpolatedPointType) continue;
            use(points.km[j], reach, point);
        }
}

// Series of a run that have a value to be shown at each of its points, as most have: their distances are the
// way's own.
class WholeSeries {
  public:
    WholeSeries(const std::shared_ptr<const StudyPath>& path, std::size_t run)
        : m_points(path->runs[run]), m_km(path, &m_points.km) {
        std::size_t last = 0;
        for (std::size_t reach = 0; reach + 1 < m_points.starts.size(); ++reach) {
            if (m_points.starts[reach] == m_points.starts[reach + 1]) continue;
            if (m_breaks.empty() || reach > last + 1) m_breaks.push_back(m_points.starts[reach]);
            last = reach;
        }
    }

    // False, with nothing added, where a value is missing.
    bool addCurve(const SeriesValues& values, PathSeries& series) const {
        std::vector<double> of(m_points.points.size());
        bool whole = true;
        for (std::size_t j = 0; j < of.size(); ++j) {
            of[j] = values.value[SeriesValues::at(m_points.points[j])];
            whole &= canBeShown(of[j]);
        }
        if (whole) series.curve = made(std::move(of));
        return whole;
    }
    bool addBand(const SeriesValues& values, PathSeries& series) const {
        std::vector<double> above(m_points.points.size()), below(above.size());
        bool whole = true;
        for (std::size_t j = 0; j < above.size(); ++j) {
            above[j] = values.high(m_points.points[j]);
            below[j] = values.low(m_points.points[j]);
            whole &= (below[j] < above[j]) & canBeShown(below[j]) & canBeShown(above[j]);
        }
        if (whole) series.limits = {made(std::move(above)), made(std::move(below))};
        return whole;
    }

  private:
    PathValues made(std::vector<double> values) const {
        PathValues made;
        made.km = m_km;
        made.values = std::move(values);
        made.breaks = m_breaks;
        made.pyramid = RangePyramid(made.values);
        made.ascending = m_points.ascending;
        return made;
    }

    const PathRun& m_points;
    std::shared_ptr<const std::vector<double>> m_km;
    std::vector<std::size_t> m_breaks;
};

bool showsAllPoints(const StudyRun& run, const PathRun& points, const ProfileView& view) {
    return view.interpolated || std::ranges::none_of(points.points, [&](int point) {
               return run.results().pointFeatureType[point] == InterpolatedPointType;
           });
}

// Clear changes along the way, each as far as halfway to the points beside it.
class ClearStretches {
  public:
    void take(double km, bool joined, bool clear) {
        const double middle = joined ? (m_lastKm + km) / 2 : km;
        if (m_open && (!joined || !clear)) close(joined ? middle : m_lastKm);
        if (clear && !m_open) {
            m_from = middle;
            m_open = true;
        }
        m_lastKm = km;
    }
    std::vector<ClearStretch> made() {
        if (m_open) close(m_lastKm);
        return std::move(m_stretches);
    }

  private:
    void close(double to) {
        m_stretches.push_back({m_from, to});
        m_open = false;
    }
    bool m_open = false;
    double m_from = 0;
    double m_lastKm = 0;
    std::vector<ClearStretch> m_stretches;
};

} // namespace

PathSeries valuesAlong(const Study& study, const std::shared_ptr<const StudyPath>& path, std::size_t run,
                       const WantedSeries& wanted) {
    const StudyRun& of = study.runs()[run];
    const PathRun& points = path->runs[run];
    const SeriesValues values = seriesValues(of.results(), wanted.series, wanted.statistic);
    std::optional<WholeSeries> whole;
    if (wanted.view.scale == ScaleKind::linear && showsAllPoints(of, points, wanted.view))
        whole.emplace(path, run);
    PathSeries made;
    if (!whole || !whole->addCurve(values, made)) {
        Gathering curve(wanted.view.scale, points.points.size());
        forShownPoints(of, points, wanted.view, [&](double km, std::size_t reach, int point) {
            curve.take(km, reach, values.value[SeriesValues::at(point)]);
        });
        made.curve = curve.made();
        made.leftOut = curve.leftOut();
    }
    if (!wanted.view.limits || !values.hasLimits() || (whole && whole->addBand(values, made))) return made;
    BandGathering band(wanted.view.scale, points.points.size());
    forShownPoints(of, points, wanted.view, [&](double km, std::size_t reach, int point) {
        band.take(km, reach, values.low(point), values.high(point));
    });
    made.limits = band.made();
    return made;
}

PathSeries changesAlong(const Study& study, const StudyPath& path, std::size_t run,
                        const WantedSeries& wanted) {
    const SeriesValues ofBase = seriesValues(study.base().results(), wanted.series, wanted.statistic);
    const SeriesValues ofRun = seriesValues(study.runs()[run].results(), wanted.series, wanted.statistic);
    Gathering curve(ScaleKind::linear, path.places.size());
    ClearStretches clear;
    std::size_t lastReach = 0;
    bool any = false;
    for (std::size_t k = 0; k < path.places.size(); ++k) {
        const PathPlace& place = path.places[k];
        const int basePoint = path.pointOf[0][k], runPoint = path.pointOf[run][k];
        if (basePoint == 0 || runPoint == 0 || (place.interpolated && !wanted.view.interpolated)) continue;
        const PointChange change = changeAt(ofBase, basePoint, ofRun, runPoint);
        curve.take(place.km, place.reach, change.change);
        const bool isClear = change.clear && *change.clear != ClearChange::unclear;
        clear.take(place.km, any && place.reach <= lastReach + 1, isClear);
        lastReach = place.reach;
        any = true;
    }
    PathSeries made;
    made.curve = curve.made();
    made.clear = clear.made();
    return made;
}

PathSeries ratiosAlong(const Study& study, const StudyPath& path, std::size_t run,
                       const WantedSeries& wanted) {
    const StudyRun& of = study.runs()[run];
    const PathRun& points = path.runs[run];
    const BadSide side = wanted.view.lowIsBad.contains(of.results().determinandOf(wanted.series))
                             ? BadSide::low
                             : BadSide::high;
    const SeriesValues values = seriesValues(of.results(), wanted.series, wanted.statistic);
    Gathering curve(wanted.view.scale, points.points.size());
    BandGathering band(wanted.view.scale, wanted.view.limits ? points.points.size() : 0);
    forShownPoints(of, points, wanted.view, [&](double km, std::size_t reach, int point) {
        const auto ratio =
            values.hasTarget(point) ? judgePoint(values, point, side).ratio : std::optional<double>();
        if (!ratio) {
            curve.interrupt();
            return band.interrupt();
        }
        curve.take(km, reach, *ratio);
        const double target = values.target[SeriesValues::at(point)];
        const double low = values.low(point), high = values.high(point);
        if (!wanted.view.limits) return;
        if (side == BadSide::high)
            band.take(km, reach, low / target, high / target);
        else if (low > 0)
            band.take(km, reach, target / high, target / low);
        else
            band.interrupt();
    });
    PathSeries made;
    made.curve = curve.made();
    made.leftOut = curve.leftOut();
    made.limits = band.made();
    return made;
}

std::optional<double> shownValueAt(const Study& study, const StudyPath& path, std::size_t run,
                                   std::size_t place, const WantedSeries& wanted) {
    const std::optional<int> point = pointAt(path, run, place), ofBase = pointAt(path, 0, place);
    if (!point || (path.places[place].interpolated && !wanted.view.interpolated)) return std::nullopt;
    const ResultsDataSet& results = study.runs()[run].results();
    const SeriesValues values = seriesValues(results, wanted.series, wanted.statistic);
    if (wanted.view.kind == ProfileKind::values) return values.value[SeriesValues::at(*point)];
    if (wanted.view.kind == ProfileKind::change) {
        if (!ofBase) return std::nullopt;
        const SeriesValues base = seriesValues(study.base().results(), wanted.series, wanted.statistic);
        return changeAt(base, *ofBase, values, *point).change;
    }
    const bool low = wanted.view.lowIsBad.contains(results.determinandOf(wanted.series));
    if (!values.hasTarget(*point)) return std::nullopt;
    return judgePoint(values, *point, low ? BadSide::low : BadSide::high).ratio;
}

} // namespace korvel
