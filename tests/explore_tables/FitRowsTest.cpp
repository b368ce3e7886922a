#include "explore/rows/FitRows.h"
#include "ScopeSample.h"
#include "analysis/FitTable.h"
#include "analysis/PlainRiver.h"
#include "fakes/FixedTextMetrics.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

// Without the run, and without the names of reaches.
std::vector<std::string> linesOf(const FitRows& rows) {
    std::vector<std::string> lines;
    for (int row = 0; row < rows.rowCount(); ++row) {
        std::string line;
        for (int column = 1; column < rows.columnCount(); ++column)
            if (rows.column(column).column.name != "reach_name")
                line += shownCell(rows.cell(row, column), CellLook::exact).text + "|";
        lines.push_back(line);
    }
    return lines;
}

Table fitTable(const StudyRun& run, FitBy by, const FitRequest& request) {
    if (by == FitBy::whole) return fitOfWhole(run, request);
    if (by == FitBy::reach) return fitByReach(run, request);
    return fitByRiver(run, networkOf(*run.file), request);
}

ResultsFileBuilder observedRiver() {
    ResultsFileBuilder file = riverOf({{3, 10}, {5, 4}});
    addPoints(file, 3, {{0, 2, 0, 1, 3, 10, 2.5, "Weir"}, {6.5, 3, 0, 0, 0, 10, 4, "Mill"}});
    addPoints(file, 5, {{0.1, 8, 0, 0, 0, 3, 4, "Works"}});
    return file;
}

FitRows::Points pointsOfSample() {
    return FitRows(scopeOfFiles({observedRiver()}), FitBy::whole).pointsOf(0);
}

FitScatter scatterOf(const FitRows::Points& points, ScaleKind kind = ScaleKind::linear) {
    return layOutScatter(points, 6000, 4500, kind, FixedTextMetrics());
}

} // namespace

TEST(FitRows, AreThoseOfTheAnalysisForRiversAtRandom) {
    std::mt19937 random(11);
    for (int round = 0; round < 30; ++round) {
        const PlainRiver river = randomRiver(random);
        TableScope scope = scopeWith(Study({{"a", runOf(river)}, {"b", runOf(changedRiver(river, random))}}));
        scope.series = {0, 1, 2, 4};
        const FitRequest request{{0, 1, 2}, {allStatistics.begin(), allStatistics.end()}, {}};
        for (const FitBy by : {FitBy::whole, FitBy::river, FitBy::reach}) {
            TableLines expected;
            for (const StudyRun& run : scope.runs)
                fitTable(run, by, request).rows(expected);
            ASSERT_EQ(linesOf(FitRows(scope, by)), expected.lines) << round;
        }
    }
}

TEST(FitRows, NameRunAndReach) {
    const FitRows rows(scopeOfFiles({observedRiver()}), FitBy::reach);
    ASSERT_EQ(rows.rowCount(), 2);
    EXPECT_EQ(rowText(rows, 0).substr(0, 39), "a.sgr|3|Reach 3|BOD (Conc)|mean|2|-0.75");
    EXPECT_EQ(rows.series(0, 0), 1);
}

TEST(FitRows, StandWhereTheyFitWorst) {
    EXPECT_EQ(FitRows(scopeOfFiles({observedRiver()}), FitBy::whole).place(0, 0), (ExplorePlace{5, 0.1, ""}));
    const FitRows byReach(scopeOfFiles({observedRiver()}), FitBy::reach);
    EXPECT_EQ(byReach.place(0, 0), (ExplorePlace{3, 6.5, ""}));
}

TEST(FitRows, FindTheRowOfAReachOrItsRiver) {
    const TableScope scope = scopeOfFiles({observedRiver()});
    EXPECT_EQ(FitRows(scope, FitBy::whole).rowsAt({5, 0, ""}), std::vector<int>());
    EXPECT_EQ(FitRows(scope, FitBy::river).rowsAt({3, 0, ""}), std::vector<int>{0});
    EXPECT_EQ(FitRows(scope, FitBy::reach).rowsAt({5, 0, ""}), std::vector<int>{1});
}

TEST(FitRows, SayWhatAFigureMeans) {
    const FitRows rows(scopeOfFiles({observedRiver()}), FitBy::whole);
    EXPECT_EQ(rows.note(0, 5),
              "Sum of the errors in percent of what was observed: above 0 the model is high");
    EXPECT_EQ(rows.note(0, 1), "");
}

