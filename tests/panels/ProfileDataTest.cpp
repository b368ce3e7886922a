#include "panels/ProfileData.h"

#include "analysis/RiverSample.h"

#include <gtest/gtest.h>

#include <cmath>

namespace korvel {

namespace {

using Numbers = std::vector<double>;

ProfileView bodView(ProfileKind kind = ProfileKind::values) {
    ProfileView view;
    view.series = {1};
    view.kind = kind;
    return view;
}

ProfileData dataOf(const std::vector<ResultsFileBuilder>& files, const ProfileView& view) {
    const Study study = studyOf(files);
    return profileData(study, std::make_shared<const StudyPath>(studyPath(study, mainReaches(study))), view);
}

const RunInPanel& runOfPanel(const ProfileData& data, std::size_t index = 0) {
    return data.panels.at(0).runs.at(index);
}

ResultsFileBuilder threeReaches(bool middleHasPoints) {
    ResultsFileBuilder file = riverOf({{1, 2}, {2, 2}, {3, 2}});
    addPoints(file, 1, {{0, 1}, {2, 2}});
    if (middleHasPoints) addPoints(file, 2, {{1, 5}});
    addPoints(file, 3, {{0, 3}, {2, 4}});
    return file;
}

} // namespace

TEST(ProfileData, JoinsReachesUnlessOneHasNoPoints) {
    const ProfileData joined = dataOf({threeReaches(true)}, bodView());
    EXPECT_EQ(*runOfPanel(joined).series.curve.km, (Numbers{0, 2, 3, 4, 6}));
    EXPECT_EQ(runOfPanel(joined).series.curve.values, (Numbers{1, 2, 5, 3, 4}));
    EXPECT_EQ(runOfPanel(joined).series.curve.breaks, (std::vector<std::size_t>{0}));
    EXPECT_EQ(runOfPanel(dataOf({threeReaches(false)}, bodView())).series.curve.breaks,
              (std::vector<std::size_t>{0, 2}));
}

TEST(ProfileData, LeavesInterpolatedPointsWhereTheyAreNotWanted) {
    ProfileView view = bodView();
    const auto file = oneReach({{0, 1}, {1, 9, 0, 0, 0, 99}, {2, 3}});
    EXPECT_EQ(runOfPanel(dataOf({file}, view)).series.curve.values, (Numbers{1, 9, 3}));
    view.interpolated = false;
    EXPECT_EQ(runOfPanel(dataOf({file}, view)).series.curve.values, (Numbers{1, 3}));
}

TEST(ProfileData, LeavesOutWhatHasNoPlaceOnALogarithmicScale) {
    ProfileView view = bodView();
    view.scale = ScaleKind::logarithmic;
    const ProfileData data = dataOf({oneReach({{0, 1}, {1, 0}, {2, -3}, {4, 3}})}, view);
    EXPECT_EQ(runOfPanel(data).series.curve.values, (Numbers{0, std::log10(3)})); // as the scale counts
    EXPECT_EQ(runOfPanel(data).series.curve.breaks, (std::vector<std::size_t>{0, 1}));
    EXPECT_EQ(runOfPanel(data).series.leftOut, (Numbers{1, 2}));
}

TEST(ProfileData, HasABandWhereThereAreTwoLimits) {
    const auto file = oneReach({{0, 5, 0, 4, 6}, {1, 5}, {2, 5, 0, 7, 3}, {3, 5, 0, 8, 9}});
    ProfileView view = bodView();
    const PathBand band = runOfPanel(dataOf({file}, view)).series.limits;
    EXPECT_EQ(band.above.values, (Numbers{6, 7, 9}));
    EXPECT_EQ(band.below.values, (Numbers{4, 3, 8}));
    EXPECT_EQ(band.above.breaks, (std::vector<std::size_t>{0, 1}));
    view.limits = false;
    EXPECT_EQ(runOfPanel(dataOf({file}, view)).series.limits.above.size(), 0U);
}

TEST(ProfileData, ShowsTheTargetsOfTheRiverOnce) {
    const std::vector<PointSample> points{{0, 1, 4}, {1, 1, 4}, {3, 1, 6}, {5, 1, 0}, {6, 1, 0}};
    const std::vector<TargetRun> runs{{0, 3, 4}, {3, 5, 6}};
    ProfileView view = bodView();
    const ProfileData same = dataOf({oneReach(points), oneReach(points)}, view);
    EXPECT_EQ(runOfPanel(same, 0).targets, runs);
    EXPECT_TRUE(runOfPanel(same, 1).targets.empty());
    const ProfileData others = dataOf({oneReach(points), oneReach({{0, 1, 9}})}, view);
    EXPECT_EQ(runOfPanel(others, 1).targets, (std::vector<TargetRun>{{0, 0, 9}}));
    view.hidden = {0};
    const ProfileData alone = dataOf({oneReach(points), oneReach(points)}, view);
    ASSERT_EQ(alone.panels[0].runs.size(), 1U);
    EXPECT_EQ(runOfPanel(alone).targets, runs);
    view = bodView();
    view.targets = false;
    EXPECT_TRUE(runOfPanel(dataOf({oneReach(points)}, view)).targets.empty());
}

TEST(ProfileData, ShowsSamplesThatTheBaseHasOnce) {
    const auto sampled = [](double first, double second) {
        return oneReach({{0, 1, 0, 0, 0, 1, first}, {1, 1}, {2, 1, 0, 0, 0, 1, second}});
    };
    const ProfileData data = dataOf({sampled(3, 5), sampled(3, 6)}, bodView());
    EXPECT_EQ(runOfPanel(data, 0).observed, (std::vector<ObservedMark>{{0, 3}, {2, 5}}));
    EXPECT_EQ(runOfPanel(data, 1).observed, (std::vector<ObservedMark>{{2, 6}}));
}

TEST(ProfileData, HoldsRunsAgainstTheBase) {
    const ProfileData data = dataOf({oneReach({{0, 5, 0, 4, 6}, {2, 5, 0, 4, 6}, {3, 7}, {6, 5, 0, 4, 6}}),
                                     oneReach({{0, 5, 0, 4, 6}, {2, 8, 0, 7, 9}, {4, 9}, {6, 1, 0, 0.5, 2}})},
                                    bodView(ProfileKind::change));
    ASSERT_EQ(data.panels[0].runs.size(), 1U); // the base is the line at 0
    EXPECT_EQ(data.panels[0].title, "BOD (Conc), mean, change from a.sgr");
    const PathSeries& series = runOfPanel(data).series;
    EXPECT_EQ(*series.curve.km, (Numbers{0, 2, 6}));
    EXPECT_EQ(series.curve.values, (Numbers{0, 3, -4}));
    EXPECT_EQ(series.clear, (std::vector<ClearStretch>{{1, 6}}));
}

TEST(ProfileData, DividesByTheTarget) {
    ProfileView view = bodView(ProfileKind::ratio);
    const auto file = oneReach({{0, 5, 4, 4, 6, 1, 2}, {2, 5}, {3, 2, 4}});
    const ProfileData high = dataOf({file}, view);
    EXPECT_EQ(runOfPanel(high).series.curve.values, (Numbers{1.25, 0.5}));
    EXPECT_EQ(runOfPanel(high).series.curve.breaks, (std::vector<std::size_t>{0, 1}));
    EXPECT_EQ(runOfPanel(high).series.limits.above.values, (Numbers{1.5}));
    EXPECT_EQ(runOfPanel(high).observed, (std::vector<ObservedMark>{{0, 0.5}}));
    EXPECT_TRUE(runOfPanel(high).targets.empty());
    view.lowIsBad = {1};
    const ProfileData low = dataOf({file}, view);
    EXPECT_EQ(runOfPanel(low).series.curve.values, (Numbers{0.8, 2}));
    EXPECT_EQ(runOfPanel(low).series.limits.above.values, (Numbers{1}));
    EXPECT_EQ(runOfPanel(low).observed, (std::vector<ObservedMark>{{0, 2}}));
    EXPECT_EQ(low.panels[0].note, "low is bad");
    view.series = {0, 2};
    const ProfileData untargeted = dataOf({file}, view);
    EXPECT_TRUE(untargeted.panels[0].runs.empty());
    EXPECT_EQ(untargeted.panels[1].note, "has no targets");
}

TEST(ProfileData, JudgesRatiosByTheFilesOwnStatistic) {
    ResultsFileBuilder file = riverOf({{1, 10}}, 3); // judged by the 90 percentile
    file.point(1, 0, "P", 10).setAll(0).set(ValueField::targetValue, 1, 4);
    file.set(ValueField::percentileValues, 1, 8, 0).set(ValueField::meanValue, 1, 2);
    EXPECT_EQ(runOfPanel(dataOf({file}, bodView(ProfileKind::ratio))).series.curve.values, (Numbers{2}));
    const ProfileData means = dataOf({file}, bodView());
    EXPECT_EQ(means.panels[0].title, "BOD (Conc), mean");
    EXPECT_EQ(means.panels[0].note, "targets are for the 90 percentile");
}

TEST(ServesAlso, OnlyOtherPartsOfTheSame) {
    ProfileView made = bodView(), wanted = made;
    wanted.fromKm = 3;
    wanted.toKm = 4;
    wanted.fromZero = false;
    EXPECT_TRUE(servesAlso(made, wanted));
    for (const auto& change : std::vector<void (*)(ProfileView&)>{
             [](ProfileView& view) { view.series = {2}; }, [](ProfileView& view) { view.limits = false; },
             [](ProfileView& view) { view.scale = ScaleKind::logarithmic; },
             [](ProfileView& view) { view.hidden = {1}; }, [](ProfileView& view) { view.lowIsBad = {1}; }}) {
        wanted = made;
        change(wanted);
        EXPECT_FALSE(servesAlso(made, wanted));
    }
}

} // namespace korvel
