#include "analysis/Check.h"

#include "analysis/RiverSample.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

using enum ValueField;

std::string told(const ResultsFileBuilder& file, std::size_t places = FirstPlaces) {
    std::string text;
    for (const CheckFinding& finding : checkRun(*runOf(file), places)) {
        text += std::string(nameOf(finding.kind)) + " " + std::to_string(finding.count) + "\n";
        for (const CheckPlace& place : finding.places)
            text += "  " + (place.reach ? std::to_string(*place.reach) : "-") + " " +
                    (place.distance ? std::to_string(static_cast<int>(*place.distance)) : "-") + " " +
                    place.feature.value_or("-") + " " + place.series.value_or("-") + ": " + place.what + "\n";
    }
    return text;
}

// One point without findings.
ResultsFileBuilder cleanPoint() {
    return oneReach({{1, 0, 0, 0, 0, 10, 0, "Weir"}});
}

} // namespace

TEST(Check, FindsNothingInACleanFile) {
    EXPECT_EQ(told(cleanPoint()), "");
}

TEST(Check, FindsPercentilesOutOfOrder) {
    EXPECT_EQ(told(cleanPoint()
                       .set(percentileValues, 1, 3, 0)
                       .set(percentileValues, 1, 2, 1)
                       .set(percentileValues, 1, 4, 2)),
              "percentile_order 1\n  1 1 Weir BOD (Conc): the 90, 95 and 99 percentiles are 3, 2 and 4\n");
    EXPECT_EQ(told(cleanPoint().set(percentileValues, 2, 1, 1)),
              "percentile_order 1\n  1 1 Weir BOD (Load): the 90, 95 and 99 percentiles are 0, 1 and 0\n");
    // The flow's may run the other way.
    EXPECT_EQ(told(cleanPoint()
                       .set(percentileValues, 0, 3, 0)
                       .set(percentileValues, 0, 2, 1)
                       .set(percentileValues, 0, 1, 2)),
              "");
}

TEST(Check, FindsAMeanAboveThe99Percentile) {
    EXPECT_EQ(told(cleanPoint().set(meanValue, 1, 5).set(percentileValues, 1, 4.5, 2)),
              "mean_above_p99 1\n  1 1 Weir BOD (Conc): the mean is 5, the 99 percentile 4.5\n");
    EXPECT_EQ(told(cleanPoint().set(meanValue, 0, 5)), "");
}

TEST(Check, FindsLimitsThatDoNotBracketTheirValue) {
    EXPECT_EQ(told(cleanPoint().set(meanLimit1, 1, 2).set(meanLimit2, 1, 1)),
              "limits 1\n  1 1 Weir BOD (Conc): the mean is 0, its limits 1 and 2\n");
    EXPECT_EQ(told(cleanPoint().set(percentileLimit1, 1, 1, 2)), "") << "a limit of 0 is the value itself";
    EXPECT_EQ(told(cleanPoint()
                       .set(percentileLimit1, 2, 1, 2)
                       .set(percentileLimit2, 2, 1, 2)
                       .set(percentileLimit2, 2, 3, 0)
                       .set(percentileLimit1, 2, 2, 0)),
              "limits 1\n  1 1 Weir BOD (Load): the 90 percentile is 0, its limits 2 and 3\n");
}

TEST(Check, FindsValuesBelow0) {
    EXPECT_EQ(told(cleanPoint().set(meanValue, 0, -1)), "negative 1\n  1 1 Weir Flow: the mean is -1\n");
    EXPECT_EQ(told(cleanPoint().set(percentileValues, 1, -1, 0).set(percentileValues, 1, -1, 1)),
              "negative 1\n  1 1 Weir BOD (Conc): the 90 percentile is -1\n");
}

TEST(Check, FindsDistancesThatGoBackOrBeyondTheEnd) {
    EXPECT_EQ(told(oneReach({{5, 0}, {4, 0}, {4, 0}, {10.1, 0}, {11, 0}})),
              "distance_order 1\n  1 4 P -: lies above the point before it\n"
              "distance_beyond_reach 1\n  1 11 P -: the reach is 10 km long\n"
              "label_twice 1\n  1 5 P -: has the label of the point in reach 1 at 4 km\n");
}

TEST(Check, FindsReachesWithoutPointsOrWithoutAnEnd) {
    ResultsFileBuilder file;
    file.determinand(1, "BOD").reach(1, "A", 10, 77).reach(2, "B", 10, 2);
    addPoints(file, 1, {{0, 0}});
    EXPECT_EQ(told(file), "reach_without_points 1\n  2 - - -: the reach has no points\n"
                          "next_without_line 1\n  1 - - -: runs into reach 77, which has no line\n"
                          "circle 1\n  2 - - -: Reach 2 runs in a circle\n");
}

