// Whether a run meets its targets: reach by reach and determinand by determinand, for sure or not, and how
// that differs from the base.
#pragma once

#include "analysis/Judging.h"
#include "study/PointMatch.h"
#include "study/ReachChoice.h"

#include <optional>
#include <string>
#include <vector>

namespace korvel {

// Of several reaches they add up.
struct ComplianceSums {
    double judgedLength = 0;
    double failingLength = 0;
    int judgedPoints = 0;
    int failingPoints = 0;
    int sureFails = 0;
    int surePasses = 0;
    int unsure = 0;

    ComplianceSums& operator+=(const ComplianceSums& other);
};

enum class Verdict { none, pass, unsure, fail }; // unsure only where confidence is asked for

std::string_view nameOf(Verdict verdict); // "", "pass", "unsure", "fail"

struct WorstPoint {
    int point = 0;
    PointJudgement judgement;
};

struct ReachCompliance {
    ComplianceSums sums;
    Verdict verdict = Verdict::none;
    Verdict confident = Verdict::none;
    std::optional<WorstPoint> worst;
    // Percent of the worst point's value: by how much it must become better to meet its target, and by how
    // much it may become worse until it fails.
    std::optional<double> needed;
    std::optional<double> headroom;
};

// Of the reach at a place of the run.
ReachCompliance judgeReach(const RunFile& run, int place, const JudgedDeterminand& determinand);

// The part of the straight line between two points that lies beyond the target, 0 to 1.
double shareBeyond(double from, double to, double target, BadSide side);

struct OverallVerdict {
    Verdict verdict = Verdict::none;
    Verdict confident = Verdict::none;
    std::vector<int> failing; // determinands whose verdict is fail, sure or not
};

struct DeterminandVerdict {
    int determinand = 0;
    Verdict verdict = Verdict::none;
    Verdict confident = Verdict::none;
};

// One out, all out.
OverallVerdict overallVerdict(const std::vector<DeterminandVerdict>& ofDeterminands);

struct ComplianceChange {
    Verdict before = Verdict::none;
    Verdict after = Verdict::none;
    double failingLength = 0;         // gained, or lost where it is below 0
    std::optional<bool> deteriorated; // none where no judged point matches

    std::string words() const; // "fail to pass", "same", "none to fail"
};

inline constexpr double DefaultDeterioration = 10; // percent of the base's value

// Whether the judged statistic got worse by more than this many percent of the base's value, at one of the
// run's judged points that match.
std::optional<bool> hasDeteriorated(const RunFile& base, const RunFile& run, const PointMatch& match,
                                    int runPlace, const JudgedDeterminand& determinand, double percent);

// What was judged beside what samples at the same point say.
struct StationJudgement {
    int point = 0;
    double value = 0;
    double observed = 0;
    double target = 0;
    bool fails = false;
    bool observedFails = false;
};

struct StationAgreement {
    int pass = 0;
    int fail = 0;
    int modelOnly = 0; // only the model fails
    int observedOnly = 0;

    void take(const StationJudgement& station);
};

// The stations of a reach.
std::vector<StationJudgement> judgeStations(const RunFile& run, int place,
                                            const JudgedDeterminand& determinand);

} // namespace korvel
