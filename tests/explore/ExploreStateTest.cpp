#include "explore/ExploreState.h"
#include "fakes/StudySample.h"

#include <gtest/gtest.h>

namespace korvel {

TEST(ExploreState, ShowsNoRunsWithoutAStudy) {
    EXPECT_TRUE(ExploreState().isEmpty());
    EXPECT_TRUE(ExploreState().shownRuns().empty());
}

TEST(ExploreState, ShowsTheRunsThatAreNotHiddenInTheirOrder) {
    const ResultsFileBuilder file = ResultsFileBuilder().determinand(1, "BOD").reach(1, "Upper", 10, 0);
    ExploreState state;
    state.study = std::make_shared<const Study>(studyOf({file, file, file}));
    EXPECT_EQ(state.shownRuns(), (std::vector<std::size_t>{0, 1, 2}));
    state.hidden = {1};
    EXPECT_EQ(state.shownRuns(), (std::vector<std::size_t>{0, 2}));
}

} // namespace korvel
