#include "ScopeSample.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

ExploreState stateOf(const std::vector<ResultsFileBuilder>& files) {
    ExploreState state;
    state.study = std::make_shared<Study>(studyOf(files));
    state.network = std::make_shared<Network>(networkOf(*state.study->base().file));
    return state;
}

} // namespace

TEST(TableScope, HoldsTheRunsThatAreShown) {
    const auto file = oneReach({{0, 1}});
    ExploreState state = stateOf({file, file, file});
    state.hidden = {1};
    const TableScope scope = scopeOf(state);
    ASSERT_EQ(scope.runs.size(), 2U);
    EXPECT_EQ(scope.base.name, "a.sgr");
    EXPECT_EQ(scope.runs[1].name, "c.sgr");
    EXPECT_TRUE(isBase(scope, scope.runs[0]));
    EXPECT_FALSE(isBase(scope, scope.runs[1]));
}

TEST(TableScope, HoldsTheReachesOfThePath) {
    ExploreState state = stateOf({riverOf({{7, 1}, {5, 1}, {9, 1}})});
    EXPECT_EQ(scopeOf(state).path, std::vector<int>());
    state.from = 5, state.to = 9;
    EXPECT_EQ(scopeOf(state).path, (std::vector<int>{1, 2}));
    state.from = 9, state.to = 5; // upstream
    EXPECT_EQ(scopeOf(state).path, std::vector<int>());
    state.from = 4, state.to = 9; // no such reach
    EXPECT_EQ(scopeOf(state).path, std::vector<int>());
}

TEST(TableScope, TakesLowAsBadByNameUnlessTold) {
    ExploreState state = stateOf({oneReach({{0, 1}}, "Oxygen")});
    EXPECT_EQ(scopeOf(state).lowIsBad, std::set<int>{1});
    state.lowIsBad = std::set<int>();
    EXPECT_EQ(scopeOf(state).lowIsBad, std::set<int>());
}

TEST(MatchedRuns, MatchEachPairOnce) {
    const Study study = studyOf({oneReach({{0, 1}}), oneReach({{0, 2}}), oneReach({{0, 3}})});
    MatchedRuns matched;
    const auto first = matched.between(study.base(), study.runs()[1]);
    EXPECT_EQ(matched.between(study.base(), study.runs()[1]), first);
    EXPECT_NE(matched.between(study.base(), study.runs()[2]), first);
    matched.keepOnly(study.base(), {study.runs()[2]});
    EXPECT_NE(matched.between(study.base(), study.runs()[1]), first);
}

} // namespace korvel
