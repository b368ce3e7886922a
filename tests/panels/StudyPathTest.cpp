#include "panels/StudyPath.h"

#include "analysis/RiverSample.h"
#include "study/PointMatch.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace korvel {

namespace {

// Two reaches of 10 and 5 km that run on into each other, and points with labels as in a file.
ResultsFileBuilder twoReaches() {
    return riverOf({{4, 10}, {2, 5}});
}

struct Labelled {
    int reach;
    double distance;
    const char* label;
    int type = 3;
};

ResultsFileBuilder withPoints(const std::vector<Labelled>& points) {
    ResultsFileBuilder file = twoReaches();
    for (const Labelled& point : points)
        file.point(point.reach, point.distance, point.label, point.type).setAll(1);
    return file;
}

StudyPath wholePath(const Study& study) {
    return studyPath(study, mainReaches(study));
}

std::string placesOf(const Study& study, const StudyPath& path) {
    std::string text;
    for (std::size_t k = 0; k < path.places.size(); ++k) {
        const PathPlace& place = path.places[k];
        text += (k > 0 ? "; " : "") + std::to_string(static_cast<int>(place.km)) + " " +
                sideAt(study, place) + featureAt(study, place) + " of";
        for (std::size_t run = 0; run < study.runs().size(); ++run)
            text += " " + std::to_string(path.pointOf[run][k]);
    }
    return text;
}

} // namespace

TEST(StudyPath, BeginsWithZeroAtTheFirstReach) {
    const Study study = studyOf({withPoints({{4, 1, "A"}, {4, 10, "B"}, {2, 0, "C"}, {2, 5, "D"}})});
    const StudyPath path = wholePath(study);
    ASSERT_EQ(path.reaches.size(), 2U);
    EXPECT_EQ(path.reaches[0].number, 4);
    EXPECT_EQ(path.reaches[1].from, 10);
    EXPECT_EQ(path.reaches[1].name, "Reach 2");
    EXPECT_EQ(path.length(), 15);
    EXPECT_EQ(path.runs[0].km, (std::vector<double>{1, 10, 10, 15}));
    EXPECT_EQ(path.runs[0].starts, (std::vector<std::size_t>{0, 2, 4}));
    EXPECT_EQ(path.places.size(), 4U);
}

TEST(StudyPath, StandsWhereAnyRunHasAPoint) {
    const Study study =
        studyOf({withPoints({{4, 1, "A"}, {4, 4, "U/S Mill"}, {4, 4, "D/S Mill"}, {2, 5, "D"}}),
                 withPoints({{4, 1, "A"}, {4, 2, "New"}, {4, 4, "U/S Mill"}, {2, 5, "D"}}),
                 withPoints({{4, 2, "New"}, {4, 4, "D/S Mill"}, {4, 4, "D/S Mill"}})});
    const StudyPath path = wholePath(study);
    EXPECT_EQ(placesOf(study, path),
              "1 A of 1 1 0; 2 New of 0 2 1; 4 U/SMill of 2 3 0; 4 D/SMill of 3 0 2; 4 D/SMill of 0 0 3; "
              "15 D of 4 4 0");
    EXPECT_EQ(path.places[1].run, 1U);
    EXPECT_EQ(pointAt(path, 2, 1), 1);
    EXPECT_EQ(pointAt(path, 0, 1), std::nullopt);
}

