// How concentrations are judged by their targets: which statistic, which side is bad, and what a point then
// says.
#pragma once

#include "study/RunFile.h"
#include "study/SeriesValues.h"

#include <optional>
#include <set>
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

    bool isWorseThan(const PointJudgement& other) const;
};

bool isBeyond(double value, double target, BadSide side);
// The point has a target.
PointJudgement judgePoint(const SeriesValues& values, int point, BadSide side);

// The judged points of a reach that count, in file order. Interpolated ones do where there are no others, so
// that counts and verdicts do not depend on how closely points were interpolated.
std::vector<int> judgedPointsOf(const RunFile& run, int place, const SeriesValues& values);

} // namespace korvel
