// Every table of the analyses, over one small river whose figures are worked out by hand.
#include "analysis/ChangeTable.h"
#include "analysis/ComplianceTable.h"
#include "analysis/FitTable.h"
#include "analysis/SourcesTable.h"
#include "analysis/TidyTable.h"
#include "fakes/StudySample.h"
#include "tables/Csv.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

using enum ValueField;

struct Point {
    int reach;
    double distance;
    const char* label;
    int type;
    double bod, target, low, high, observed, load;
};

// Reach 1 runs into 2; their points stand in turn. Reach 3 is empty. BOD is series 1, its load series 2.
ResultsFileBuilder river(double bodAtMill, double lowAtMill, double highAtMill) {
    ResultsFileBuilder file;
    file.determinand(1, "BOD", 1).reach(1, "Upper", 10, 2).reach(2, "Lower", 8, 0).reach(3, "Empty", 5, 0);
    for (const Point& each : {Point{1, 0, "Head", 0, 2, 4, 1, 3, 0, 25},
                              {2, 0, "Ford", 1, 6, 5, 5.5, 7, 4, 100},
                              {1, 4, "Mill", 1, bodAtMill, 4, lowAtMill, highAtMill, 5, 50},
                              {2, 2, "", 99, 1, 0, 0, 0, 0, 50}}) {
        file.point(each.reach, each.distance, each.label, each.type).setAll(0).set(meanValue, 0, 10);
        file.set(meanValue, 1, each.bod).set(meanLimit1, 1, each.low).set(meanLimit2, 1, each.high);
        file.set(targetValue, 1, each.target).set(observedMean, 1, each.observed);
        file.set(meanValue, 2, each.load);
        if (each.reach == 2 && each.distance == 0) file.set(observedMean, 0, 5);
    }
    return file;
}

struct AnalysisTables : testing::Test {
    // Lines without their ends.
    static std::vector<std::string> rowsOf(const Table& table) {
        std::string text;
        OutputBytes bytes([&](std::string_view part) { text += part; });
        writeCsv(table, bytes);
        bytes.flush();
        std::vector<std::string> rows;
        for (std::size_t at = 0, end = 0; (end = text.find("\r\n", at)) != std::string::npos; at = end + 2)
            rows.push_back(text.substr(at, end - at));
        return rows;
    }
    using Rows = std::vector<std::string>;

    Study study = studyOf({river(3, 2, 5), river(1, 0.5, 1.5)});
    const StudyRun& base = study.runs().front();
    const StudyRun& run = study.runs().back();
    ChangeRequest changes{{1}, Statistic::mean, {}, false};
    ComplianceRequest judging{{1}, {}, {}};
};

} // namespace

TEST_F(AnalysisTables, TellEveryValueInTidyRows) {
    EXPECT_EQ(rowsOf(tidyTable(sequenceOf(study), {{0, 1}, {Statistic::mean}, ReachChoice({1}), false})),
              (Rows{"run,reach,reach_name,distance,to_mouth,feature,side,type,series,statistic,value,low,"
                    "high,observed,target",
                    "a.sgr,1,Upper,0,18,Head,,0,Flow,mean,10,,,,",
                    "a.sgr,1,Upper,0,18,Head,,0,BOD (Conc),mean,2,1,3,,4",
                    "a.sgr,1,Upper,4,14,Mill,,1,Flow,mean,10,,,,",
                    "a.sgr,1,Upper,4,14,Mill,,1,BOD (Conc),mean,3,2,5,5,4",
                    "b.sgr,1,Upper,0,18,Head,,0,Flow,mean,10,,,,",
                    "b.sgr,1,Upper,0,18,Head,,0,BOD (Conc),mean,2,1,3,,4",
                    "b.sgr,1,Upper,4,14,Mill,,1,Flow,mean,10,,,,",
                    "b.sgr,1,Upper,4,14,Mill,,1,BOD (Conc),mean,1,0.5,1.5,5,4"}));
}

