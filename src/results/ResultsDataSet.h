// The results of one or two model runs, as the results reader leaves them: reaches, plotting points, series
// and their statistics. Written by the reader alone. RESULTS is what the forms show; there may be any number
// of others, each of one run in its slot 0.
//
// Index conventions: slot 0 or 1; point 1..59999; series 0 flow, 1..n concentrations, n+1..2n loads; level 0,
// 1, 2 for the 90, 95 and 99 percentile; reach 0..59999. An index outside is error 9.
#pragma once

#include "basic/CheckedArray.h"
#include "basic/ModelLimits.h"
#include "results/ValueStore.h"

#include <string>
#include <vector>

namespace korvel {

inline constexpr int MaxSeries = 20; // flow, and concentration and load of ten determinands
inline constexpr int MaxDeterminands = 10;
inline constexpr int MaxReachNumber = 59999;
inline constexpr int InterpolatedPointType = 99;
inline constexpr int UnjudgedDeterminandType = 4; // a determinand that is not judged and shows no targets

enum class SeriesKind { flow, concentration, load };

// "BOD" and "(Conc)", "BOD" and "(Load)"; "Flow" has no kind.
struct SeriesName {
    std::string title;
    std::string kind;
};

struct ResultsDataSet {
    ResultsDataSet() { reachLengths.set(0, 0); }

    std::string resultsTitle;
    int percentileMode = 0;
    std::string percentileLevel;   // "95", "90" or "99"
    std::string percentileCaption; // "95%-ile", "Mean", "90%-ile" or "99%-ile"
    int determinandCount = 0;
    int seriesCount = 0; // n while reading, 2n after a load
    CheckedArray<std::string, 0, MaxSeries> seriesNames;
    SeriesKind kindOf(int series) const;
    int determinandOf(int series) const; // 0 of the flow
    int loadOf(int determinand) const;   // its series; the flow of 0
    SeriesName nameOf(int series) const;
    CheckedArray<int, 1, MaxDeterminands> determinandTypes;
    CheckedArray<int, 1, MaxDeterminands> determinandStatistics;
    // The names as read, without " (Conc)" and " (Load)", for the comparison with a second file.
    CheckedArray<std::string, 1, MaxDeterminands> determinandNames;

    int reachCount = 0;
    // One value with a second role: the level typed in the set-up form's level box is kept here too.
    int& typedPercentileLevel() { return reachCount; }

    CheckedVector<std::string, MaxReachNumber> reachNames;  // 16 characters, "" without a reach line
    CheckedVector<double, MaxReachNumber> reachLengths{-1}; // -1 without a reach line
    CheckedVector<int, MaxReachNumber> reachNext;           // next reach downstream, 0 none
    std::vector<int> reachOrder;                            // reach numbers in the order of the reach lines

    // Names and lengths of reaches 1 to 59999 as without a reach line. Reach 0 keeps them, as every reach
    // keeps its next one.
    void forgetReaches();

    int pointCount = 0;
    CheckedVector<int, MaxPlottingPoints> pointReach; // 0 beyond the last point
    CheckedVector<double, MaxPlottingPoints> pointDistance;
    CheckedVector<std::string, MaxPlottingPoints> pointLabel;
    CheckedVector<std::string, MaxPlottingPoints> pointSide; // "U/S", "D/S" or ""
    CheckedVector<int, MaxPlottingPoints> pointFeatureType;

    bool hasInterpolatedPoints = false;
    CheckedArray<double, 0, MaxSeries> seriesMaximum;

    CheckedArray<ValueStore, 0, 1> values; // by slot
    // Whether a slot's values may be shown: its last load succeeded and, of slot 1, slot 0 still holds what
    // it was compared with. Values that may not be shown stay all the same.
    CheckedArray<bool, 0, 1> slotLoaded{};
};

extern ResultsDataSet RESULTS;

} // namespace korvel