TEST(StudyPath, MatchesPointsAsTheAnalysisDoes) {
    std::mt19937 random(21);
    for (int round = 0; round < 200; ++round) {
        const auto some = [&] {
            std::vector<Labelled> points;
            for (const int reach : {4, 2}) {
                std::vector<double> distances;
                for (std::size_t k = random() % 9; k > 0; --k)
                    distances.push_back(static_cast<double>(random() % 4));
                if (round % 4 != 0) std::ranges::sort(distances);
                for (const double distance : distances)
                    points.push_back({reach, distance, random() % 2 == 0 ? "U/S W" : "D/S W"});
            }
            return withPoints(points);
        };
        const Study study = studyOf({some(), some()});
        const StudyPath path = wholePath(study);
        const PointMatch match = matchPoints(*study.base().file, *study.runs()[1].file);
        std::size_t places = 0;
        for (std::size_t k = 0; k < path.places.size(); ++k) {
            const int ofBase = path.pointOf[0][k], ofRun = path.pointOf[1][k];
            ASSERT_TRUE(ofBase > 0 || ofRun > 0);
            if (ofBase > 0) {
                ASSERT_EQ(match.ofBase[static_cast<std::size_t>(ofBase)], ofRun) << round;
            }
            if (ofRun > 0) {
                ASSERT_EQ(match.ofRun[static_cast<std::size_t>(ofRun)], ofBase) << round;
            }
            if (k > 0) {
                ASSERT_LE(path.places[k - 1].km, path.places[k].km);
            }
            ++places;
        }
        std::size_t expected = static_cast<std::size_t>(study.base().results().pointCount);
        for (int i = 1; i <= study.runs()[1].results().pointCount; ++i)
            if (match.ofRun[static_cast<std::size_t>(i)] == 0) ++expected;
        ASSERT_EQ(places, expected) << round;
    }
}

TEST(StudyPath, CountsBothSidesOfAFeatureOnce) {
    const Study study = studyOf({withPoints({{4, 0, "Start of reach", 0},
                                             {4, 4, "U/S Mill"},
                                             {4, 4, "D/S Mill"},
                                             {4, 5, "Between", 99},
                                             {4, 6, "", 3},
                                             {4, 10, "End of reach", 10},
                                             {2, 1, "Weir"}})});
    const StudyPath path = wholePath(study);
    EXPECT_EQ(path.features, (std::vector<std::size_t>{1, 6}));
    EXPECT_EQ(nextFeature(path, 0, Along::down), 1U);
    EXPECT_EQ(nextFeature(path, 1, Along::down), 6U);
    EXPECT_EQ(nextFeature(path, 6, Along::down), std::nullopt);
    EXPECT_EQ(nextFeature(path, 6, Along::up), 1U);
    EXPECT_EQ(nextFeature(path, 1, Along::up), std::nullopt);
}

TEST(StudyPath, MayHaveNoPoints) {
    const Study study = studyOf({riverOf({{1, 8}})});
    const StudyPath path = wholePath(study);
    EXPECT_EQ(path.length(), 8);
    EXPECT_EQ(nearestPlace(path, 3), std::nullopt);
}

TEST(NearestPlace, IsTheLastOfSeveralForWhatLiesBeyond) {
    const Study study = studyOf({withPoints(
        {{4, 1, "A"}, {4, 4, "U/S M"}, {4, 4, "D/S M"}, {4, 5, "i", 99}, {4, 6, "i", 99}, {4, 8, "B"}})});
    const StudyPath path = wholePath(study);
    const struct {
        double km;
        std::size_t all, ordinary;
    } cases[] = {{-3, 0, 0},  {2, 0, 0},   {3, 1, 1},   {4, 1, 1},
                 {4.1, 2, 2}, {5.2, 3, 2}, {6.9, 4, 5}, {99, 5, 5}};
    for (const auto& [km, all, ordinary] : cases) {
        EXPECT_EQ(nearestPlace(path, km), all) << km;
        EXPECT_EQ(nearestPlace(path, km, Interpolated::left), ordinary) << km;
    }
    EXPECT_EQ(nextPlace(path, 2, Along::down), 3U);
    EXPECT_EQ(nextPlace(path, 2, Along::down, Interpolated::left), 5U);
    EXPECT_EQ(nextPlace(path, 5, Along::up, Interpolated::left), 2U);
    EXPECT_EQ(nextPlace(path, 5, Along::down), std::nullopt);
    EXPECT_EQ(nextPlace(path, 0, Along::up), std::nullopt);
}

} // namespace korvel
