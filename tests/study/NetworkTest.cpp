#include "study/Network.h"
#include "fakes/StudySample.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

struct ReachSample {
    int number;
    double length;
    int next;
};

SharedRun runWith(const std::vector<ReachSample>& reaches) {
    ResultsFileBuilder file;
    file.determinand(1, "BOD");
    for (const auto& [number, length, next] : reaches)
        file.reach(number, "R" + std::to_string(number), length, next);
    return runOf(file);
}

std::vector<int> numbers(const SharedRun& run, const std::vector<int>& places) {
    std::vector<int> numbers;
    for (const int place : places)
        numbers.push_back(run->reaches.number(place));
    return numbers;
}

using Reaches = std::vector<int>;

std::vector<Reaches> riversOf(const SharedRun& run) {
    std::vector<Reaches> rivers;
    for (const River& river : networkOf(*run).rivers)
        rivers.push_back(numbers(run, river.reaches));
    return rivers;
}

// Two mouths, 1 and 9; at 1 three reaches come together.
//   5 -> 4 -> 2 -> 1     6 -> 4     3 -> 1     7 -> 1     8 -> 9
SharedRun twoCatchments() {
    return runWith({{9, 4, 0},
                    {1, 2, 0},
                    {2, 3, 1},
                    {3, 9, 1},
                    {7, 1, 1},
                    {4, 5, 2},
                    {5, 1.5, 4},
                    {6, 1.5, 4},
                    {8, 6, 9}});
}

} // namespace

TEST(Network, KnowsItsMouthsAndHeads) {
    const SharedRun run = twoCatchments();
    const Network network = networkOf(*run);
    EXPECT_EQ(numbers(run, network.mouths), (Reaches{9, 1}));
    EXPECT_EQ(numbers(run, network.heads), (Reaches{3, 7, 5, 6, 8}));
    EXPECT_TRUE(network.nextWithoutLine.empty());
    EXPECT_EQ(numbers(run, network.inflows[1]), (Reaches{2, 3, 7}));
}

TEST(Network, FollowsARiverIntoItsLongestWay) {
    // At 1: 2 has the way 3 + 5 + 1.5 = 9.5, 3 has 9, 7 has 1. At 4: 5 and 6 are level, 5 is first.
    EXPECT_EQ(riversOf(twoCatchments()), (std::vector<Reaches>{{8, 9}, {5, 4, 2, 1}, {3}, {7}, {6}}));
}

TEST(Network, ListsEachTributaryWithItsOwn) {
    //   main 1-2-3-4 (1 head), tributary 5 into 3 with its own 6 and 7 into 5; tributary 8 into 4
    const SharedRun run =
        runWith({{1, 9, 2}, {2, 9, 3}, {3, 9, 4}, {4, 9, 0}, {5, 2, 3}, {6, 2, 5}, {7, 1, 5}, {8, 3, 4}});
    EXPECT_EQ(riversOf(run), (std::vector<Reaches>{{1, 2, 3, 4}, {8}, {6, 5}, {7}}));
    const Network network = networkOf(*run);
    EXPECT_EQ(network.rivers[2].name, "R5");
    EXPECT_EQ(run->reaches.number(network.rivers[2].joins), 3);
    EXPECT_EQ(network.rivers[2].length, 4);
    EXPECT_EQ(network.rivers[0].joins, -1);
    EXPECT_EQ(network.riverOf, (std::vector<int>{0, 0, 0, 0, 2, 2, 3, 1}));
}

TEST(Network, MeasuresTheWayToTheMouth) {
    const Network network = networkOf(*twoCatchments());
    // 9, 1, 2, 3, 7, 4, 5, 6, 8
    EXPECT_EQ(network.toMouth, (std::vector<double>{0, 0, 2, 2, 2, 5, 10, 10, 4}));
}

TEST(Network, GoesDownFromTheHeadsFirstInFileOrderFirst) {
    const SharedRun run = twoCatchments();
    EXPECT_EQ(numbers(run, networkOf(*run).downward), (Reaches{3, 7, 5, 6, 4, 2, 1, 8, 9}));
}

TEST(Network, EndsAtANextReachWithoutALine) {
    const SharedRun run = runWith({{1, 2, 77}, {2, 3, 1}});
    const Network network = networkOf(*run);
    EXPECT_EQ(numbers(run, network.mouths), (Reaches{1}));
    EXPECT_EQ(numbers(run, network.nextWithoutLine), (Reaches{1}));
    EXPECT_EQ(network.toMouth, (std::vector<double>{0, 2}));
}

TEST(Network, EndsWhereTheNextReachIs0ThoughThatHasALine) {
    const SharedRun run = runWith({{0, 1, 0}, {1, 2, 0}});
    EXPECT_EQ(numbers(run, networkOf(*run).mouths), (Reaches{0, 1}));
}

TEST(Network, NamesItsCircles) {
    const struct {
        std::vector<ReachSample> reaches;
        std::optional<std::string> words;
    } cases[] = {
        {{{1, 1, 2}, {2, 1, 0}}, std::nullopt},
        {{{7, 1, 7}}, "Reach 7 runs in a circle"},
        {{{3, 1, 5}, {4, 1, 3}, {5, 1, 4}}, "Reaches 3, 5, 4 run in a circle"},
        // What runs into a circle is no part of it.
        {{{9, 1, 4}, {3, 1, 5}, {4, 1, 3}, {5, 1, 4}}, "Reaches 3, 5, 4 run in a circle"},
        {{{8, 1, 2}, {7, 1, 7}, {1, 1, 2}, {2, 1, 1}},
         "Reach 7 runs in a circle; Reaches 1, 2 run in a circle"},
        {{{8, 1, 2}, {1, 1, 2}, {7, 1, 7}, {2, 1, 1}},
         "Reaches 1, 2 run in a circle; Reach 7 runs in a circle"},
    };
    for (const auto& [reaches, words] : cases) {
        const SharedRun run = runWith(reaches);
        const Network network = networkOf(*run);
        EXPECT_EQ(circlesIn(network, *run), words);
        EXPECT_EQ(network.rivers.empty(), words.has_value());
    }
}

TEST(Network, FindsPathsDownstream) {
    const SharedRun run = twoCatchments();
    const Network network = networkOf(*run);
    const auto path = pathBetween(network, run->reaches.placeOf(5), run->reaches.placeOf(2));
    ASSERT_TRUE(path);
    EXPECT_EQ(numbers(run, *path), (Reaches{5, 4, 2}));
    EXPECT_EQ(pathBetween(network, run->reaches.placeOf(2), run->reaches.placeOf(5)), std::nullopt);
    EXPECT_EQ(pathBetween(network, 0, 0), (std::vector<int>{0}));
    const SharedRun circle = runWith({{1, 1, 2}, {2, 1, 1}, {3, 1, 0}});
    EXPECT_EQ(pathBetween(networkOf(*circle), 0, 2), std::nullopt);
}

} // namespace korvel
