// What a frame costs: pixels, not points.
#include "panels/ProfileLayout.h"

#include "analysis/RiverSample.h"
#include "fakes/FixedTextMetrics.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

namespace korvel {

namespace {

constexpr double width = 15000, height = 9000;    // twips
constexpr double mostOfCurve = 4, mostOfBand = 5; // a column of pixels

// Values, limits, targets and samples of noise.
ResultsFileBuilder noise(int points, unsigned seed) {
    std::mt19937 random(seed);
    const auto amount = [&] { return std::lognormal_distribution(0.0, 1.0)(random); };
    std::vector<PointSample> samples;
    for (int k = 0; k < points; ++k) {
        const double value = amount();
        samples.push_back({10.0 * k / points, value, amount(), 0.8 * value, 1.2 * value, 10, amount()});
    }
    return oneReach(samples);
}

ProfileLayout layoutOf(const Study& study, ProfileKind kind, ScaleKind scale) {
    ProfileView view;
    view.series = {1};
    view.kind = kind;
    view.scale = scale;
    const auto path = std::make_shared<const StudyPath>(studyPath(study, mainReaches(study)));
    return layOutProfile(profileData(study, path, view), view, panelLook(Theme::light), width, height,
                         FixedTextMetrics());
}

std::size_t verticesOf(const ProfileCurve& curve) {
    std::size_t count = 2 * curve.traced.strokes.size();
    for (const std::vector<DrawnPoint>& run : curve.traced.runs)
        count += run.size();
    return count;
}

std::size_t verticesOf(const ProfileBand& band) {
    return band.drawn.above.size() + band.drawn.below.size();
}

} // namespace

TEST(ProfileVertices, AreFewAColumnHoweverManyPointsThereAre) {
    const struct {
        ProfileKind kind;
        ScaleKind scale;
        std::size_t curves, bands;
    } views[] = {{ProfileKind::values, ScaleKind::linear, 2, 2},
                 {ProfileKind::values, ScaleKind::logarithmic, 2, 2},
                 {ProfileKind::change, ScaleKind::linear, 1, 4},
                 {ProfileKind::ratio, ScaleKind::linear, 2, 2},
                 {ProfileKind::ratio, ScaleKind::logarithmic, 2, 2}};
    for (const int points : {3000, 9000}) {
        const Study study = studyOf({noise(points, 1), noise(points, 2)});
        for (const auto& view : views) {
            const ProfileLayout layout = layoutOf(study, view.kind, view.scale);
            const ProfilePanel& panel = layout.panels.at(0);
            const double columns = (panel.area.right - panel.area.left) / layout.look.pixel + 2;
            EXPECT_EQ(panel.curves.size(), view.curves);
            EXPECT_EQ(panel.bands.size(), view.bands); // of changes: rises, falls and what of them is clear
            for (const ProfileCurve& curve : panel.curves)
                EXPECT_LE(static_cast<double>(verticesOf(curve)), mostOfCurve * columns) << points;
            for (const ProfileBand& band : panel.bands)
                EXPECT_LE(static_cast<double>(verticesOf(band)), mostOfBand * columns) << points;
            const double rooms = (panel.area.right - panel.area.left) / (2 * layout.markHalf) + 2;
            EXPECT_LE(static_cast<double>(panel.observed.size()), 4 * rooms * 2) << points;
            EXPECT_LE(static_cast<double>(panel.targets.size()), 4 * rooms * 2) << points;
        }
    }
}

TEST(ProfileVertices, OfALogarithmicCurveLieOnAStraightLineAtTheEdgeOfTheView) {
    ProfileView view;
    view.series = {1};
    view.scale = ScaleKind::logarithmic;
    view.fromKm = 2.5;
    view.toKm = 10;
    const Study study = studyOf({oneReach({{0, 1}, {5, 100}, {10, 10}})});
    const auto path = std::make_shared<const StudyPath>(studyPath(study, mainReaches(study)));
    const ProfileLayout layout = layOutProfile(profileData(study, path, view), view, panelLook(Theme::light),
                                               width, height, FixedTextMetrics());
    const ProfilePanel& panel = layout.panels.at(0);
    const std::vector<DrawnPoint>& run = panel.curves.at(0).traced.runs.at(0);
    ASSERT_EQ(run.size(), 3U);
    EXPECT_NEAR(run[0].y, panel.values.scale.place(10), 1e-6);
    EXPECT_NEAR(run[1].y, panel.values.scale.place(100), 1e-6);
    EXPECT_NEAR(run[2].y, panel.values.scale.place(10), 1e-6);
}

} // namespace korvel
