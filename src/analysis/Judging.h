// How concentrations are judged by their targets: which statistic, which side is bad, and what a point then
// says.
#pragma once

#include "study/RunFile.h"
#include "study/SeriesValues.h"

#include <algorithm>
#include <optional>
#include <set>
#include <span>
#include <string_view>
#include <vector>

namespace korvel {

enum class BadSide { high, low };

struct JudgedDeterminand {
    int number = 0;
    Statistic statistic = Statistic::mean;
    BadSide side = BadSide::high;
};

// "DO", "D.O." and oxygen, but not the demand for it: what is bad when it is low. Goes by the name as read.
bool isLowBadByName(std::string_view name);
std::set<int> lowBadByName(const ResultsDataSet& results);

// By the determinand's statistic code, else the file's own level.
Statistic judgedStatistic(const ResultsDataSet& results, int determinand);

// Those of a run that are judged, in order.
std::vector<JudgedDeterminand> judgedDeterminands(const ResultsDataSet& results,
                                                  const std::set<int>& lowIsBad);

SeriesValues judgedValues(const ResultsDataSet& results, const JudgedDeterminand& determinand);

enum class Sureness { pass, fail, unsure };

struct PointJudgement {
    double value = 0;
    double target = 0;
    bool fails = false;
    std::optional<Sureness> sure; // none where the value is not bounded
    std::optional<double> ratio;  // above 1 it fails; none where a low value is not above 0: nothing is worse

    bool isWorseThan(const PointJudgement& other) const {
        if (!ratio || !other.ratio) return !ratio && other.ratio;
        return *ratio > *other.ratio;
    }
};

// Asked of every point of a file.
inline bool isBeyond(double value, double target, BadSide side) {
    return side == BadSide::high ? value > target : value < target;
}

// The point has a target.
inline PointJudgement judgePoint(const SeriesValues& values, int point, BadSide side) {
    PointJudgement judgement;
    const double v = judgement.value = values.value[SeriesValues::at(point)];
    const double t = judgement.target = values.target[SeriesValues::at(point)];
    const bool high = side == BadSide::high;
    judgement.fails = isBeyond(v, t, side);
    if (high)
        judgement.ratio = v / t;
    else if (v > 0)
        judgement.ratio = t / v;
    if (!values.isBounded(point)) return judgement;
    const double best = high ? values.low(point) : values.high(point);
    const double worst = high ? values.high(point) : values.low(point);
    judgement.sure = isBeyond(best, t, side)     ? Sureness::fail
                     : !isBeyond(worst, t, side) ? Sureness::pass
                                                 : Sureness::unsure;
    return judgement;
}

// Calls `use` with the judged points of a reach that count, in file order. Interpolated ones do where there
// are no others, so that counts and verdicts do not depend on how closely points were interpolated.
template <typename Use>
void forJudgedPoints(const RunFile& run, int place, const SeriesValues& values, Use use) {
    const std::span<const int> points = run.reaches.pointsOf(place);
    const auto isInterpolated = [&](int point) {
        return run.results.pointFeatureType[point] == InterpolatedPointType;
    };
    const bool hasOthers = std::ranges::any_of(
        points, [&](int point) { return values.hasTarget(point) && !isInterpolated(point); });
    for (const int point : points)
        if (values.hasTarget(point) && isInterpolated(point) != hasOthers) use(point);
}
std::vector<int> judgedPointsOf(const RunFile& run, int place, const SeriesValues& values);

} // namespace korvel