TEST_F(AnalysisTables, TellChangesByReachRiverAndPoint) {
    const ComparedRun pair = compared(base, run);
    EXPECT_EQ(rowsOf(changesByReach(pair, changes)),
              (Rows{"reach,series,statistic,base_mean,run_mean,change,percent,largest_rise_value,"
                    "largest_rise_distance,largest_rise_feature,largest_fall_value,largest_fall_distance,"
                    "largest_fall_feature,clear_rises,clear_falls,points",
                    "1,BOD (Conc),mean,2.5,1.5,-1,-40,,,,-2,4,Mill,0,1,2",
                    "2,BOD (Conc),mean,3.5,3.5,0,0,,,,,,,0,0,2", "3,BOD (Conc),mean,,,,,,,,,,,0,0,0"}));
    // 4 km of 2.5 and 2 km of 3.5 before, 4 km of 1.5 after.
    EXPECT_EQ(rowsOf(changesByRiver(pair, networkOf(*base.file), changes)).at(1),
              "Lower,BOD (Conc),mean,2.8333333333333335,2.1666666666666665,-0.666666666666667,"
              "-23.52941176470589,,,,,-2,1,4,Mill,0,1,4");
    EXPECT_EQ(rowsOf(changesByPoint(pair, changes)),
              (Rows{"reach,distance,side,feature,series,statistic,base,value,change,percent,clear",
                    "1,0,,Head,BOD (Conc),mean,2,2,0,0,unclear", "2,0,,Ford,BOD (Conc),mean,6,6,0,0,unclear",
                    "1,4,,Mill,BOD (Conc),mean,3,1,-2,-66.66666666666667,fall"}));
}

TEST_F(AnalysisTables, TellComplianceByReach) {
    const std::string heading =
        "reach,determinand,statistic,judged_length,failing_length,judged_points,failing_points,sure_fails,"
        "sure_passes,unsure,verdict,confident_verdict,worst_distance,worst_feature,worst_value,worst_target,"
        "worst_ratio,needed,headroom,change_verdict,change_failing_length,change_deteriorated";
    const std::string empty = "3,BOD,mean,0,0,0,0,0,0,0,,,,,,,,,";
    EXPECT_EQ(rowsOf(complianceByReach({run, base}, judging).front()),
              (Rows{heading, "1,BOD,mean,4,0,2,0,0,2,0,pass,pass,0,Head,2,4,0.5,0,100,same,0,false",
                    "2,BOD,mean,2,0.4,1,1,1,0,0,fail,fail,0,Ford,6,5,1.2,16.666666666666668,0,same,0,false",
                    empty + ",same,0,"}));
    EXPECT_EQ(
        rowsOf(complianceByReach({base, {}}, judging).front()),
        (Rows{heading, "1,BOD,mean,4,0,2,0,0,1,1,pass,unsure,4,Mill,3,4,0.75,0,33.333333333333336,,,",
              "2,BOD,mean,2,0.4,1,1,1,0,0,fail,fail,0,Ford,6,5,1.2,16.666666666666668,0,,,", empty + ",,,"}));
    EXPECT_EQ(rowsOf(complianceByReach({base, {}}, judging).back()),
              (Rows{"reach,verdict,confident_verdict,failing", "1,pass,unsure,", "2,fail,fail,BOD", "3,,,"}));
}

TEST_F(AnalysisTables, TellComplianceByDeterminandAndRiver) {
    const std::string heading =
        "determinand,statistic,judged_length,failing_length,judged_points,failing_points,sure_fails,"
        "sure_passes,unsure,reaches_failing,reaches_judged";
    EXPECT_EQ(rowsOf(complianceByDeterminand(base, judging)),
              (Rows{heading, "BOD,mean,6,0.4,3,1,1,1,1,1,2"}));
    EXPECT_EQ(
        rowsOf(complianceByRiver(base, networkOf(*base.file), judging)),
        (Rows{"river," + heading, "Lower,BOD,mean,6,0.4,3,1,1,1,1,1,2", "Empty,BOD,mean,0,0,0,0,0,0,0,0,0"}));
}

// In the order of the file, not reach by reach.
TEST_F(AnalysisTables, TellComplianceByPointAndStation) {
    EXPECT_EQ(rowsOf(complianceByPoint(base, judging)),
              (Rows{"reach,distance,side,feature,determinand,statistic,value,low,high,target,ratio,verdict,"
                    "confident",
                    "1,0,,Head,BOD,mean,2,1,3,4,0.5,pass,pass", "2,0,,Ford,BOD,mean,6,5.5,7,5,1.2,fail,fail",
                    "1,4,,Mill,BOD,mean,3,2,5,4,0.75,pass,unsure"}));
    EXPECT_EQ(rowsOf(complianceByStation(base, judging)),
              (Rows{"reach,distance,feature,determinand,statistic,value,observed,target,verdict,"
                    "observed_verdict",
                    "2,0,Ford,BOD,mean,6,4,5,fail,pass", "1,4,Mill,BOD,mean,3,5,4,pass,fail"}));
}