TEST(Check, FindsConfluencesThatDoNotAddUp) {
    const auto river = [](double flow, double load) {
        ResultsFileBuilder file;
        file.determinand(1, "BOD")
            .reach(1, "A", 10, 3)
            .reach(2, "B", 10, 3)
            .reach(3, "C", 10, 4)
            .reach(4, "D", 10, 0);
        addPoints(file, 1, {{0, 0}})
            .set(meanValue, 0, 40)
            .set(meanValue, 2, 4)
            .set(percentileValues, 2, 4, 2);
        addPoints(file, 2, {{0, 0, 0, 0, 0, 0}}).set(meanValue, 0, 60);
        addPoints(file, 4, {{0, 0, 0, 0, 0, 10, 0, "Ford"}})
            .set(meanValue, 0, flow)
            .set(meanValue, 2, load)
            .set(percentileValues, 2, 9, 2);
        return file;
    };
    const std::string empty = "reach_without_points 1\n  3 - - -: the reach has no points\n";
    EXPECT_EQ(told(river(100, 4)), empty);
    EXPECT_EQ(told(river(98, 4)), empty);
    EXPECT_EQ(told(river(97.9, 4.1)),
              empty + "confluence 2\n  4 0 Ford Flow: 100 runs in, the first point has 97.9\n"
                      "  4 0 Ford BOD (Load): 4 runs in, the first point has 4.1\n");
}

TEST(Check, FindsSamplesWithoutATargetAndTargetsWithoutSamples) {
    ResultsFileBuilder file = riverOf({{1, 10}, {2, 10}});
    addPoints(file, 1, {{0, 0, 0, 0, 0, 1, 5, "Gauge"}, {1, 0, 4, 0, 0, 10, 0, "Weir"}});
    addPoints(file, 2, {{0, 0, 4, 0, 0, 1, 0, "Ford"}});
    EXPECT_EQ(
        told(file),
        "observed_without_target 1\n  1 0 Gauge BOD (Conc): was observed and has no target\n"
        "target_without_station 1\n  2 - - BOD (Conc): has a target and was observed nowhere in the reach\n");
}

TEST(Check, FindsOneLabelAtTwoPlaces) {
    ResultsFileBuilder file = riverOf({{1, 10}, {2, 10}});
    const auto at = [](double distance, const char* label, int type) {
        return PointSample{distance, 0, 0, 0, 0, type, 0, label};
    };
    addPoints(
        file, 1,
        {at(0, "U/S Mill", 3), at(0, "D/S Mill", 3), at(1, "Weir", 0), at(2, "Ford", 99), at(3, "", 3)});
    addPoints(file, 2,
              {at(1, "Weir", 0), at(2, "Ford", 3), at(3, "", 3), at(4, "Bridge", 1), at(5, "Bridge", 2),
               at(6, "Bridge", 2)});
    EXPECT_EQ(told(file), "label_twice 1\n  2 4 Bridge -: has the label of the point in reach 2 at 5 km\n");
}

TEST(Check, GivesTheFirstTenPlacesPointByPoint) {
    ResultsFileBuilder file = riverOf({{1, 100}});
    for (int k = 0; k < 8; ++k)
        addPoints(file, 1, {{1.0 * k, -1, 0, 0, 0, 0}}).set(meanValue, 0, -1);
    const auto findings = checkRun(*runOf(file));
    ASSERT_EQ(findings.size(), 1u);
    EXPECT_EQ(findings[0].count, 16);
    ASSERT_EQ(findings[0].places.size(), 10u);
    EXPECT_EQ(findings[0].places[0].series, "Flow");
    EXPECT_EQ(findings[0].places[1].series, "BOD (Conc)");
    EXPECT_EQ(findings[0].places[9].distance, 4);
    EXPECT_EQ(checkRun(*runOf(file), AllPlaces)[0].places.size(), 16u);
}

TEST(Check, LeavesOutReachesWithoutALine) {
    ResultsFileBuilder file = cleanPoint();
    addPoints(file, 9, {{0, -1, 0, 0, 0, 1, 5}});
    EXPECT_EQ(told(file), "");
}

TEST(Check, TellsConfluencesReachByReach) {
    ResultsFileBuilder file;
    file.determinand(1, "BOD").reach(1, "A", 10, 2).reach(2, "B", 10, 3).reach(3, "C", 10, 0);
    for (const int reach : {1, 2, 3})
        addPoints(file, reach, {{0, 0, 0, 0, 0, 10, 0, ""}})
            .set(meanValue, 0, reach)
            .set(meanValue, 2, 10 * reach)
            .set(percentileValues, 2, 99, 2);
    EXPECT_EQ(told(file), "confluence 4\n"
                          "  2 0  Flow: 1 runs in, the first point has 2\n"
                          "  2 0  BOD (Load): 10 runs in, the first point has 20\n"
                          "  3 0  Flow: 2 runs in, the first point has 3\n"
                          "  3 0  BOD (Load): 20 runs in, the first point has 30\n");
}

} // namespace korvel
