// What the set-up form hands to the graph: set when "&Plot" is chosen and while choices are made, read by the
// graph forms. All of it is kept while the program runs.
#pragma once

#include "basic/CheckedArray.h"
#include "basic/ModelLimits.h"

#include <string>
#include <vector>

namespace korvel {

inline constexpr int MaxGraphColumns = 6;

template <typename T>
using GraphColumns = CheckedArray<CheckedVector<T, MaxPlottingPoints>, 0, MaxGraphColumns>;

// Which data sets are drawn; in the order of the set-up form's option buttons.
enum class PlotType { firstDataSet, secondDataSet, comparison };

struct GraphHandOver {
    bool displayMode1 = true;
    std::string graphTitle;
    std::string graphSubTitle;
    PlotType plotType = PlotType::firstDataSet;
    int percentileRow = 1; // 0 for 90, 1 for 95, 2 for 99
    bool plotMeans = true;
    bool plotPercentiles = false;
    bool plotConfidenceLimits = false;
    bool plotObservedValues = true;
    bool plotInterpolatedPoints = false; // also the reader's default for the option
    std::vector<bool> showTargets;       // an entry for each determinand of type other than 4, in order
    CheckedArray<bool, 0, 50> labelFeatureTypes;

    // Series numbers chosen in mode 1 (1 to 5 of them), or the one series of mode 2; in list order.
    std::vector<int> selectedDeterminands;
    int graphReachCount = 0;
    std::vector<int> graphReaches;       // reach numbers in plotting order; entry 0 is the first
    GraphColumns<int> graphPoints;       // [column][j], columns and j from 1: the point's index
    GraphColumns<double> graphDistances; // km along the plotted run
    CheckedArray<int, 0, MaxGraphColumns> graphPointCounts;
    int displayLevel = 0; // 0 to 3, the Options menu's level when "&Plot" was chosen
};

} // namespace korvel
