#include "reports/ReportPages.h"

#include "reports/ReportData.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

constexpr double lineHeight = 0.1; // so that lines 0 to 97 begin at 0.5 to 10.2
constexpr int rowsOfFullPage = 97 - ReportPages::headingLines;

std::vector<PlannedPage> pagesOf(const LoadedRiver& river, double lowestLine = 10.2) {
    const ReportSelection selection = river.choices.selection();
    const ReportTable table(river.results, selection);
    ReportPages pages(table, lowestLine, lineHeight);
    std::vector<PlannedPage> found;
    while (const auto page = pages.next())
        found.push_back(*page);
    return found;
}

ResultsFileBuilder twoReaches(int pointsOfFirst, int pointsOfSecond) {
    ResultsFileBuilder file;
    file.determinand(1, "BOD").reach(1, "First").reach(2, "Second");
    file.points(pointsOfFirst, 1, 1).points(pointsOfSecond, 2, 1);
    return file;
}

} // namespace

TEST(TableGeometry, IsPortraitUpToTenColumns) {
    const TableGeometry table = tableGeometry(10);
    EXPECT_EQ(table.orientation, Orientation::portrait);
    EXPECT_DOUBLE_EQ(table.columnWidth, 0.49);
    EXPECT_DOUBLE_EQ(table.inset, 0.049);
    EXPECT_EQ(table.left, 0.4);
    EXPECT_EQ(table.lowestLine, 10.2);
    EXPECT_DOUBLE_EQ(table.columnEnd(0), 2.8);
    EXPECT_DOUBLE_EQ(table.columnEnd(10), 7.7);
}

TEST(TableGeometry, IsLandscapeFromElevenColumnsOn) {
    const TableGeometry table = tableGeometry(11);
    EXPECT_EQ(table.orientation, Orientation::landscape);
    EXPECT_DOUBLE_EQ(table.columnWidth, (10.7 - 2.8) / 11);
    EXPECT_EQ(table.left, 0.3);
    EXPECT_EQ(table.lowestLine, 7.3);
    EXPECT_DOUBLE_EQ(table.columnEnd(11), 10.7);
    EXPECT_EQ(tableGeometry(18).orientation, Orientation::landscape);
}

TEST(ReportPages, AreOneEmptyPageWithoutRows) {
    LoadedRiver river;
    river.choices.chooseReaches({});
    const auto pages = pagesOf(river);
    ASSERT_EQ(pages.size(), 1U);
    EXPECT_EQ(pages[0].number, 1);
    EXPECT_TRUE(pages[0].reaches.empty());
    EXPECT_EQ(pages[0].end, 8);
}

TEST(ReportPages, GiveEachReachAHeadingLine) {
    const auto pages = pagesOf(LoadedRiver());
    ASSERT_EQ(pages.size(), 1U);
    ASSERT_EQ(pages[0].reaches.size(), 2U);
    EXPECT_EQ(pages[0].reaches[0].heading, "Upper Mill      ");
    EXPECT_EQ(pages[0].reaches[0].headingLine, 8);
    EXPECT_EQ(pages[0].reaches[0].points, (std::vector<int>{1, 3, 5, 6}));
    EXPECT_EQ(pages[0].reaches[1].headingLine, 13);
    EXPECT_EQ(pages[0].reaches[1].points, (std::vector<int>{8, 9}));
    EXPECT_EQ(pages[0].end, 16);
}

TEST(ReportPages, HoldRowsThatBeginAtTheLimitAndNoneBelow) {
    EXPECT_EQ(pagesOf(LoadedRiver(twoReaches(rowsOfFullPage, 0))).size(), 1U);
    const auto pages = pagesOf(LoadedRiver(twoReaches(rowsOfFullPage + 1, 0)));
    ASSERT_EQ(pages.size(), 2U);
    EXPECT_EQ(pages[0].reaches[0].points.size(), static_cast<std::size_t>(rowsOfFullPage));
    EXPECT_EQ(pages[0].end, 98);
    EXPECT_EQ(pages[1].number, 2);
    EXPECT_EQ(pages[1].reaches[0].points.size(), 1U);
}

TEST(ReportPages, MarkAReachThatGoesOnAndNotTheNext) {
    const auto pages = pagesOf(LoadedRiver(twoReaches(rowsOfFullPage + 1, 1)));
    ASSERT_EQ(pages.size(), 2U);
    ASSERT_EQ(pages[1].reaches.size(), 2U);
    EXPECT_EQ(pages[1].reaches[0].heading, "First            (Cont'd)");
    EXPECT_EQ(pages[1].reaches[1].heading, "Second          ");
}

TEST(ReportPages, MarkAReachThatBeginsAPageToo) {
    const auto pages = pagesOf(LoadedRiver(twoReaches(rowsOfFullPage, 1)));
    ASSERT_EQ(pages.size(), 2U);
    EXPECT_EQ(pages[1].reaches[0].heading, "Second           (Cont'd)");
}

// The heading takes the last line, the row the one below the limit.
TEST(ReportPages, AskForTheLimitBeforeRowsOnly) {
    const auto pages = pagesOf(LoadedRiver(twoReaches(rowsOfFullPage - 1, 2)));
    ASSERT_EQ(pages.size(), 2U);
    ASSERT_EQ(pages[0].reaches.size(), 2U);
    EXPECT_EQ(pages[0].reaches[1].headingLine, 97);
    EXPECT_EQ(pages[0].reaches[1].points.size(), 1U);
    EXPECT_EQ(pages[0].end, 99);
    EXPECT_EQ(pages[1].reaches[0].heading, "Second           (Cont'd)");
}

TEST(ReportPages, HoldAtLeastOneRowEach) {
    EXPECT_EQ(pagesOf(LoadedRiver(twoReaches(3, 0)), 0.6).size(), 3U);
}

} // namespace korvel
