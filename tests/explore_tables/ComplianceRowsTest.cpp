#include "explore/rows/ComplianceRows.h"
#include "ScopeSample.h"
#include "analysis/ComplianceTable.h"
#include "analysis/PlainRiver.h"
#include "explore/rows/RowOrder.h"

#include <gtest/gtest.h>

#include <map>

namespace korvel {

namespace {

ComplianceRows gridOf(const TableScope& scope) {
    return {scope, std::make_shared<MatchedRuns>()};
}

std::string wordAt(const RowSource& rows, int row, int column) {
    return shownCell(rows.cell(row, column), rows.column(column).look).text;
}

// Reaches: a sure fail, unsure, a sure pass, a pass without limits, no target.
ResultsFileBuilder allKinds() {
    ResultsFileBuilder file = riverOf({{1, 10}, {2, 10}, {3, 10}, {4, 10}, {5, 10}});
    addPoints(file, 1, {{0, 5, 4, 4.5, 6}});
    addPoints(file, 2, {{0, 3, 4, 2, 5}});
    addPoints(file, 3, {{0, 3, 4, 2, 3.5}});
    addPoints(file, 4, {{0, 3, 4}});
    addPoints(file, 5, {{0, 3}});
    return file;
}

} // namespace

TEST(ComplianceRows, AreReachesByDeterminandsInABlockARun) {
    const ComplianceRows rows = gridOf(scopeOfFiles({allKinds(), allKinds()}));
    std::vector<std::string> headings;
    for (const ShownColumn& column : rows.columns())
        headings.push_back(column.heading);
    EXPECT_EQ(headings, (std::vector<std::string>{"Reach", "Name", "Overall\na.sgr", "BOD\na.sgr",
                                                  "Overall\nb.sgr", "BOD\nb.sgr"}));
    std::vector<std::string> words;
    for (int row = 0; row < rows.rowCount(); ++row)
        words.push_back(wordAt(rows, row, 3));
    EXPECT_EQ(words, (std::vector<std::string>{"fail", "unsure", "pass", "pass", ""}));
}

TEST(ComplianceRows, AreThoseOfTheAnalysisForRiversAtRandom) {
    std::mt19937 random(7);
    for (int round = 0; round < 30; ++round) {
        const PlainRiver river = randomRiver(random);
        TableScope scope = scopeWith(Study({{"a", runOf(river)}, {"b", runOf(changedRiver(river, random))}}));
        scope.lowIsBad = {2};
        const ComplianceRows grid = gridOf(scope);
        const ComplianceRequest request{{1, 2}, scope.lowIsBad, {}, DefaultDeterioration};
        std::map<std::pair<std::string, int>, std::string> expected; // by column and reach
        for (const StudyRun& run : scope.runs) {
            const auto rows = complianceRows({run, {}}, request);
            const auto word = [&](const std::string& column, int place) -> std::string& {
                return expected[{run.name + "_" + column, run.reaches().number(place)}];
            };
            for (const ComplianceRow& row : rows)
                word(determinandName(run.results(), row.determinand.number), row.place) =
                    nameOf(shownVerdict(row.reach.verdict, row.reach.confident));
            for (const OverallRow& row : overallRows(run, request, rows))
                word("overall", row.place) = nameOf(shownVerdict(row.overall.verdict, row.overall.confident));
        }
        for (int column = 2; column < grid.columnCount(); ++column)
            for (int row = 0; row < grid.rowCount(); ++row)
                ASSERT_EQ(wordAt(grid, row, column), expected.at({grid.column(column).column.flatName(),
                                                                  scope.base.reaches().number(row)}));
    }
}

TEST(ComplianceRows, LeaveOutDeterminandsWithoutAnyTarget) {
    ResultsFileBuilder file;
    file.determinand(1, "BOD").determinand(1, "Zinc").reach(1, "Mill");
    file.point(1, 0, "P", 10).setAll(0).set(ValueField::targetValue, 2, 1);
    const ComplianceRows rows = gridOf(scopeOfFiles({file}));
    ASSERT_EQ(rows.columnCount(), 4);
    EXPECT_EQ(rows.column(3).heading, "Zinc\na.sgr");
    EXPECT_EQ(rows.series(0, 3), 2);
}

TEST(ComplianceRows, AreSortedByVerdictAndThenByRatio) {
    ResultsFileBuilder file = riverOf({{1, 10}, {2, 10}, {3, 10}, {4, 10}});
    addPoints(file, 1, {{0, 3, 4}});
    addPoints(file, 2, {{0, 5, 4}});
    addPoints(file, 3, {{0, 9, 4}});
    addPoints(file, 4, {{0, 9}});
    const ComplianceRows rows = gridOf(scopeOfFiles({file}));
    for (const int column : {2, 3})
        EXPECT_EQ(shownRows(rows, {column, SortDirection::descending}, ""), (std::vector<int>{2, 1, 0, 3}));
}

TEST(ComplianceRows, StandAtTheWorstPointOfTheCell) {
    const auto file = oneReach({{1, 3, 4}, {2, 6, 4}, {3, 5, 4}});
    const ComplianceRows rows = gridOf(scopeOfFiles({file}));
    EXPECT_EQ(rows.place(0, 3), (ExplorePlace{1, 2, ""}));
    EXPECT_EQ(rows.place(0, 0), (ExplorePlace{1, 1, ""})); // the reach's first point
    EXPECT_EQ(rows.rowsAt({1, 2.5, ""}), std::vector<int>{0});
    EXPECT_EQ(rows.rowsAt({8, 2.5, ""}), std::vector<int>());
}

TEST(ComplianceRows, TellWhatIsBehindACell) {
    const auto base = oneReach({{0, 3, 4, 2, 3.5}, {10, 3, 4}});
    const auto worse = oneReach({{0, 5, 4, 4.5, 6}, {10, 3, 4}});
    const ComplianceRows rows = gridOf(scopeOfFiles({base, worse}));
    EXPECT_EQ(rows.note(0, 3),
              "BOD, a.sgr, reach 1 Reach 1: pass by the values at 2 of 2 points; sure pass 1, "
              "unsure 0, sure fail 0\n"
              "worst at 0 km, P: mean 3.000, target 4, room for 33 % more\n"
              "0.0 of 10.0 km fail");
    EXPECT_EQ(rows.note(0, 5),
              "BOD, b.sgr, reach 1 Reach 1: fail by the values at 1 of 2 points; sure pass 0, "
              "unsure 0, sure fail 1\n"
              "worst at 0 km, P: mean 5.000, target 4, 20 % less is needed\n"
              "5.0 of 10.0 km fail\n"
              "Against a.sgr: pass to fail, worse by more than 10 % somewhere");
    EXPECT_EQ(rows.note(0, 4), "b.sgr, reach 1 Reach 1: BOD fails by the values; with confidence: fail");
}

TEST(ComplianceRows, TellOfWhatIsBadWhenLow) {
    TableScope scope = scopeOfFiles({oneReach({{0, 3, 4}}, "Oxygen")});
    scope.lowIsBad = {1};
    EXPECT_EQ(gridOf(scope).note(0, 3), "Oxygen, a.sgr, reach 1 Reach 1: fail by the values at 1 of 1 point\n"
                                        "worst at 0 km, P: mean 3.000, target 4, bad when low, 33 % more is "
                                        "needed");
}

TEST(ComplianceRows, SayWhyThereAreNone) {
    const auto without = oneReach({{0, 1}});
    EXPECT_EQ(gridOf(scopeOfFiles({without})).rowCount(), 0);
    EXPECT_EQ(gridOf(scopeOfFiles({without})).whyEmpty(), "No targets in this file.");
    EXPECT_EQ(gridOf(scopeOfFiles({without, without})).whyEmpty(), "No targets in these files.");
}

} // namespace korvel
