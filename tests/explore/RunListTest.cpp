#include "explore/RunList.h"
#include "explore/ThreeReaches.h"

#include <gtest/gtest.h>

namespace korvel {

TEST(RunList, BringsPathAndSeriesWithTheFirstRun) {
    const ExploreState state = stateOf("a");
    EXPECT_EQ(state.from, 1);
    EXPECT_EQ(state.to, 3);
    EXPECT_EQ(state.series, (std::vector<int>{0, 1, 2, 3}));
    EXPECT_EQ(state.network->mouths.size(), 2u);
}

TEST(RunList, RefusesARunOfAnotherCatchmentAndChangesNothing) {
    ExploreState state = stateOf("a");
    const auto before = state.study;
    const auto refusal = addRun(state, runOf(threeReaches("Zinc"), "Z:\\data\\z.sgr"));
    EXPECT_EQ(refusal, "a.sgr and z.sgr differ in determinand 1");
    EXPECT_EQ(state.study, before);
}

TEST(RunList, RefusesTheThirteenthRun) {
    ExploreState state = stateOf("abcdefghijkl");
    EXPECT_EQ(addRun(state, runOfThreeReaches('m')),
              "m.sgr: there are 12 runs already, as many as there can be.");
    EXPECT_EQ(lettersOf(state), "abcdefghijkl");
}

TEST(RunList, PutsRunsInOrderWithWhatIsHiddenOfThem) {
    struct Case {
        std::size_t run, to;
        std::string expected;
    };
    for (const auto& [run, to, expected] :
         {Case{0, 2, "Bca"}, {2, 0, "caB"}, {1, 0, "Bac"}, {1, 1, "aBc"}, {1, 2, "acB"}}) {
        ExploreState state = stateOf("abc");
        state.hidden = {1};
        moveRun(state, run, to);
        EXPECT_EQ(lettersOf(state), expected) << run << " to " << to;
    }
}

TEST(RunList, MakesABaseOfAnyRun) {
    ExploreState state = stateOf("abc");
    makeBase(state, 2);
    EXPECT_EQ(lettersOf(state), "cab");
}

TEST(RunList, TakesRunsAwayDownToNone) {
    ExploreState state = stateOf("abc");
    state.hidden = {0, 2};
    removeRun(state, 1);
    EXPECT_EQ(lettersOf(state), "AC");
    removeRun(state, 0);
    EXPECT_EQ(lettersOf(state), "C");
    state.cursor = ExplorePlace{1, 0, ""};
    removeRun(state, 0);
    EXPECT_TRUE(state.isEmpty());
    EXPECT_EQ(state.network, nullptr);
    EXPECT_TRUE(state.hidden.empty());
    EXPECT_EQ(state.cursor, std::nullopt);
}

// What a run that was read again leaves as it was.
TEST(RunList, KeepsPathViewAndCursorWhenARunIsReadAnew) {
    ExploreState state = stateOf("ab");
    state.from = 2;
    state.series = {0, 4};
    state.visible = ExploreStretch{1, 3};
    state.cursor = ExplorePlace{2, 0, ""};
    state.hidden = {1};
    const ExploreState before = state;
    EXPECT_EQ(replaceRun(state, 0, runOfThreeReaches('a')), std::nullopt);
    EXPECT_NE(state.study, before.study);
    EXPECT_EQ(lettersOf(state), "aB");
    EXPECT_EQ(state.from, 2);
    EXPECT_EQ(state.series, before.series);
    EXPECT_EQ(state.visible, before.visible);
    EXPECT_EQ(state.cursor, before.cursor);
}

TEST(RunList, RefusesARunReadAnewThatCanStandWithTheOthersNoMore) {
    ExploreState state = stateOf("ab");
    const auto before = state.study;
    EXPECT_EQ(replaceRun(state, 0, runOf(threeReaches("Zinc"), "Z:\\data\\a.sgr")),
              "a.sgr and b.sgr differ in determinand 1");
    EXPECT_EQ(state.study, before);
}

TEST(RunList, GoesToTheFirstPathWhereTheOldOneIsNoMore) {
    ExploreState state = stateOf("a");
    state.series = {0, 8};
    state.visible = ExploreStretch{1, 3};
    state.cursor = ExplorePlace{1, 0, ""};
    const auto other = ResultsFileBuilder().determinand(1, "BOD").reach(4, "Else", 6, 0).point(4, 0, "Head");
    EXPECT_EQ(replaceRun(state, 0, runOf(other)), std::nullopt);
    EXPECT_EQ(state.from, 4);
    EXPECT_EQ(state.to, 4);
    EXPECT_EQ(state.series, (std::vector<int>{0}));
    EXPECT_EQ(state.visible, std::nullopt);
    EXPECT_EQ(state.cursor, std::nullopt);
}

} // namespace korvel
