#include "reports/ReportColumns.h"

#include "reports/ReportData.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

// "Mean|LCL: field series/level" for each column.
std::vector<std::string> headingsOf(const ReportColumns& columns) {
    std::vector<std::string> headings;
    for (const ReportColumn& column : columns.columns)
        headings.push_back(column.statistic + "|" + column.holds);
    return headings;
}

} // namespace

TEST(ReportColumns, StandInTheirOrderWithTheirHeadings) {
    LoadedRiver river;
    ReportSelection selection;
    selection.targets = selection.observed = selection.limits = true;
    selection.statistics = {allStatistics.begin(), allStatistics.end()};
    selection.determinands = {1};
    const std::vector<std::string> expected{
        "Mean|",    "Mean|LCL",    "Mean|UCL",      "90%-ile|",      "90%-ile|LCL",  "90%-ile|UCL",
        "95%-ile|", "95%-ile|LCL", "95%-ile|UCL",   "99%-ile|",      "99%-ile|LCL",  "99%-ile|UCL",
        "Target|",  "Mean|(Obs)",  "90%-ile|(Obs)", "95%-ile|(Obs)", "99%-ile|(Obs)"};
    EXPECT_EQ(headingsOf(reportColumns(river.results, selection)), expected);
}

TEST(ReportColumns, LeaveOutWhatIsNotTicked) {
    LoadedRiver river;
    ReportSelection selection;
    selection.observed = selection.targets = true;
    selection.statistics = {Statistic::p99};
    selection.determinands = {1};
    const std::vector<std::string> expected{"99%-ile|", "Target|", "99%-ile|(Obs)"};
    EXPECT_EQ(headingsOf(reportColumns(river.results, selection)), expected);
}

TEST(ReportColumns, HoldTheValuesThatTheirHeadingsName) {
    using enum ValueField;
    LoadedRiver river;
    ReportSelection selection;
    selection.targets = selection.observed = selection.limits = true;
    selection.statistics = {Statistic::mean, Statistic::p95};
    selection.determinands = {2};
    const ReportColumns columns = reportColumns(river.results, selection);
    const auto values = valueColumns(river.results, columns);
    std::vector<double> ofPoint3;
    for (const ValueColumn& column : values)
        ofPoint3.push_back(column[3]);
    const auto at = [](ValueField field, int level = 0) {
        return ResultsFileBuilder::value(3, field, 2, level);
    };
    const std::vector<double> expected{
        at(meanValue),           at(meanLimit1),          at(meanLimit2),
        at(percentileValues, 1), at(percentileLimit1, 1), at(percentileLimit2, 1),
        at(targetValue),         at(observedMean),        at(observedPercentiles, 1)};
    EXPECT_EQ(ofPoint3, expected);
}

TEST(ReportColumns, TakeEachPercentileAtItsLevel) {
    LoadedRiver river;
    ReportSelection selection;
    selection.statistics = {Statistic::p90, Statistic::p95, Statistic::p99};
    selection.limits = selection.observed = true;
    selection.determinands = {1};
    std::vector<int> levels;
    for (const ReportColumn& column : reportColumns(river.results, selection).columns)
        levels.push_back(column.level);
    EXPECT_EQ(levels, (std::vector<int>{0, 0, 0, 1, 1, 1, 2, 2, 2, 0, 1, 2}));
}

TEST(ReportColumns, GroupByDeterminandInTheOrderOfTheList) {
    LoadedRiver river;
    ReportSelection selection;
    selection.statistics = {Statistic::mean};
    selection.targets = true;
    selection.determinands = {1, 4};
    const auto groups = reportColumns(river.results, selection).groups;
    ASSERT_EQ(groups.size(), 2U);
    EXPECT_EQ(groups[0].name, "BOD");
    EXPECT_EQ(groups[0].kind, "(Conc)");
    EXPECT_EQ(groups[0].firstColumn, 1);
    EXPECT_EQ(groups[0].lastColumn, 2);
    EXPECT_EQ(groups[1].name, "Ammonia");
    EXPECT_EQ(groups[1].kind, "(Load)");
    EXPECT_EQ(groups[1].firstColumn, 3);
    EXPECT_EQ(groups[1].lastColumn, 4);
}

// A group of columns of each series: of flow, a concentration and a load.
TEST(ReportColumns, AreHeadedByTheNameAndItsKindWhateverTheNameHolds) {
    for (const std::string name :
         {"BOD", "Total N", "BOD(Conc)", "A (Conc)", "A (Load)", "A (Conc) of B", ""}) {
        LoadedRiver river(ResultsFileBuilder().determinand(1, name).reach(1, "Mill").point(1, 0, "Weir"));
        ReportSelection selection;
        selection.statistics = {Statistic::mean};
        selection.determinands = {0, 1, 2};
        const auto groups = reportColumns(river.results, selection).groups;
        ASSERT_EQ(groups.size(), 3U) << name;
        EXPECT_EQ(groups[0].name, "Flow");
        EXPECT_EQ(groups[0].kind, "");
        EXPECT_EQ(groups[1].name, name);
        EXPECT_EQ(groups[1].kind, "(Conc)");
        EXPECT_EQ(groups[2].name, name);
        EXPECT_EQ(groups[2].kind, "(Load)");
    }
}

TEST(ReportColumns, AreNoneWithoutStatistics) {
    LoadedRiver river;
    ReportSelection selection;
    selection.observed = selection.limits = true;
    selection.determinands = {1, 2};
    const ReportColumns columns = reportColumns(river.results, selection);
    EXPECT_TRUE(columns.groups.empty());
    EXPECT_TRUE(columns.columns.empty());
}

TEST(ReportColumns, AreAsManyAsCounted) {
    LoadedRiver river;
    for (unsigned boxes = 0; boxes < 128; ++boxes) {
        ReportSelection selection;
        for (const Statistic each : allStatistics)
            if (boxes >> static_cast<unsigned>(each) & 1U) selection.statistics.push_back(each);
        selection.targets = boxes & 16U;
        selection.observed = boxes & 32U;
        selection.limits = boxes & 64U;
        selection.determinands = {1, 3, 4};
        EXPECT_EQ(reportColumns(river.results, selection).count(), CountCols(selection)) << boxes;
    }
}

TEST(ReportColumns, FitAPageByTheirNumber) {
    ReportSelection selection;
    selection.statistics = {Statistic::mean};
    EXPECT_EQ(determinandsThatFit(selection), mostPrintedColumns);
    selection.targets = true;
    EXPECT_EQ(determinandsThatFit(selection), mostPrintedColumns / 2);
    selection = {};
    EXPECT_EQ(determinandsThatFit(selection), mostPrintedColumns);
}

} // namespace korvel