// The reaches' points stand in turn, so that the first stations are not those of the first reach.
TEST_F(AnalysisTables, TellTheFirstStationsAndWhatAllOfThemSay) {
    const ComplianceRequest judging{{1}, {}, {}, 10};
    ResultsFileBuilder file;
    file.determinand(1, "BOD", 1);
    constexpr int reaches = 4;
    for (int reach = 1; reach <= reaches; ++reach)
        file.reach(reach, "R", 10, reach < reaches ? reach + 1 : 0);
    for (int k = 0; k < 10; ++k)
        for (int reach = reaches; reach >= 1; --reach)
            file.point(reach, k, "P", 10)
                .setAll(0)
                .set(meanValue, 1, k)
                .set(targetValue, 1, 4.5)
                .set(observedMean, 1, 1 + reach);
    const StudyRun stations = studyOf({file}).base();
    const std::vector<StationRow> all = stationRows(stations, judging);
    ASSERT_EQ(all.size(), 40U);
    for (const std::size_t most : {0, 1, 3, 39, 40, 100}) {
        const Stations first = firstStations(stations, judging, most);
        ASSERT_EQ(first.first.size(), std::min<std::size_t>(most, 40)) << most;
        for (std::size_t k = 0; k < first.first.size(); ++k)
            EXPECT_EQ(first.first[k].station.point, all[k].station.point) << most;
        EXPECT_EQ(first.count, 40U);
        EXPECT_EQ(first.agreement.pass, 15) << "the samples fail in reach 4 alone";
        EXPECT_EQ(first.agreement.fail, 5);
        EXPECT_EQ(first.agreement.modelOnly, 15);
        EXPECT_EQ(first.agreement.observedOnly, 5);
    }
}

TEST_F(AnalysisTables, AddReachesUpToTheSameSums) {
    const auto sums = complianceSums(base, judging, complianceRows({base, {}}, judging));
    const auto judged = complianceSums(base, {wholeGroup(*base.file, {})}, judging);
    ASSERT_EQ(sums.size(), judged.size());
    EXPECT_EQ(sums[0].sums.failingLength, judged[0].sums.failingLength);
    EXPECT_EQ(sums[0].sums.judgedPoints, 3);
    EXPECT_EQ(sums[0].reachesFailing, 1);
    EXPECT_EQ(sums[0].reachesJudged, 2);
}

TEST_F(AnalysisTables, TellTheFitByPointWorstFirst) {
    EXPECT_EQ(rowsOf(fitByPoint(base, {{0, 1}, {Statistic::mean}, {}})),
              (Rows{"reach,distance,feature,series,statistic,observed,value,low,high,error,percent",
                    "2,0,Ford,Flow,mean,5,10,,,5,100", "2,0,Ford,BOD (Conc),mean,4,6,5.5,7,2,50",
                    "1,4,Mill,BOD (Conc),mean,5,3,2,5,-2,-40"}));
}

// 25 come in at the head and 25 along reach 1, 50 at the start of reach 2, where half of all is lost.
TEST_F(AnalysisTables, TellSourcesKindsAndLosses) {
    const LoadSources sources = sourcesOf(*base.file, networkOf(*base.file), 2, {2, {}});
    const Rows rows = {"kind,name,reach,distance,load,arrives,share",
                       "start of reach,Start of Lower,2,,50,25,50", "headwater,Head of Upper,1,0,25,12.5,25",
                       "diffuse,Along Upper,1,,25,12.5,25"};
    EXPECT_EQ(rowsOf(sourcesTable(sources)), rows);
    Rows withLosses = rows;
    withLosses.emplace_back("loss,Along Lower,2,,50,,");
    EXPECT_EQ(rowsOf(sourcesAndLosses(sources)), withLosses);
    EXPECT_EQ(rowsOf(kindsTable(sources)), (Rows{"kind,load,arrives,share", "headwater,25,12.5,25",
                                                 "diffuse,25,12.5,25", "start of reach,50,25,50"}));
    EXPECT_EQ(rowsOf(lossesTable(sources)), (Rows{"name,reach,distance,load", "Along Lower,2,,50"}));
}

} // namespace korvel
