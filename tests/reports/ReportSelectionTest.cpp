#include "reports/ReportColumns.h"

#include "basic/Palette.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

ReportSelection ofDeterminands(int count) {
    ReportSelection selection;
    selection.determinands.assign(static_cast<std::size_t>(count), 1);
    return selection;
}

} // namespace

TEST(CountCols, CountsEveryStatisticWithItsCompanions) {
    ReportSelection all = ofDeterminands(1);
    all.targets = all.observed = all.limits = true;
    all.statistics = {allStatistics.begin(), allStatistics.end()};
    EXPECT_EQ(CountCols(all), 17);
    all.determinands = {1, 2};
    EXPECT_EQ(CountCols(all), 34);
    all.targets = false;
    EXPECT_EQ(CountCols(all), 32);
    all.limits = false;
    EXPECT_EQ(CountCols(all), 16);
    all.observed = false;
    EXPECT_EQ(CountCols(all), 8);
    all.statistics = {Statistic::mean, Statistic::p95};
    EXPECT_EQ(CountCols(all), 4);
    all.statistics = {Statistic::p95};
    EXPECT_EQ(CountCols(all), 2);
}

TEST(CountCols, IsNothingWithoutStatisticsButForTargets) {
    ReportSelection selection = ofDeterminands(1);
    selection.observed = selection.limits = true;
    EXPECT_EQ(CountCols(selection), 0);
    selection.targets = true;
    EXPECT_EQ(CountCols(selection), 1);
    EXPECT_EQ(CountCols(ReportSelection{}), 0);
}

struct Verdict {
    int columns;
    PageFit fit;
    const char* fitText;
    int colour;
    friend void PrintTo(const Verdict& row, std::ostream* out) { *out << row.columns << " columns"; }
};
class ReportVerdict : public testing::TestWithParam<Verdict> {};

TEST_P(ReportVerdict, TellsWhetherThePageIsWideEnough) {
    const ColumnVerdict verdict = verdictOn(GetParam().columns);
    EXPECT_EQ(verdict.fit, GetParam().fit);
    EXPECT_EQ(verdict.fitText, GetParam().fitText);
    EXPECT_EQ(verdict.colour, GetParam().colour);
    EXPECT_EQ(verdict.countText,
              "Number of columns selected for printing =  " + std::to_string(GetParam().columns));
}

INSTANTIATE_TEST_SUITE_P(Columns, ReportVerdict,
                         testing::Values(Verdict{0, PageFit::portrait, "Print orientation: Portrait", 10},
                                         Verdict{10, PageFit::portrait, "Print orientation: Portrait", 10},
                                         Verdict{11, PageFit::landscape, "Print orientation: Landscape", 14},
                                         Verdict{18, PageFit::landscape, "Print orientation: Landscape", 14},
                                         Verdict{19, PageFit::tooWide, "Too wide to print", 12},
                                         Verdict{340, PageFit::tooWide, "Too wide to print", 12}));

} // namespace korvel
