#include "study/PointMatch.h"
#include "fakes/StudySample.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

ResultsFileBuilder reaches() {
    return ResultsFileBuilder().determinand(1, "BOD").reach(1, "A").reach(2, "B");
}

PointMatch match(const ResultsFileBuilder& base, const ResultsFileBuilder& run) {
    return matchPoints(*runOf(base), *runOf(run));
}

using Points = std::vector<int>;

} // namespace

TEST(PointMatch, ComparesReachDistanceAndSide) {
    const PointMatch found = match(
        reaches().point(1, 0, "Weir").point(1, 1, "U/S Mill").point(1, 1, "D/S Mill").point(2, 1, "Bridge"),
        reaches()
            .point(1, 0, "Ford", 99)
            .point(1, 1, "D/S Mill")
            .point(1, 1, "Mill")
            .point(2, 1.5, "Bridge"));
    EXPECT_EQ(found.ofBase, (Points{0, 1, 0, 2, 0}));
    EXPECT_EQ(found.ofRun, (Points{0, 1, 3, 0, 0}));
}

TEST(PointMatch, TakesTheFirstOfEqualOnesWithTheFirst) {
    const PointMatch found =
        match(reaches().point(1, 2, "A").point(1, 0, "B").point(1, 2, "C").point(1, 2, "D"),
              reaches().point(1, 0, "E").point(1, 2, "F").point(1, 2, "G"));
    EXPECT_EQ(found.ofBase, (Points{0, 2, 1, 3, 0}));
}

TEST(PointMatch, LeavesOutReachesWithoutALine) {
    const PointMatch found = match(reaches().point(7, 0, "A"), reaches().point(7, 0, "A"));
    EXPECT_EQ(found.ofBase, (Points{0, 0}));
}

TEST(PointMatch, FindsAnAddedPointAmongTheOthers) {
    const PointMatch found =
        match(reaches().point(1, 0, "A").point(1, 1, "B").point(2, 0, "C"),
              reaches().point(1, 0, "A").point(1, 0.5, "New").point(1, 1, "B").point(2, 0, "C"));
    EXPECT_EQ(found.ofBase, (Points{0, 1, 3, 4}));
    EXPECT_EQ(found.ofRun, (Points{0, 1, 0, 2, 3}));
}

TEST(PointMatch, TakesZeroWithASignForZero) {
    const auto minusZero = reaches().pointLine("1,-0.0,\"A   \",0,0").point(1, 1, "B");
    EXPECT_EQ(match(reaches().point(1, 1, "B").point(1, 0, "A"), minusZero).ofBase, (Points{0, 2, 1}));
}

} // namespace korvel
