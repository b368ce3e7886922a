#include "explore/rows/ChangeRows.h"
#include "ScopeSample.h"
#include "analysis/ChangeTable.h"
#include "analysis/PlainRiver.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

ChangeRows changeRowsOf(const TableScope& scope) {
    MatchedRuns matched;
    return {scope, matched};
}

// The same without the columns that the Explorer's table has beside them: run and reach's name.
std::vector<std::string> linesOf(const ChangeRows& rows) {
    std::vector<std::string> lines;
    for (int row = 0; row < rows.rowCount(); ++row) {
        std::string line;
        for (int column = 0; column < rows.columnCount(); ++column)
            if (column != 0 && column != 2)
                line += shownCell(rows.cell(row, column), CellLook::exact).text + "|";
        lines.push_back(line);
    }
    return lines;
}

TableScope pairWithLimits() {
    const auto base = oneReach({{0, 1, 0, 0.9, 1.1}, {5, 2, 0, 1.9, 2.1}, {10, 3}});
    const auto run = oneReach({{0, 2, 0, 1.9, 2.1}, {5, 1, 0, 0.9, 1.1}, {10, 3}});
    return scopeOfFiles({base, run});
}

} // namespace

TEST(ChangeRows, AreThoseOfTheAnalysisForRiversAtRandom) {
    std::mt19937 random(5);
    for (int round = 0; round < 30; ++round) {
        const PlainRiver river = randomRiver(random);
        std::vector<StudyRun> runs = {{"a", runOf(river)}};
        for (const char* name : {"b", "c"})
            runs.push_back({name, runOf(changedRiver(river, random))});
        TableScope scope = scopeWith(Study(runs));
        scope.series = {0, 1, 4};
        scope.statistic = Statistic::p95;
        TableLines expected;
        for (std::size_t run = 1; run < runs.size(); ++run)
            changesByReach(compared(runs[0], runs[run]), {scope.series, scope.statistic, {}, false})
                .rows(expected);
        ASSERT_EQ(linesOf(changeRowsOf(scope)), expected.lines) << round;
    }
}

TEST(ChangeRows, NameTheRunAndTheReach) {
    const ChangeRows rows = changeRowsOf(pairWithLimits());
    ASSERT_EQ(rows.rowCount(), 1);
    EXPECT_EQ(rowText(rows, 0),
              "b.sgr|1|Reach 1|BOD (Conc)|mean|2.000|1.750|-0.2500|-12.5|1.000|0|P|-1.000|5|"
              "P|1|1|3");
    EXPECT_EQ(rows.column(5).heading, "Mean of\na.sgr");
}

TEST(ChangeRows, StandWhereTheyChangeMost) {
    const ChangeRows rows = changeRowsOf(pairWithLimits());
    EXPECT_EQ(rows.place(0, 0), (ExplorePlace{1, 0, ""}));  // the rise, which is as large as the fall
    EXPECT_EQ(rows.place(0, 10), (ExplorePlace{1, 0, ""})); // in the columns of the rise
    EXPECT_EQ(rows.place(0, 13), (ExplorePlace{1, 5, ""})); // of the fall
    const ChangeRows same = changeRowsOf(scopeOfFiles({oneReach({{4, 1}}), oneReach({{4, 1}})}));
    EXPECT_EQ(same.place(0, 0), (ExplorePlace{1, 4, ""})); // the reach's first point
}

TEST(ChangeRows, StandWhereTheLargerOfRiseAndFallIs) {
    const auto base = oneReach({{0, 5}, {5, 5}});
    const auto fall = oneReach({{0, 6}, {5, 3}}), rise = oneReach({{0, 4}, {5, 7}});
    EXPECT_EQ(changeRowsOf(scopeOfFiles({base, fall})).place(0, 0), (ExplorePlace{1, 5, ""}));
    EXPECT_EQ(changeRowsOf(scopeOfFiles({base, rise})).place(0, 0), (ExplorePlace{1, 5, ""}));
}

TEST(ChangeRows, FindTheRowsOfAReachInEveryRun) {
    ResultsFileBuilder file = riverOf({{3, 10}, {5, 4}});
    addPoints(file, 3, {{0, 1}});
    addPoints(file, 5, {{0, 1}});
    TableScope scope = scopeOfFiles({file, file, file});
    scope.series = {0, 1};
    const ChangeRows rows = changeRowsOf(scope);
    EXPECT_EQ(rows.rowCount(), 8);
    EXPECT_EQ(rows.rowsAt({5, 0, ""}), (std::vector<int>{2, 3, 6, 7}));
    EXPECT_EQ(rows.rowsAt({4, 0, ""}), std::vector<int>());
    EXPECT_EQ(rows.series(7, 0), 1);
}

TEST(ChangeRows, SayWhyThereAreNone) {
    TableScope scope = pairWithLimits();
    scope.series.clear();
    EXPECT_EQ(changeRowsOf(scope).whyEmpty(), "Choose a series to see its changes.");
    EXPECT_EQ(changeRowsOf(scopeOfFiles({oneReach({{0, 1}})})).whyEmpty(),
              "Open a second run to see changes.");
}

TEST(ChangeRows, SayWhatClearMeans) {
    EXPECT_EQ(changeRowsOf(pairWithLimits()).note(0, 15),
              "Clear where the confidence limits of both runs are apart: at 2 of 3 points. Unclear does not "
              "mean unchanged.");
}

} // namespace korvel
