#include "explore/rows/SourceRows.h"
#include "ScopeSample.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

struct LoadSample {
    double distance;
    double load;
    std::string label;
    int type;
};

// Loads of BOD along one reach of 10 km; a feature has two points.
ResultsFileBuilder loads(const std::vector<LoadSample>& points) {
    ResultsFileBuilder file = riverOf({{1, 10}});
    for (const LoadSample& each : points)
        file.point(1, each.distance, each.label, each.type)
            .setAll(0)
            .set(ValueField::meanValue, 2, each.load);
    return file;
}

// 10 at the head, works bring `works`, an abstraction takes half of all.
ResultsFileBuilder withWorks(double works) {
    return loads({{0, 10, "Head", 10},
                  {2, 10, "U/S Works", 3},
                  {2, 10 + works, "D/S Works", 3},
                  {6, 10 + works, "U/S Intake", 7},
                  {6, (10 + works) / 2, "D/S Intake", 7}});
}

std::vector<std::string> linesOf(const RowSource& rows) {
    std::vector<std::string> lines;
    for (int row = 0; row < rows.rowCount(); ++row)
        lines.push_back(rowText(rows, row));
    return lines;
}

const SourcesChoice bod = {1, SourcesBy::source, {}};

} // namespace

TEST(SourceRows, AreWhatComesInAndWhatIsLost) {
    const SourceRows rows(scopeOfFiles({withWorks(30)}), bod);
    EXPECT_EQ(linesOf(rows), (std::vector<std::string>{"sewage works|Works|1|2|30.00|15.00|75.0",
                                                       "headwater|Head of Reach 1|1|0|10.00|5.000|25.0",
                                                       "loss|Intake|1|6|20.00||"}));
    EXPECT_EQ(rows.heading().substr(0, rows.heading().find('\n')),
              "Mean load of BOD at reach 1 Reach 1, 6 km: 20.00 (a.sgr).");
    EXPECT_NE(rows.heading().find("An estimate: "), std::string::npos);
}

TEST(SourceRows, HaveABlockARunAndARowASource) {
    const SourceRows rows(scopeOfFiles({withWorks(0), withWorks(30)}), bod);
    // The first run has no works, so that they follow its sources.
    EXPECT_EQ(linesOf(rows),
              (std::vector<std::string>{"headwater|Head of Reach 1|1|0|10.00|5.000|100.0|10.00|5.000|25.0",
                                        "sewage works|Works|1|2||||30.00|15.00|75.0",
                                        "loss|Intake|1|6|5.000|||20.00||"}));
    EXPECT_EQ(rows.column(9).heading, "Share %\nb.sgr");
    EXPECT_EQ(rows.column(9).column.flatName(), "b.sgr_share");
}

TEST(SourceRows, TellOfManyRunsTheLeastAndTheMost) {
    std::vector<ResultsFileBuilder> files;
    for (const double works : {30, 10, 50, 20})
        files.push_back(withWorks(works));
    const SourceRows rows(scopeOfFiles(files), bod);
    EXPECT_EQ(rows.heading().substr(0, rows.heading().find('\n')),
              "Mean load of BOD at reach 1 Reach 1, 6 km: 10.00 to 30.00 in 4 runs.");
}

TEST(SourceRows, AreSummedUpByKind) {
    const SourceRows rows(scopeOfFiles({withWorks(0), withWorks(30)}), {1, SourcesBy::kind, {}});
    EXPECT_EQ(linesOf(rows), (std::vector<std::string>{"headwater|10.00|5.000|100.0|10.00|5.000|25.0",
                                                       "sewage works||||30.00|15.00|75.0"}));
    EXPECT_EQ(rows.place(0, 0), std::nullopt);
}

TEST(SourceRows, AreThoseOfTheFlowToo) {
    ResultsFileBuilder file = riverOf({{1, 10}});
    file.point(1, 0, "P").setAll(0).set(ValueField::meanValue, 0, 7.0);
    const SourceRows rows(scopeOfFiles({file}), {0, SourcesBy::source, {}});
    EXPECT_EQ(linesOf(rows), std::vector<std::string>{"headwater|Head of Reach 1|1|0|7.000|7.000|100.0"});
    EXPECT_EQ(rows.heading().substr(0, 20), "Mean flow at reach 1");
    EXPECT_EQ(rows.series(0, 0), 0);
}

TEST(SourceRows, AreThoseAtThePlaceAskedFor) {
    const SourceRows rows(scopeOfFiles({withWorks(30)}), {1, SourcesBy::source, ExplorePlace{1, 3, ""}});
    EXPECT_EQ(linesOf(rows), (std::vector<std::string>{"sewage works|Works|1|2|30.00|30.00|75.0",
                                                       "headwater|Head of Reach 1|1|0|10.00|10.00|25.0"}));
}

TEST(SourceRows, KnowWhereTheirSourceIs) {
    const SourceRows rows(scopeOfFiles({withWorks(30)}), bod);
    EXPECT_EQ(rows.place(0, 0), (ExplorePlace{1, 2, ""}));
    EXPECT_EQ(rows.rowsAt({1, 2, "D/S"}), std::vector<int>{0});
    EXPECT_EQ(rows.rowsAt({1, 3, ""}), std::vector<int>());
    EXPECT_EQ(rows.series(0, 0), 2);
}

TEST(SourceRows, HaveBarsAsLongAsTheirSharesOfTheLargest) {
    const SourceRows rows(scopeOfFiles({withWorks(30)}), bod);
    EXPECT_EQ(rows.bar(0, 6), 1);
    EXPECT_DOUBLE_EQ(rows.bar(1, 6), 1.0 / 3);
    EXPECT_EQ(rows.bar(2, 6), 0); // what is lost has no share
}

TEST(SourceRows, SayWhatRefusesThem) {
    const SourceRows negative(scopeOfFiles({loads({{0, -1, "P", 10}})}), bod);
    EXPECT_EQ(negative.rowCount(), 0);
    EXPECT_EQ(negative.heading(), "");
    EXPECT_EQ(negative.whyEmpty().substr(0, 7), "a.sgr: ");
    const SourceRows before(scopeOfFiles({loads({{2, 1, "P", 10}})}),
                            {1, SourcesBy::source, ExplorePlace{1, 1, ""}});
    EXPECT_EQ(before.rowCount(), 0);
    EXPECT_EQ(before.whyEmpty().substr(0, 7), "a.sgr: ");
    ResultsFileBuilder circle;
    circle.determinand(1, "BOD").reach(1, "A", 1, 2).reach(2, "B", 1, 1).point(1, 0, "P").setAll(1);
    EXPECT_EQ(SourceRows(scopeOfFiles({circle}), bod).whyEmpty(), "a.sgr: Reaches 1, 2 run in a circle");
    TableScope hidden = scopeOfFiles({withWorks(1)});
    hidden.runs.clear();
    EXPECT_EQ(SourceRows(hidden, bod).whyEmpty(), "Show a run to see where its loads come from.");
}

} // namespace korvel
