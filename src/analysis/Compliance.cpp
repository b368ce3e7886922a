#include "analysis/Compliance.h"

#include <algorithm>
#include <limits>

namespace korvel {

namespace {

void addLengths(ComplianceSums& sums, const RunFile& run, int place, const SeriesValues& values,
                BadSide side) {
    const std::span<const int> points = run.reaches.pointsOf(place);
    for (std::size_t k = 1; k < points.size(); ++k) {
        const int i = points[k - 1], j = points[k];
        const double length = run.results.pointDistance[j] - run.results.pointDistance[i];
        if (length <= 0 || !values.hasTarget(i)) continue;
        sums.judgedLength += length;
        sums.failingLength +=
            length * shareBeyond(values.value[SeriesValues::at(i)], values.value[SeriesValues::at(j)],
                                 values.target[SeriesValues::at(i)], side);
    }
}

// Verdicts change from point to point, so that no branch could be foreseen.
void count(ComplianceSums& sums, const SeriesValues& values, int point, BadSide side) {
    const double target = values.target[SeriesValues::at(point)];
    ++sums.judgedPoints;
    sums.failingPoints += isBeyond(values.value[SeriesValues::at(point)], target, side);
    if (!values.hasLimits()) return;
    const double low = values.low(point), high = values.high(point);
    const bool bounded = values.isBounded(point), isHigh = side == BadSide::high;
    const bool fails = isBeyond(isHigh ? low : high, target, side);
    const bool passes = !isBeyond(isHigh ? high : low, target, side);
    sums.sureFails += bounded & fails;
    sums.surePasses += bounded & !fails & passes;
    sums.unsure += bounded & !fails & !passes;
}

// Grows with how bad a point is; of equals a closer look tells.
double badness(const SeriesValues& values, int point, BadSide side) {
    const double value = values.value[SeriesValues::at(point)],
                 target = values.target[SeriesValues::at(point)];
    if (side == BadSide::high) return value / target;
    return value > 0 ? target / value : std::numeric_limits<double>::infinity();
}

Verdict verdictOf(const ComplianceSums& sums) {
    if (sums.judgedPoints == 0) return Verdict::none;
    return sums.failingPoints > 0 ? Verdict::fail : Verdict::pass;
}

Verdict confidentVerdictOf(const ComplianceSums& sums) {
    if (sums.sureFails + sums.surePasses + sums.unsure == 0) return Verdict::none;
    if (sums.sureFails > 0) return Verdict::fail;
    return sums.surePasses == sums.judgedPoints ? Verdict::pass : Verdict::unsure;
}

std::optional<double> neededAt(const PointJudgement& worst, BadSide side) {
    if (!worst.fails) return 0;
    if (worst.value <= 0) return std::nullopt; // low, and no percentage of it helps
    const double excess = side == BadSide::high ? worst.value - worst.target : worst.target - worst.value;
    return 100 * excess / worst.value;
}

std::optional<double> headroomAt(const PointJudgement& worst, BadSide side) {
    if (worst.value <= 0) return std::nullopt;
    if (worst.fails) return 0;
    const double room = side == BadSide::high ? worst.target - worst.value : worst.value - worst.target;
    return 100 * room / worst.value;
}

} // namespace

ComplianceSums& ComplianceSums::operator+=(const ComplianceSums& other) {
    judgedLength += other.judgedLength;
    failingLength += other.failingLength;
    judgedPoints += other.judgedPoints;
    failingPoints += other.failingPoints;
    sureFails += other.sureFails;
    surePasses += other.surePasses;
    unsure += other.unsure;
    return *this;
}

std::string_view nameOf(Verdict verdict) {
    switch (verdict) {
    case Verdict::pass: return "pass";
    case Verdict::unsure: return "unsure";
    case Verdict::fail: return "fail";
    case Verdict::none: break;
    }
    return "";
}

double shareBeyond(double from, double to, double target, BadSide side) {
    const bool begins = isBeyond(from, target, side), ends = isBeyond(to, target, side);
    if (begins && ends) return 1;
    if (!begins && !ends) return 0;
    const double beyond = begins ? from : to;
    return (beyond - target) / (begins ? from - to : to - from);
}

ReachCompliance judgeReach(const RunFile& run, int place, const JudgedDeterminand& determinand) {
    const SeriesValues values = judgedValues(run.results, determinand);
    ReachCompliance reach;
    addLengths(reach.sums, run, place, values, determinand.side);
    double worst = 0;
    forJudgedPoints(run, place, values, [&](int point) {
        count(reach.sums, values, point, determinand.side);
        const double bad = badness(values, point, determinand.side);
        if (reach.worst && bad < worst) return;
        const PointJudgement judgement = judgePoint(values, point, determinand.side);
        if (reach.worst && !judgement.isWorseThan(reach.worst->judgement)) return;
        reach.worst = {point, judgement};
        worst = bad;
    });
    reach.verdict = verdictOf(reach.sums);
    reach.confident = confidentVerdictOf(reach.sums);
    if (!reach.worst) return reach;
    reach.needed = neededAt(reach.worst->judgement, determinand.side);
    reach.headroom = headroomAt(reach.worst->judgement, determinand.side);
    return reach;
}

OverallVerdict overallVerdict(const std::vector<DeterminandVerdict>& ofDeterminands) {
    OverallVerdict overall;
    for (const auto& [determinand, verdict, confident] : ofDeterminands) {
        if (verdict == Verdict::none) continue;
        if (verdict == Verdict::fail) overall.failing.push_back(determinand);
        overall.verdict = std::max(overall.verdict, verdict);
        // Judged without bounds is as unsure as unsure.
        overall.confident =
            std::max(overall.confident, confident == Verdict::none ? Verdict::unsure : confident);
    }
    return overall;
}

std::string ComplianceChange::words() const {
    if (before == after) return "same";
    const auto word = [](Verdict verdict) {
        return std::string(verdict == Verdict::none ? "none" : nameOf(verdict));
    };
    return word(before) + " to " + word(after);
}

std::optional<bool> hasDeteriorated(const RunFile& base, const RunFile& run, const PointMatch& match,
                                    int runPlace, const JudgedDeterminand& determinand, double percent) {
    const SeriesValues after = judgedValues(run.results, determinand);
    const SeriesValues before = judgedValues(base.results, determinand);
    std::optional<bool> deteriorated;
    for (const int point : judgedPointsOf(run, runPlace, after)) {
        const int partner = match.ofRun[SeriesValues::at(point)];
        if (partner == 0) continue;
        const double was = before.value[SeriesValues::at(partner)];
        const double is = after.value[SeriesValues::at(point)];
        const double worse = determinand.side == BadSide::high ? is - was : was - is;
        deteriorated = deteriorated.value_or(false) || (was > 0 && 100 * worse > percent * was);
    }
    return deteriorated;
}

void StationAgreement::take(const StationJudgement& station) {
    int& counted = station.fails ? (station.observedFails ? fail : modelOnly)
                                 : (station.observedFails ? observedOnly : pass);
    ++counted;
}

std::vector<StationJudgement> judgeStations(const RunFile& run, int place,
                                            const JudgedDeterminand& determinand) {
    const SeriesValues values = judgedValues(run.results, determinand);
    std::vector<StationJudgement> stations;
    for (const int point : judgedPointsOf(run, place, values)) {
        if (!values.isObserved(point)) continue;
        const PointJudgement judgement = judgePoint(values, point, determinand.side);
        const double observed = values.observed[SeriesValues::at(point)];
        stations.push_back({point, judgement.value, observed, judgement.target, judgement.fails,
                            isBeyond(observed, judgement.target, determinand.side)});
    }
    return stations;
}

} // namespace korvel
