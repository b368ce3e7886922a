#include "explore/rows/ValueRows.h"
#include "ScopeSample.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

using Lines = std::vector<std::string>;

ValueRows valueRows(const TableScope& scope) {
    return ValueRows(scope);
}

Lines linesOf(const RowSource& rows) {
    Lines lines;
    for (int row = 0; row < rows.rowCount(); ++row)
        lines.push_back(rowText(rows, row));
    return lines;
}

ResultsFileBuilder twoReaches(double more = 0) {
    ResultsFileBuilder file = riverOf({{3, 10}, {5, 4}});
    addPoints(file, 3, {{0, 1 + more, 2, 0.5, 1.5}, {6.5, 3 + more, 0, 0, 0, 99, 0, ""}});
    addPoints(file, 5, {{0.1, 4 + more, 0, 0, 0, 3, 4.5, "Works"}});
    return file;
}

} // namespace

TEST(ValueRows, AreThePointsOfThePathWithAValueARun) {
    const ValueRows rows = valueRows(scopeOfFiles({twoReaches(), twoReaches(0.25)}));
    EXPECT_EQ(linesOf(rows), (Lines{"3|Reach 3|0|0|P||10|1.000|1.250", "3|Reach 3|6.5|6.5|||99|3.000|3.250",
                                    "5|Reach 5|10.1|0.1|Works||3|4.000|4.250"}));
    EXPECT_EQ(rows.column(7).heading, "BOD (Conc)\na.sgr");
    EXPECT_EQ(rows.column(8).column.flatName(), "BOD (Conc)_b.sgr");
}

TEST(ValueRows, HoldThePathAlone) {
    TableScope scope = scopeOfFiles({twoReaches()});
    scope.path = {1};
    EXPECT_EQ(linesOf(valueRows(scope)), Lines{"5|Reach 5|0.1|0.1|Works||3|4.000"});
}

TEST(ValueRows, LeaveInterpolatedPointsOutUnlessAskedFor) {
    TableScope scope = scopeOfFiles({twoReaches()});
    scope.interpolated = false;
    EXPECT_EQ(valueRows(scope).rowCount(), 2);
}

TEST(ValueRows, GroupTheRunsBySeries) {
    TableScope scope = scopeOfFiles({twoReaches(), twoReaches()});
    scope.series = {0, 1};
    const auto rows = valueRows(scope);
    Lines names;
    for (const ShownColumn& column : rows.columns())
        if (!column.column.group.empty()) names.push_back(column.column.flatName());
    EXPECT_EQ(names, (Lines{"Flow_a.sgr", "Flow_b.sgr", "BOD (Conc)_a.sgr", "BOD (Conc)_b.sgr"}));
}

TEST(ValueRows, HoldTheStatisticAskedFor) {
    ResultsFileBuilder file = twoReaches();
    file.set(ValueField::percentileValues, 1, 9.5, 1); // of the last point
    TableScope scope = scopeOfFiles({file});
    scope.statistic = Statistic::p95;
    EXPECT_EQ(linesOf(valueRows(scope)).back(), "5|Reach 5|10.1|0.1|Works||3|9.500");
}

TEST(ValueRows, PutAPointWithoutPartnerWhereItStandsOnTheWay) {
    const ResultsFileBuilder base = oneReach({{1, 10}, {2, 20}, {3, 30}});
    const ResultsFileBuilder more = oneReach({{0.5, 5}, {1, 11}, {2.5, 25}, {3, 31}});
    const ResultsFileBuilder third = oneReach({{2, 22}, {2.5, 26}, {2.7, 27}});
    Lines found;
    for (const std::string& line : linesOf(valueRows(scopeOfFiles({base, more, third}))))
        found.push_back(line.substr(line.find("P||10|") + 6));
    // 0.5 and 2.5 of the second run have no partner in the base; the third run's 2.5 is the second's.
    EXPECT_EQ(found,
              (Lines{"|5.000|", "10.00|11.00|", "20.00||22.00", "|25.00|26.00", "||27.00", "30.00|31.00|"}));
}

TEST(ValueRows, TakeTwoPointsOfOnePlaceForTwo) {
    const ResultsFileBuilder base = oneReach({{1, 10}});
    const ResultsFileBuilder twice = oneReach({{1, 11}, {1, 12}, {1, 13}});
    const ValueRows rows = valueRows(scopeOfFiles({base, twice, twice}));
    ASSERT_EQ(rows.rowCount(), 3);
    EXPECT_EQ(rowText(rows, 0), "1|Reach 1|1|1|P||10|10.00|11.00|11.00");
    EXPECT_EQ(rowText(rows, 1), "1|Reach 1|1|1|P||10||12.00|12.00");
    EXPECT_EQ(rowText(rows, 2), "1|Reach 1|1|1|P||10||13.00|13.00");
}

TEST(ValueRows, GoByTheBaseEvenWhereItIsHidden) {
    TableScope scope = scopeOfFiles({oneReach({{1, 10}, {2, 20}}), oneReach({{2, 21}})});
    scope.runs.erase(scope.runs.begin());
    EXPECT_EQ(linesOf(valueRows(scope)), (Lines{"1|Reach 1|1|1|P||10|", "1|Reach 1|2|2|P||10|21.00"}));
}

TEST(ValueRows, TellLimitsTargetAndObservedValueInANote) {
    const ValueRows rows = valueRows(scopeOfFiles({twoReaches()}));
    EXPECT_EQ(rows.note(0, 7), "BOD (Conc), mean, a.sgr: 1.000 (0.5000 to 1.500), target 2");
    EXPECT_EQ(rows.note(2, 7), "BOD (Conc), mean, a.sgr: 4.000, observed 4.500");
    EXPECT_EQ(rows.note(0, 4), "");
}

TEST(ValueRows, KnowTheirPlaceAndSeries) {
    const ValueRows rows = valueRows(scopeOfFiles({twoReaches()}));
    EXPECT_EQ(rows.place(2, 0), (ExplorePlace{5, 0.1, ""}));
    EXPECT_EQ(rows.series(0, 7), 1);
    EXPECT_EQ(rows.series(0, 3), std::nullopt);
    EXPECT_EQ(rows.rowsAt({5, 0.1, ""}), std::vector<int>{2});
    EXPECT_EQ(rows.rowsAt({5, 0.1, "D/S"}), std::vector<int>());
    EXPECT_EQ(rows.rowsAt({4, 0.1, ""}), std::vector<int>());
}

TEST(ValueRows, SayWhyThereAreNone) {
    TableScope scope = scopeOfFiles({oneReach({{1, 10, 0, 0, 0, 99}})});
    scope.interpolated = false;
    EXPECT_EQ(valueRows(scope).whyEmpty(),
              "No features on this path; show the points between them to see values.");
    scope.path.clear();
    EXPECT_EQ(valueRows(scope).whyEmpty(), "Choose a path to see its values.");
}

} // namespace korvel
