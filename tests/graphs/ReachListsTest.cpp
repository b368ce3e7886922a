#include "graphs/setup/ReachLists.h"

#include "graphs/SmallCatchment.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

std::vector<int> numbersOf(const std::vector<ListedReach>& reaches) {
    std::vector<int> numbers;
    for (const ListedReach& reach : reaches)
        numbers.push_back(reach.number);
    return numbers;
}

} // namespace

TEST(ReachLists, ListReachesInTheOrderOfTheirLines) {
    const auto results = smallCatchment();
    EXPECT_EQ(listedReaches(*results), (std::vector<ListedReach>{{1, "1 Upper Mill      "},
                                                                 {7, "7 Side Brook      "},
                                                                 {2, "2 Middle Mill     "},
                                                                 {3, "3 Lower Mill      "}}));
}

TEST(ReachLists, BeginTheLineOfReach0WithItsBlank) {
    const auto results = smallCatchment();
    results->reachOrder[0] = 0;
    results->reachNames.set(0, "Head            ");
    EXPECT_EQ(listedReaches(*results)[0], (ListedReach{0, " Head            "}));
}

TEST(ReachLists, FollowATypedLevelInTheirLength) {
    const auto results = smallCatchment();
    results->typedPercentileLevel() = 6;
    EXPECT_EQ(numbersOf(listedReaches(*results)), (std::vector<int>{1, 7, 2, 3, 0, 0}));
    results->typedPercentileLevel() = 2;
    EXPECT_EQ(numbersOf(listedReaches(*results)), (std::vector<int>{1, 7}));
    results->typedPercentileLevel() = -5;
    EXPECT_TRUE(listedReaches(*results).empty());
}

TEST(ReachLists, FollowTheRiverDownstreamToItsEnd) {
    const auto results = smallCatchment();
    EXPECT_EQ(numbersOf(downstreamReaches(*results, 7)), (std::vector<int>{7, 3}));
    EXPECT_EQ(numbersOf(downstreamReaches(*results, 3)), (std::vector<int>{3}));
}

TEST(ReachLists, EndTheChainBeforeAReachThatIsAlreadyInIt) {
    const auto results = smallCatchment();
    results->reachNext.set(3, 1);
    EXPECT_EQ(numbersOf(downstreamReaches(*results, 1)), (std::vector<int>{1, 2, 3}));
    EXPECT_EQ(numbersOf(downstreamReaches(*results, 7)), (std::vector<int>{7, 3, 1, 2}));
    results->reachNext.set(3, 3);
    EXPECT_EQ(numbersOf(downstreamReaches(*results, 3)), (std::vector<int>{3}));
}

TEST(ReachLists, EndTheChainAtANumberWithoutAReachLine) {
    const auto results = smallCatchment();
    for (int number : {44, 60000, -1}) {
        results->reachNext.set(3, number);
        EXPECT_EQ(numbersOf(downstreamReaches(*results, 1)), (std::vector<int>{1, 2, 3})) << number;
    }
}

TEST(ReachLists, ListTheSeriesFromFlowOn) {
    const auto results = smallCatchment();
    EXPECT_EQ(listedSeries(*results), (std::vector<std::string>{"Flow", "BOD (Conc)", "Ammonia (Conc)",
                                                                "BOD (Load)", "Ammonia (Load)"}));
}

} // namespace korvel