TEST(FitRows, SayWhyThereAreNone) {
    TableScope scope = scopeOfFiles({oneReach({{0, 1}})});
    EXPECT_EQ(FitRows(scope, FitBy::whole).whyEmpty(), "Nothing of these series is observed in this file.");
    scope.series = {2};
    EXPECT_EQ(FitRows(scope, FitBy::whole).whyEmpty(),
              "Choose the flow or a concentration to see its fit; loads are not observed.");
    ResultsFileBuilder circle = observedRiver();
    circle = ResultsFileBuilder().determinand(1, "BOD").reach(1, "A", 1, 2).reach(2, "B", 1, 1);
    circle.point(1, 0, "P").setAll(1);
    EXPECT_EQ(FitRows(scopeOfFiles({circle}), FitBy::river).whyEmpty(),
              "Reaches run in a circle, so that there are no rivers.");
}

TEST(FitScatter, IsASquareWithTheSameValuesBothWays) {
    const FitScatter scatter = scatterOf(pointsOfSample());
    EXPECT_EQ(scatter.title, "BOD (Conc), mean, a.sgr");
    EXPECT_EQ(scatter.across.bottom, 0);
    EXPECT_EQ(scatter.across.bottom, scatter.up.bottom);
    EXPECT_EQ(scatter.across.top, scatter.up.top);
    EXPECT_NEAR(scatter.across.to - scatter.across.from, scatter.up.from - scatter.up.to, 1e-6);
    EXPECT_GE(scatter.across.top, 8);
    EXPECT_EQ(scatter.ticksAcross.front().text, "0");
    ASSERT_EQ(scatter.points.size(), 3U);
    for (const ScatterPoint& each : scatter.points) {
        EXPECT_EQ(each.at.x, scatter.across.place(each.observed.observed));
        EXPECT_EQ(each.at.y, scatter.up.place(each.observed.value));
        EXPECT_TRUE(each.at.x >= scatter.across.from && each.at.x <= scatter.across.to);
        EXPECT_TRUE(each.at.y <= scatter.up.from && each.at.y >= scatter.up.to);
    }
}

TEST(FitScatter, IsLogarithmicOnlyWhereAllIsAboveNought) {
    FitRows::Points points = pointsOfSample();
    EXPECT_EQ(scatterOf(points, ScaleKind::logarithmic).across.kind, ScaleKind::logarithmic);
    points.points[1].value = 0;
    EXPECT_EQ(scatterOf(points, ScaleKind::logarithmic).across.kind, ScaleKind::linear);
}

TEST(FitScatter, HoldsWhatIsBelowNought) {
    FitRows::Points points = pointsOfSample();
    points.points[1].value = -2;
    const FitScatter scatter = scatterOf(points);
    EXPECT_LT(scatter.up.bottom, -2);
    EXPECT_LE(scatter.points[1].at.y, scatter.up.from);
}

TEST(FitScatter, FindsTheNearestPointWithinReach) {
    const FitScatter scatter = scatterOf(pointsOfSample());
    const DrawnPoint at = scatter.points[2].at;
    EXPECT_EQ(scatter.pointAt({at.x + 50, at.y - 30}, 180), &scatter.points[2]);
    EXPECT_EQ(scatter.pointAt({at.x + 300, at.y}, 180), nullptr);
}

TEST(FitScatter, NamesItsPoints) {
    const FitScatter scatter = scatterOf(pointsOfSample());
    EXPECT_EQ(wordsOf(scatter, scatter.points[2]),
              "0.1 km, Works, reach 5 Reach 5: observed 4.000, simulated 8.000");
}

TEST(FitScatter, DrawsTheLineOnWhichBothAreEqualAndAMarkerAPoint) {
    const FitScatter scatter = scatterOf(pointsOfSample());
    const FixedTextMetrics metrics;
    const Drawing plain = drawScatter(scatter, 6000, 4500, nullptr, {}, metrics);
    const Drawing marked = drawScatter(scatter, 6000, 4500, &scatter.points[1], {}, metrics);
    const auto markers = [](const Drawing& drawing) {
        return std::ranges::count_if(drawing.commands, [](const DrawnCommand& command) {
            return std::holds_alternative<DrawnMarker>(command);
        });
    };
    EXPECT_EQ(markers(plain), 3);
    EXPECT_EQ(markers(marked), 4);
    const auto equal = std::ranges::find_if(plain.commands, [](const DrawnCommand& command) {
        const auto* line = std::get_if<DrawnLine>(&command);
        return line != nullptr && line->pen.dash == Dash::dash;
    });
    ASSERT_NE(equal, plain.commands.end());
    const auto& line = std::get<DrawnLine>(*equal);
    EXPECT_EQ(line.from, (DrawnPoint{scatter.across.from, scatter.up.from}));
    EXPECT_EQ(line.to, (DrawnPoint{scatter.across.to, scatter.up.to}));
}

TEST(FitScatter, IsEmptyWithoutPoints) {
    FitRows::Points points = pointsOfSample();
    points.points.clear();
    EXPECT_TRUE(drawScatter(scatterOf(points), 6000, 4500, nullptr, {}, FixedTextMetrics()).commands.empty());
}

} // namespace korvel
