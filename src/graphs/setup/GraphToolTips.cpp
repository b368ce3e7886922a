#include "graphs/setup/GraphToolTips.h"

namespace korvel {

std::string toolTip(GraphTip tip, const std::string& percentileLevel) {
    switch (tip) {
    case GraphTip::plotMeans: return "'Plot means': The mean flow and quality values will be plotted.";
    case GraphTip::plotPercentiles:
        return "'Plot percentiles': The " + percentileLevel +
               " percentile flow and quality values will be plotted.";
    case GraphTip::plotConfidenceLimits:
        return "'Plot confidence limits': Enables " + percentileLevel +
               " percentile confidence limits to be displayed on graphs.";
    case GraphTip::plotQualityTargets:
        return "'Plot quality targets': Enables the river quality targets to be displayed on the graph (in "
               "red).";
    case GraphTip::plotObservedValues:
        return "'Plot observed values': Enables the observed flow and quality values to be displayed on the "
               "graph (as "
               "crosses).";
    case GraphTip::plotInterpolatedPoints:
        return "'Plot auto-interpolated points': Enables auto-interpolated points to be displayed on the "
               "graph (if "
               "option was selected in input data).";
    case GraphTip::featureTypes:
        return "'Feature types': To avoid overcrowding on graphs, select subset of features to be labelled "
               "on graphs.";
    case GraphTip::plotFirstDataSet:
        return "'Plot 1st data set': Only the results from Data File 1 are shown when 'Graph Preview' is "
               "selected.";
    case GraphTip::plotSecondDataSet:
        return "'Plot 2nd data set': Only the results from Data File 2 are shown when 'Graph Preview' is "
               "selected.";
    case GraphTip::compareDataSets:
        return "'Compare two data sets': Results are shown for both Data File 1 and Data File 2 - for means "
               "or "
               "percentiles, but not both.";
    }
    return "";
}

} // namespace korvel
