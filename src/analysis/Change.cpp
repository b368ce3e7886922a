#include "analysis/Change.h"

namespace korvel {

namespace {

// Largest rise and largest fall, of equals the first.
struct Extremes {
    std::optional<LargestChange> rise, fall;

    void take(double change, int point) {
        if (change > 0 && (!rise || change > rise->value)) rise = {change, point};
        if (change < 0 && (!fall || change < fall->value)) fall = {change, point};
    }
};

// Sums over matched points as they come, reach by reach.
class Summing {
  public:
    Summing(const ResultsDataSet& results, const SeriesValues& base, const SeriesValues& run)
        : m_results(results), m_base(base), m_run(run) {}

    void beginReach() { m_hasPointBefore = false; }
    void take(int basePoint, int runPoint);
    ChangeSummary summary() const;

  private:
    struct Pair {
        double distance, base, run;
    };
    void addInterval(const Pair& from, const Pair& to);

    const ResultsDataSet& m_results;
    const SeriesValues& m_base;
    const SeriesValues& m_run;
    bool m_hasPointBefore = false;
    Pair m_before{};
    double m_length = 0, m_baseArea = 0, m_runArea = 0;
    double m_baseSum = 0, m_runSum = 0;
    int m_points = 0, m_ordinaryPoints = 0, m_clearRises = 0, m_clearFalls = 0;
    Extremes m_ordinary, m_interpolated;
};

void Summing::take(int basePoint, int runPoint) {
    const PointChange change = changeAt(m_base, basePoint, m_run, runPoint);
    const Pair pair{m_results.pointDistance[basePoint], change.base, change.value};
    if (m_hasPointBefore) addInterval(m_before, pair);
    m_before = pair;
    m_hasPointBefore = true;

    ++m_points;
    m_baseSum += change.base;
    m_runSum += change.value;
    if (change.clear == ClearChange::rise) ++m_clearRises;
    if (change.clear == ClearChange::fall) ++m_clearFalls;
    const bool interpolated = m_results.pointFeatureType[basePoint] == InterpolatedPointType;
    if (!interpolated) ++m_ordinaryPoints;
    (interpolated ? m_interpolated : m_ordinary).take(change.change, basePoint);
}

void Summing::addInterval(const Pair& from, const Pair& to) {
    const double length = to.distance - from.distance;
    if (length <= 0) return;
    m_length += length;
    m_baseArea += length * (from.base + to.base) / 2;
    m_runArea += length * (from.run + to.run) / 2;
}

ChangeSummary Summing::summary() const {
    ChangeSummary summary;
    summary.points = m_points;
    summary.clearRises = m_clearRises;
    summary.clearFalls = m_clearFalls;
    if (m_points == 0) return summary;
    const double baseMean = m_length > 0 ? m_baseArea / m_length : m_baseSum / m_points;
    const double runMean = m_length > 0 ? m_runArea / m_length : m_runSum / m_points;
    summary.baseMean = baseMean;
    summary.runMean = runMean;
    summary.change = runMean - baseMean;
    if (baseMean != 0) summary.percent = 100 * (runMean - baseMean) / baseMean;
    const Extremes& extremes = m_ordinaryPoints > 0 ? m_ordinary : m_interpolated;
    summary.largestRise = extremes.rise;
    summary.largestFall = extremes.fall;
    return summary;
}

int unmatched(const RunFile& run, const std::vector<int>& partners, const ReachChoice& reaches) {
    int count = 0;
    for (int place = 0; place < run.reaches.count(); ++place) {
        if (!reaches.holds(run.reaches.number(place))) continue;
        for (const int point : run.reaches.pointsOf(place))
            if (partners[static_cast<std::size_t>(point)] == 0) ++count;
    }
    return count;
}

} // namespace

PointChange changeAt(const SeriesValues& base, int basePoint, const SeriesValues& run, int runPoint) {
    PointChange change;
    change.base = base.value[SeriesValues::at(basePoint)];
    change.value = run.value[SeriesValues::at(runPoint)];
    change.change = change.value - change.base;
    if (change.base != 0) change.percent = 100 * change.change / change.base;
    if (!base.isBounded(basePoint) || !run.isBounded(runPoint)) return change;
    change.clear = run.low(runPoint) > base.high(basePoint)   ? ClearChange::rise
                   : run.high(runPoint) < base.low(basePoint) ? ClearChange::fall
                                                              : ClearChange::unclear;
    return change;
}

ChangeSummary RunChange::over(std::span<const int> places, int series, Statistic statistic) const {
    const SeriesValues base = seriesValues(m_base.results, series, statistic);
    const SeriesValues run = seriesValues(m_run.results, series, statistic);
    Summing summing(m_base.results, base, run);
    for (const int place : places) {
        summing.beginReach();
        for (const int point : m_base.reaches.pointsOf(place)) {
            const int partner = m_match.ofBase[static_cast<std::size_t>(point)];
            if (partner != 0) summing.take(point, partner);
        }
    }
    return summing.summary();
}

int RunChange::onlyInBase(const ReachChoice& reaches) const {
    return unmatched(m_base, m_match.ofBase, reaches);
}

int RunChange::onlyInRun(const ReachChoice& reaches) const {
    return unmatched(m_run, m_match.ofRun, reaches);
}

} // namespace korvel
