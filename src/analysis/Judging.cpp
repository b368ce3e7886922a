#include "analysis/Judging.h"

#include "basic/FieldCharacters.h"
#include "basic/Text.h"

namespace korvel {

namespace {

bool isOfAWord(char c) {
    return (c >= 'a' && c <= 'z') || isDigit(c) || static_cast<unsigned char>(c) >= 0x80;
}

bool holdsWord(std::string_view text, std::string_view word) {
    for (auto at = text.find(word); at != std::string_view::npos; at = text.find(word, at + 1)) {
        const std::size_t end = at + word.size();
        const bool begins = at == 0 || !isOfAWord(text[at - 1]);
        if (begins && (end == text.size() || !isOfAWord(text[end]))) return true;
    }
    return false;
}

Statistic statisticOfLevel(const std::string& level) {
    return statisticNamed(level).value_or(Statistic::p95);
}

} // namespace

bool isLowBadByName(std::string_view name) {
    const std::string lower = lowerCase(name);
    if (holdsWord(lower, "do") || holdsWord(lower, "d.o.")) return true;
    return contains(lower, "oxygen") && !contains(lower, "demand");
}

std::set<int> lowBadByName(const ResultsDataSet& results) {
    std::set<int> low;
    for (int d = 1; d <= results.determinandCount; ++d)
        if (isLowBadByName(results.determinandNames[d])) low.insert(d);
    return low;
}

Statistic judgedStatistic(const ResultsDataSet& results, int determinand) {
    const auto statistic = statisticOfStandard(results.determinandStatistics[determinand]);
    return statistic ? *statistic : statisticOfLevel(results.percentileLevel);
}

std::vector<JudgedDeterminand> judgedDeterminands(const ResultsDataSet& results,
                                                  const std::set<int>& lowIsBad) {
    std::vector<JudgedDeterminand> judged;
    for (int d = 1; d <= results.determinandCount; ++d) {
        if (results.determinandTypes[d] == UnjudgedDeterminandType) continue;
        judged.push_back(
            {d, judgedStatistic(results, d), lowIsBad.contains(d) ? BadSide::low : BadSide::high});
    }
    return judged;
}

SeriesValues judgedValues(const ResultsDataSet& results, const JudgedDeterminand& determinand) {
    return seriesValues(results, determinand.number, determinand.statistic);
}

bool PointJudgement::isWorseThan(const PointJudgement& other) const {
    if (!ratio || !other.ratio) return !ratio && other.ratio;
    return *ratio > *other.ratio;
}

bool isBeyond(double value, double target, BadSide side) {
    return side == BadSide::high ? value > target : value < target;
}

PointJudgement judgePoint(const SeriesValues& values, int point, BadSide side) {
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

std::vector<int> judgedPointsOf(const RunFile& run, int place, const SeriesValues& values) {
    std::vector<int> ordinary, interpolated;
    for (const int point : run.reaches.pointsOf(place)) {
        if (!values.hasTarget(point)) continue;
        const bool isInterpolated = run.results.pointFeatureType[point] == InterpolatedPointType;
        (isInterpolated ? interpolated : ordinary).push_back(point);
    }
    return ordinary.empty() ? interpolated : ordinary;
}

} // namespace korvel
