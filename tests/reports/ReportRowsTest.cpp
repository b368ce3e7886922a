#include "reports/ReportRows.h"

#include "reports/ReportData.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

std::vector<std::string> rowsOf(const LoadedRiver& river, const ReportSelection& selection) {
    std::vector<std::string> found;
    for (ReportRows rows(river.results, selection); !rows.atEnd(); rows.next())
        found.push_back((rows.row().newReach ? "* " : "  ") + std::to_string(rows.row().reach) + " " +
                        rowLabel(river.results, selection, rows.row().point));
    return found;
}

} // namespace

TEST(ReportRows, LeaveOutUpstreamEndsButHeadsAndTypeTen) {
    const LoadedRiver river;
    const std::vector<std::string> expected{"* 1 Head of Alder",         "  1 Mill Weir", "  1 Old Works",
                                            "  1 Gauge by \"old\" mill", "* 12 ",         "  12 "};
    EXPECT_EQ(rowsOf(river, river.choices.selection()), expected);
}

TEST(ReportRows, HoldUpstreamEndsWithTheirMarkerWhereWanted) {
    LoadedRiver river;
    river.choices.tick(ReportBox::upstream, true);
    const std::vector<std::string> expected{"* 1 U/S Head of Alder",
                                            "  1 U/S Mill Weir",
                                            "  1 D/S Mill Weir",
                                            "  1 U/S Old Works",
                                            "  1 Gauge by \"old\" mill",
                                            "* 12 U/S Confluence",
                                            "  12 ",
                                            "  12 D/S "};
    EXPECT_EQ(rowsOf(river, river.choices.selection()), expected);
}

TEST(ReportRows, HoldSelectedReachesOnly) {
    LoadedRiver river;
    river.choices.chooseReaches({false, true});
    EXPECT_EQ(rowsOf(river, river.choices.selection()), (std::vector<std::string>{"* 12 ", "  12 "}));
    river.choices.chooseReaches({});
    EXPECT_TRUE(rowsOf(river, river.choices.selection()).empty());
}

TEST(ReportRows, NeverHoldInterpolatedPoints) {
    LoadedRiver river(ResultsFileBuilder().determinand(1, "BOD").reach(1, "A").point(1, 0, "Head of A", 99));
    river.choices.tick(ReportBox::upstream, true);
    EXPECT_TRUE(rowsOf(river, river.choices.selection()).empty());
}

TEST(ReportRows, TakeHeadOfInExactCaseOnly) {
    const LoadedRiver river(ResultsFileBuilder()
                                .determinand(1, "BOD")
                                .reach(1, "A")
                                .point(1, 0, "U/S head of A", 0)
                                .point(1, 0, "U/S Head of A", 0)
                                .point(1, 0, "U/S Old Head of A", 0));
    EXPECT_EQ(rowsOf(river, river.choices.selection()), (std::vector<std::string>{"* 1 Head of A"}));
}

TEST(ReportRows, BeginAReachAgainWhenItsPointsComeBack) {
    const LoadedRiver river(ResultsFileBuilder()
                                .determinand(1, "BOD")
                                .reach(1, "A")
                                .reach(2, "B")
                                .point(1, 0, "a")
                                .point(2, 0, "b")
                                .point(2, 1, "c")
                                .point(1, 1, "d"));
    EXPECT_EQ(rowsOf(river, river.choices.selection()),
              (std::vector<std::string>{"* 1 a", "* 2 b", "  2 c", "* 1 d"}));
}

TEST(ReportRows, BeginReach0WithItsFirstRowToo) {
    ResultsDataSet results;
    results.pointCount = 2;
    results.pointReach.set(1, 0);
    results.pointReach.set(2, 0);
    ReportSelection selection;
    selection.reaches = {0};
    ReportRows rows(results, selection);
    EXPECT_TRUE(rows.row().newReach);
    rows.next();
    EXPECT_FALSE(rows.row().newReach);
}

TEST(ReportRows, EndWithThe59999thPoint) {
    ResultsDataSet results;
    results.pointCount = 59999;
    results.pointReach.set(59999, 7);
    results.pointReach.set(59998, 70000); // no reach has this number
    ReportSelection selection;
    selection.reaches = {7};
    ReportRows rows(results, selection);
    ASSERT_FALSE(rows.atEnd());
    EXPECT_EQ(rows.row().point, 59999);
    rows.next();
    EXPECT_TRUE(rows.atEnd());
}

} // namespace korvel
