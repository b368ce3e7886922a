#include "explore/PathChoice.h"
#include "explore/ThreeReaches.h"

#include <gtest/gtest.h>

#include <ostream>

namespace korvel {

void PrintTo(const PathEnds& ends, std::ostream* out) {
    *out << ends.from << " to " << ends.to;
}

namespace {

struct PathChoice : testing::Test {
    ExploreState state = stateOf("a");
    const RunFile& run = *state.study->base().file;
    const Network& network = *state.network;
};

} // namespace

TEST_F(PathChoice, BeginsWithTheRiverToTheMouthOfTheLargestFlow) {
    EXPECT_EQ(firstPath(run, network), (PathEnds{1, 3}));
}

TEST(FirstPath, EndsAtAMouthWithoutPointsWhereMostFlowsIn) {
    ResultsFileBuilder file;
    file.determinand(1, "BOD").reach(1, "Small", 5, 0).reach(2, "Large", 5, 3).reach(3, "Mouth", 1, 0);
    file.point(1, 1, "A", 10).setAll(1);
    file.point(2, 1, "B", 10).setAll(2);
    const SharedRun run = runOf(file);
    EXPECT_EQ(firstPath(*run, networkOf(*run)), (PathEnds{2, 3}));
}

TEST_F(PathChoice, TakesTheRiverThroughAReach) {
    for (const auto& [reach, expected] :
         {std::pair{1, PathEnds{1, 3}}, {3, {1, 3}}, {2, {2, 2}}, {9, {9, 9}}, {77, {0, 0}}})
        EXPECT_EQ(riverThrough(run, network, reach), expected) << reach;
}

TEST_F(PathChoice, TakesASecondEndAboveOrBelow) {
    EXPECT_EQ(withEndAt(run, network, {1, 3}, 1), (PathEnds{1, 1}));
    EXPECT_EQ(withEndAt(run, network, {1, 3}, 2), (PathEnds{2, 3}));
    EXPECT_EQ(withEndAt(run, network, {2, 2}, 3), (PathEnds{2, 3}));
    EXPECT_EQ(withEndAt(run, network, {1, 3}, 9), std::nullopt);
}

TEST_F(PathChoice, OffersTheReachesBelowOne) {
    EXPECT_EQ(reachesFrom(run, network, 2), (std::vector<int>{2, 3}));
    EXPECT_EQ(reachesFrom(run, network, 9), (std::vector<int>{9}));
    EXPECT_TRUE(reachesFrom(run, network, 77).empty());
}

TEST_F(PathChoice, KeepsTheLowerEndWhereItCan) {
    EXPECT_EQ(withUpperEnd(run, network, {1, 3}, 2), (PathEnds{2, 3}));
    EXPECT_EQ(withUpperEnd(run, network, {1, 3}, 9), (PathEnds{9, 9}));
}

TEST(PathChoiceOfCircles, ShowsOneReachAtATime) {
    const SharedRun run =
        runOf(ResultsFileBuilder().determinand(1, "BOD").reach(1, "A", 5, 2).reach(2, "B", 5, 1));
    const Network network = networkOf(*run);
    EXPECT_EQ(firstPath(*run, network), (PathEnds{1, 1}));
    EXPECT_EQ(riverThrough(*run, network, 2), (PathEnds{2, 2}));
    EXPECT_EQ(reachesFrom(*run, network, 1), (std::vector<int>{1, 2}));
}

} // namespace korvel
