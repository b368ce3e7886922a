// The tool-tips of the graph set-up form.
#pragma once

#include <string>

namespace korvel {

enum class GraphTip {
    plotMeans,
    plotPercentiles,
    plotConfidenceLimits,
    plotQualityTargets,
    plotObservedValues,
    plotInterpolatedPoints,
    featureTypes,
    plotFirstDataSet,
    plotSecondDataSet,
    compareDataSets
};

std::string toolTip(GraphTip tip, const std::string& percentileLevel);

} // namespace korvel
