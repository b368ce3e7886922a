// What has changed from the base to another run, at points that match and over the reaches.
#pragma once

#include "study/PointMatch.h"
#include "study/ReachChoice.h"
#include "study/SeriesValues.h"

#include <optional>
#include <span>

namespace korvel {

// Clear where the limits of both values are apart. Runs share random draws and samples, so that this is a
// strict test: unclear does not mean unchanged.
enum class ClearChange { rise, fall, unclear };

struct PointChange {
    double base = 0;
    double value = 0;
    double change = 0;
    std::optional<double> percent;    // none where the base's value is 0
    std::optional<ClearChange> clear; // none where a value is not bounded
};

struct LargestChange {
    double value = 0;
    int point = 0; // index in the base
};

// Of the matched points of one or several reaches. The means are weighted with length.
struct ChangeSummary {
    std::optional<double> baseMean, runMean, change; // none without points
    std::optional<double> percent;                   // none where the base's mean is 0, too
    std::optional<LargestChange> largestRise, largestFall;
    int clearRises = 0;
    int clearFalls = 0;
    int points = 0;
};

PointChange changeAt(const SeriesValues& base, int basePoint, const SeriesValues& run, int runPoint);

class RunChange {
  public:
    RunChange(const RunFile& base, const RunFile& run)
        : m_base(base), m_run(run), m_match(matchPoints(base, run)) {}

    // Over reaches given by their places in the base, in this order; intervals lie within reaches only.
    ChangeSummary over(std::span<const int> places, int series, Statistic statistic) const;

    const PointMatch& match() const { return m_match; }
    int onlyInBase(const ReachChoice& reaches) const;
    int onlyInRun(const ReachChoice& reaches) const;

  private:
    const RunFile& m_base;
    const RunFile& m_run;
    PointMatch m_match;
};

} // namespace korvel
