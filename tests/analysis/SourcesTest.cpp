#include "analysis/Sources.h"

#include "analysis/RiverSample.h"

#include <gtest/gtest.h>

#include <numeric>

namespace korvel {

namespace {

constexpr int load = 2; // series

struct LoadPoint {
    double distance;
    double load;
    std::string label = "";
    int type = 10;
};

ResultsFileBuilder& addLoads(ResultsFileBuilder& file, int reach, const std::vector<LoadPoint>& points) {
    for (const LoadPoint& point : points)
        file.point(reach, point.distance, point.label, point.type)
            .setAll(0)
            .set(ValueField::meanValue, load, point.load);
    return file;
}

LoadSources sources(const ResultsFileBuilder& file, const SourcePlace& place) {
    const SharedRun run = runOf(file);
    return sourcesOf(*run, networkOf(*run), load, place);
}

std::string told(const LoadSources& sources) {
    std::string text;
    for (const Contribution& each : sources.contributions) {
        text += std::string(nameOf(each.kind)) + ", " + each.name + ", " + std::to_string(each.reach) + ", " +
                (each.distance ? std::to_string(static_cast<int>(*each.distance)) : "-") + ": " +
                std::to_string(each.load) + " " + std::to_string(each.arrives) + "\n";
    }
    for (const Loss& loss : sources.losses)
        text += "lost, " + loss.name + ", " + std::to_string(loss.reach) + ", " +
                (loss.distance ? std::to_string(static_cast<int>(*loss.distance)) : "-") + ": " +
                std::to_string(loss.load) + "\n";
    return text;
}

std::string refusalOf(const ResultsFileBuilder& file, const SourcePlace& place) {
    try {
        sources(file, place);
    } catch (const SourcesRefused& refused) {
        return refused.what();
    }
    return "";
}

} // namespace

TEST(Sources, OfOneReachAreHeadFeaturesAndWhatComesAlong) {
    ResultsFileBuilder file = riverOf({{1, 10}});
    addLoads(file, 1,
             {{0, 10},
              {2, 12}, // 2 along
              {2, 12, "U/S Works", 3},
              {2, 20, "D/S Works", 3}, // 8 from the works
              {5, 10},                 // half is lost along
              {6, 11},                 // 1 along, in the same contribution
              {7, 11, "U/S Intake", 7},
              {7, 5.5, "D/S Intake", 7}}); // half is taken
    const LoadSources found = sources(file, {1, {}});
    EXPECT_EQ(found.load, 5.5);
    EXPECT_EQ(found.distance, 7);
    EXPECT_EQ(told(found), "headwater, Head of Reach 1, 1, 0: 10.000000 2.500000\n"
                           "sewage works, Works, 1, 2: 8.000000 2.000000\n"
                           "diffuse, Along Reach 1, 1, -: 3.000000 1.000000\n"
                           "lost, Along Reach 1, 1, -: 10.000000\n"
                           "lost, Intake, 1, 7: 5.500000\n");
    EXPECT_NEAR(*found.contributions[0].share, 100 * 2.5 / 5.5, 1e-12);
}

TEST(Sources, KnowTheKindsOfFeatures) {
    const struct {
        int type;
        SourceKind kind;
    } cases[] = {{2, SourceKind::stream},      {3, SourceKind::sewageWorks}, {5, SourceKind::industry},
                 {7, SourceKind::abstraction}, {1, SourceKind::other},       {99, SourceKind::other}};
    for (const auto& [type, kind] : cases) {
        ResultsFileBuilder file = riverOf({{1, 10}});
        addLoads(file, 1, {{2, 1, "U/S F", 1}, {2, 5, "F", type}});
        EXPECT_EQ(sources(file, {1, {}}).contributions[0].kind, kind) << type;
    }
}

TEST(Sources, TakeAFeatureOnlyBetweenItsSidesAtOnePlace) {
    ResultsFileBuilder file = riverOf({{1, 10}});
    addLoads(file, 1,
             {{1, 1, "U/S A", 3},
              {1, 2, "U/S B", 3}, // both upstream
              {2, 4, "D/S B", 3}, // another distance
              {3, 8, "C", 3}});   // no upstream side
    const LoadSources found = sources(file, {1, {}});
    ASSERT_EQ(found.contributions.size(), 2u);
    EXPECT_EQ(found.contributions[0].kind, SourceKind::diffuse);
    EXPECT_EQ(found.contributions[0].load, 7);
}

TEST(Sources, ComeTogetherAtConfluences) {
    // 3 and 2 run into 1: 10 + 30 arrive, 60 go on: 20 come about at the start.
    const auto river = [](double atStart) {
        ResultsFileBuilder file;
        file.determinand(1, "BOD").reach(1, "Main", 10, 0).reach(2, "Left", 10, 1).reach(3, "", 10, 1);
        addLoads(file, 2, {{0, 10}});
        addLoads(file, 3, {{0, 30}});
        return addLoads(file, 1, {{0, atStart}});
    };
    EXPECT_EQ(told(sources(river(60), {1, {}})), "headwater, Head of 3, 3, 0: 30.000000 30.000000\n"
                                                 "start of reach, Start of Main, 1, -: 20.000000 20.000000\n"
                                                 "headwater, Head of Left, 2, 0: 10.000000 10.000000\n");
    EXPECT_EQ(told(sources(river(20), {1, {}})), "headwater, Head of 3, 3, 0: 30.000000 15.000000\n"
                                                 "headwater, Head of Left, 2, 0: 10.000000 5.000000\n"
                                                 "lost, Start of Main, 1, -: 20.000000\n");
    // Rounded figures: nothing is booked, and what arrives is the load.
    const LoadSources rounded = sources(river(40.0004), {1, {}});
    EXPECT_EQ(rounded.contributions.size(), 2u);
    EXPECT_TRUE(rounded.losses.empty());
    EXPECT_NEAR(rounded.contributions[0].arrives, 30 * 40.0004 / 40, 1e-12);
    EXPECT_EQ(sources(river(40.0005), {1, {}}).contributions.size(), 3u);
    EXPECT_EQ(sources(river(39.9995), {1, {}}).losses.size(), 1u);
}

TEST(Sources, PassThroughReachesWithoutPoints) {
    // 1 -> 2 (empty) -> 3; 4 (empty) is a head.
    ResultsFileBuilder file;
    file.determinand(1, "BOD")
        .reach(1, "A", 1, 2)
        .reach(2, "B", 1, 3)
        .reach(3, "C", 1, 0)
        .reach(4, "D", 1, 3);
    addLoads(file, 1, {{0, 10}});
    addLoads(file, 3, {{0, 10}, {1, 5}});
    EXPECT_EQ(told(sources(file, {3, {}})), "headwater, Head of A, 1, 0: 10.000000 5.000000\n"
                                            "lost, Along C, 3, -: 5.000000\n");
    const LoadSources inEmpty = sources(file, {2, {}});
    EXPECT_EQ(inEmpty.load, 10);
    EXPECT_EQ(inEmpty.distance, std::nullopt);
    EXPECT_EQ(inEmpty.contributions.size(), 1u);
    const LoadSources inEmptyHead = sources(file, {4, {}});
    EXPECT_EQ(inEmptyHead.load, 0);
    EXPECT_TRUE(inEmptyHead.contributions.empty());
}

TEST(Sources, OfAReachThatBeginsDryComeAtItsStart) {
    ResultsFileBuilder file;
    file.determinand(1, "BOD").reach(1, "A", 1, 2).reach(2, "B", 1, 0);
    addLoads(file, 2, {{0, 7}});
    EXPECT_EQ(told(sources(file, {2, {}})), "start of reach, Start of B, 2, -: 7.000000 7.000000\n");
}

TEST(Sources, HaveNoShareOfNothing) {
    ResultsFileBuilder file = riverOf({{1, 10}});
    addLoads(file, 1, {{0, 4}, {1, 0}, {2, 0}});
    const LoadSources found = sources(file, {1, {}});
    EXPECT_EQ(found.load, 0);
    EXPECT_EQ(found.contributions[0].arrives, 0);
    EXPECT_EQ(found.contributions[0].share, std::nullopt);
}

TEST(Sources, AreLookedAtWhereAsked) {
    ResultsFileBuilder file = riverOf({{1, 10}, {2, 10}});
    addLoads(file, 1, {{1, 10}, {2, 20, "U/S W", 3}, {2, 30, "D/S W", 3}, {5, 40}});
    const struct {
        double distance, at, load;
    } cases[] = {{1, 1, 10}, {1.9, 1, 10}, {2, 2, 30}, {4.9, 2, 30}, {99, 5, 40}};
    for (const auto& [distance, at, expected] : cases) {
        const LoadSources found = sources(file, {1, distance});
        EXPECT_EQ(found.distance, at) << distance;
        EXPECT_EQ(found.load, expected) << distance;
    }
    EXPECT_EQ(refusalOf(file, {1, 0.5}), "0.5 km lies before the first point of reach 1");
    EXPECT_EQ(refusalOf(file, {2, 3.0}), "reach 2 has no points");
    EXPECT_EQ(refusalOf(file, {2, {}}), "");
}

TEST(Sources, RefuseALoadBelow0OnTheWay) {
    ResultsFileBuilder file;
    file.determinand(1, "BOD").reach(1, "A", 9, 2).reach(2, "B", 9, 0).reach(3, "C", 9, 0);
    addLoads(file, 1, {{0, 10}, {1.5, -2, "Mill"}, {2, 5}});
    addLoads(file, 2, {{0, 5}, {3, -1}});
    addLoads(file, 3, {{0, 5}});
    EXPECT_EQ(refusalOf(file, {2, {}}), "BOD (Load) is -2, below 0, in reach 1 at 1.5 km (Mill)");
    EXPECT_EQ(refusalOf(file, {1, 1.5}), "BOD (Load) is -2, below 0, in reach 1 at 1.5 km (Mill)");
    EXPECT_EQ(refusalOf(file, {1, 1.0}), "");
    EXPECT_EQ(refusalOf(file, {3, {}}), "");
}

TEST(Sources, AreAskedForAtTheLargestMouth) {
    const auto mouthOf = [](std::vector<double> loads) {
        ResultsFileBuilder file;
        file.determinand(1, "BOD").reach(5, "A", 9, 0).reach(2, "B", 9, 0).reach(3, "C", 9, 77);
        addLoads(file, 5, {{0, 100}, {1, loads[0]}});
        addLoads(file, 2, {{0, loads[1]}});
        addLoads(file, 3, {{0, loads[2]}});
        const SharedRun run = runOf(file);
        return largestMouth(*run, networkOf(*run), load)->reach;
    };
    EXPECT_EQ(mouthOf({1, 2, 3}), 3);
    EXPECT_EQ(mouthOf({1, 3, 3}), 2);
    EXPECT_EQ(mouthOf({3, 3, 3}), 5);
    const SharedRun none = runOf(ResultsFileBuilder().determinand(1, "BOD"));
    EXPECT_FALSE(largestMouth(*none, networkOf(*none), load));
    // An empty reach at the mouth passes on what runs into it.
    ResultsFileBuilder file;
    file.determinand(1, "BOD")
        .reach(1, "A", 9, 0)
        .reach(2, "B", 9, 0)
        .reach(3, "C", 9, 2)
        .reach(4, "D", 9, 2);
    addLoads(file, 1, {{0, 5}});
    addLoads(file, 3, {{0, 3}});
    addLoads(file, 4, {{0, 3}});
    const SharedRun run = runOf(file);
    EXPECT_EQ(largestMouth(*run, networkOf(*run), load)->reach, 2);
}

TEST(Sources, OfEqualArrivalsPutTheFirstFirst) {
    ResultsFileBuilder file;
    file.determinand(1, "BOD").reach(1, "A", 9, 3).reach(2, "B", 9, 3).reach(3, "C", 9, 0);
    addLoads(file, 1, {{0, 5}, {1, 10, "U/S W", 3}, {1, 15, "D/S W", 3}});
    addLoads(file, 2, {{0, 5}});
    addLoads(file, 3, {{0, 20}});
    const LoadSources found = sources(file, {3, {}});
    const char* names[] = {"Head of A", "Along A", "W", "Head of B"};
    ASSERT_EQ(found.contributions.size(), 4u);
    for (std::size_t k = 0; k < 4; ++k)
        EXPECT_EQ(found.contributions[k].name, names[k]);
}

TEST(SourcesByKind, AddUpInTheKindsOrder) {
    ResultsFileBuilder file = riverOf({{1, 10}});
    addLoads(file, 1,
             {{0, 1},
              {1, 1, "U/S W", 3},
              {1, 5, "D/S W", 3},
              {2, 5, "U/S V", 3},
              {2, 15, "D/S V", 3},
              {3, 15, "U/S I", 5},
              {3, 20, "D/S I", 5}});
    const auto kinds = sourcesByKind(sources(file, {1, {}}));
    ASSERT_EQ(kinds.size(), 3u);
    EXPECT_EQ(nameOf(kinds[1].kind), "sewage works");
    EXPECT_EQ(kinds[1].load, 14);
    EXPECT_EQ(kinds[1].arrives, 14);
    EXPECT_EQ(kinds[1].share, 70);
    EXPECT_EQ(nameOf(kinds[2].kind), "industry");
}

namespace {

// By source the name that each run has for it, "-" for none.
std::vector<std::string> comparedNames(const std::vector<std::vector<Contribution>>& runs) {
    std::vector<std::string> names;
    for (const ComparedSource& source : compareSources({runs.begin(), runs.end()})) {
        std::string& text = names.emplace_back();
        for (const Contribution* each : source.runs)
            text += (text.empty() ? "" : " ") + (each ? each->name : "-");
    }
    return names;
}

} // namespace

TEST(SourcesOverRuns, MatchByKindReachAndDistance) {
    using enum SourceKind;
    const std::vector<Contribution> first = {{sewageWorks, "W", 1, 2, 0, 0, {}},
                                             {sewageWorks, "V", 1, 2, 0, 0, {}},
                                             {diffuse, "Along", 1, {}, 0, 0, {}},
                                             {industry, "I", 1, 2, 0, 0, {}}};
    const std::vector<Contribution> second = {{diffuse, "Along", 1, {}, 0, 0, {}},
                                              {sewageWorks, "X", 1, 2, 0, 0, {}},
                                              {sewageWorks, "Y", 1, 2, 0, 0, {}},
                                              {industry, "I", 2, 2, 0, 0, {}}};
    EXPECT_EQ(comparedNames({first, second}),
              (std::vector<std::string>{"W X", "V Y", "Along Along", "I -", "- I"}));
}

TEST(SourcesOverRuns, MatchWhereOneHasMore) {
    const Contribution head{SourceKind::headwater, "Head", 1, 0, 0, 0, {}},
        along{SourceKind::diffuse, "Along", 1, {}, 0, 0, {}};
    EXPECT_EQ(comparedNames({{head}, {along, head}}), (std::vector<std::string>{"Head Head", "- Along"}));
    EXPECT_EQ(comparedNames({{along, head}, {head}}), (std::vector<std::string>{"Along -", "Head Head"}));
}

TEST(SourcesOverRuns, OfThreeRunsStandInTheOrderOfTheFirstThatHasThem) {
    const Contribution head{SourceKind::headwater, "Head", 1, 0, 0, 0, {}},
        works{SourceKind::sewageWorks, "W", 1, 2, 0, 0, {}},
        second{SourceKind::sewageWorks, "V", 1, 2, 0, 0, {}};
    EXPECT_EQ(comparedNames({{head}, {works, head}, {works, second}}),
              (std::vector<std::string>{"Head Head -", "- W W", "- - V"}));
    EXPECT_TRUE(comparedNames({{}, {}}).empty());
}

} // namespace korvel
