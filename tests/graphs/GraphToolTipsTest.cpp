#include "graphs/setup/GraphToolTips.h"

#include <gtest/gtest.h>

namespace korvel {

TEST(GraphToolTips, NameThePercentileLevel) {
    EXPECT_EQ(toolTip(GraphTip::plotPercentiles, "95"),
              "'Plot percentiles': The 95 percentile flow and quality values will be plotted.");
    EXPECT_EQ(toolTip(GraphTip::plotConfidenceLimits, "99"),
              "'Plot confidence limits': Enables 99 percentile confidence limits to be displayed on graphs.");
}

TEST(GraphToolTips, AreOtherwiseFixed) {
    const struct {
        GraphTip tip;
        const char* text;
    } cases[] = {
        {GraphTip::plotMeans, "'Plot means': The mean flow and quality values will be plotted."},
        {GraphTip::plotQualityTargets,
         "'Plot quality targets': Enables the river quality targets to be displayed on the graph (in red)."},
        {GraphTip::plotObservedValues, "'Plot observed values': Enables the observed flow and quality values "
                                       "to be displayed on the graph (as crosses)."},
        {GraphTip::plotInterpolatedPoints,
         "'Plot auto-interpolated points': Enables auto-interpolated points to be displayed on the graph (if "
         "option was selected in input data)."},
        {GraphTip::featureTypes, "'Feature types': To avoid overcrowding on graphs, select subset of "
                                 "features to be labelled on graphs."},
        {GraphTip::plotFirstDataSet, "'Plot 1st data set': Only the results from Data File 1 are shown when "
                                     "'Graph Preview' is selected."},
        {GraphTip::plotSecondDataSet, "'Plot 2nd data set': Only the results from Data File 2 are shown when "
                                      "'Graph Preview' is selected."},
        {GraphTip::compareDataSets, "'Compare two data sets': Results are shown for both Data File 1 and "
                                    "Data File 2 - for means or percentiles, but not both."},
    };
    for (const auto& each : cases)
        EXPECT_EQ(toolTip(each.tip, "95"), each.text);
}

} // namespace korvel
