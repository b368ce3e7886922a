#include "panels/ProfileLayout.h"

#include "analysis/RiverSample.h"
#include "basic/Text.h"
#include "fakes/FixedTextMetrics.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

namespace korvel {

namespace {

struct Profile {
    ProfileData data;
    ProfileView view;

    ProfileLayout layout(double width = 15000, double height = 9000) const {
        return layOutProfile(data, view, panelLook(Theme::light), width, height, FixedTextMetrics());
    }
};

Profile profileOf(const Study& study, const ProfileView& view) {
    return {profileData(study, std::make_shared<const StudyPath>(studyPath(study, mainReaches(study))), view),
            view};
}

ProfileView viewOf(std::vector<int> series) {
    ProfileView view;
    view.series = std::move(series);
    return view;
}

Profile smallProfile(const ProfileView& view) {
    return profileOf(
        studyOf({oneReach({{0, 2, 4}, {5, 6, 4}, {10, 3, 4, 2, 4}}), oneReach({{0, 1}, {5, 9}, {10, 3}})}),
        view);
}

const CurveStroke onlyStroke(const ProfileLayout& layout) {
    return layout.panels.at(0).targets.at(0).stroke;
}

std::string allTexts(const ProfileLayout& layout) {
    std::string texts;
    for (const ProfilePanel& panel : layout.panels)
        for (const DrawnText& text : panel.texts)
            texts += text.text + "|";
    return texts;
}

bool overlap(const DrawnText& a, const DrawnText& b) {
    const double little = 1;
    return a.corner.x + a.width > b.corner.x + little && b.corner.x + b.width > a.corner.x + little &&
           a.corner.y + 0.8 * a.height > b.corner.y + little &&
           b.corner.y + 0.8 * b.height > a.corner.y + little;
}

} // namespace

TEST(ProfileLayout, StandsOneBelowTheOther) {
    const ProfileLayout layout = smallProfile(viewOf({0, 1, 2})).layout();
    ASSERT_EQ(layout.panels.size(), 3U);
    for (std::size_t k = 0; k < 3; ++k) {
        const PlotArea& area = layout.panels[k].area;
        EXPECT_EQ(area.left, layout.panels[0].area.left);
        EXPECT_NEAR(area.bottom - area.top, layout.panels[0].area.bottom - layout.panels[0].area.top, 1e-6);
        if (k > 0) {
            EXPECT_GT(area.top, layout.panels[k - 1].area.bottom);
        }
    }
    EXPECT_NEAR(layout.panels[2].area.bottom, layout.axisY, 1e-6);
    EXPECT_LT(layout.axisY, layout.height);
}

TEST(ProfileLayout, CanBeAsked) {
    const Profile profile = smallProfile(viewOf({1}));
    const ProfileLayout layout = profile.layout();
    const StudyPath& path = *profile.data.path;
    const PlotArea& area = layout.panels[0].area;
    EXPECT_EQ(xOf(layout, 0), area.left);
    EXPECT_EQ(xOf(layout, 10), area.right);
    EXPECT_NEAR(kmAt(layout, xOf(layout, 3.3)), 3.3, 1e-12);
    EXPECT_EQ(nearestPlace(layout, path, xOf(layout, 4)), 1U);
    const double middle = (area.top + area.bottom) / 2;
    EXPECT_EQ(panelAt(layout, {xOf(layout, 4), middle}), 0U);
    EXPECT_EQ(panelAt(layout, {xOf(layout, 4), area.top - 1}), std::nullopt);
    EXPECT_EQ(panelAt(layout, {area.left - 1, middle}), std::nullopt);
    const auto at = placeOf(layout, profile.data, 0, 1, 1);
    ASSERT_TRUE(at);
    EXPECT_EQ(at->x, xOf(layout, 5));
    EXPECT_EQ(at->y, layout.panels[0].values.scale.place(9));
    EXPECT_EQ(layout.panels[0].curves[0].run, 1U); // the base lies on top
    EXPECT_EQ(layout.panels[0].curves[0].traced.runs[0][1], *at);
}

TEST(ProfileLayout, FitsTheScaleToWhatIsInView) {
    ProfileView view = viewOf({1});
    EXPECT_EQ(smallProfile(view).layout().panels[0].values.scale.top, 9);
    view.fromKm = 8;
    view.toKm = 10;
    const Profile zoomed = smallProfile(view);
    const Scale scale = zoomed.layout().panels[0].values.scale;
    EXPECT_EQ(scale.bottom, 0);
    EXPECT_LT(scale.top, 6.5);
    EXPECT_GE(scale.top, 5.4); // where the run's curve comes into view
    view.fromZero = false;
    const Profile lifted{zoomed.data, view};
    EXPECT_GT(lifted.layout().panels[0].values.scale.bottom, 1.5);
    EXPECT_EQ(lifted.layout().distance.scale.bottom, 8);
}

TEST(ProfileLayout, CutsCurvesAndTargetsAtTheEdges) {
    ProfileView view = viewOf({1});
    view.fromKm = 2;
    view.toKm = 4;
    const ProfileLayout layout = smallProfile(view).layout();
    const PlotArea& area = layout.panels[0].area;
    for (const ProfileCurve& curve : layout.panels[0].curves) {
        EXPECT_EQ(curve.traced.runs.at(0).front().x, area.left);
        EXPECT_EQ(curve.traced.runs.at(0).back().x, area.right);
    }
    EXPECT_EQ(onlyStroke(layout).from.x, area.left);
    EXPECT_EQ(onlyStroke(layout).to.x, area.right);
    EXPECT_EQ(onlyStroke(layout).from.y, layout.panels[0].values.scale.place(4));
}

TEST(ProfileLayout, HasALineAtZeroOfChangesAndOneOfRatios) {
    ProfileView view = viewOf({1});
    EXPECT_FALSE(smallProfile(view).layout().panels[0].reference);
    view.kind = ProfileKind::change;
    const ProfilePanel change = smallProfile(view).layout().panels[0];
    EXPECT_EQ(change.reference, change.values.scale.place(0));
    EXPECT_EQ(change.bands.size(), 2U); // what rises above 0, and what falls below
    view.kind = ProfileKind::ratio;
    const ProfilePanel ratio = smallProfile(view).layout().panels[0];
    EXPECT_EQ(ratio.reference, ratio.values.scale.place(1));
}

TEST(ProfileLayout, TellsWhatALogarithmicScaleLeavesOut) {
    ProfileView view = viewOf({1});
    view.scale = ScaleKind::logarithmic;
    const auto texts = [&](const std::vector<PointSample>& points) {
        return allTexts(profileOf(studyOf({oneReach(points)}), view).layout());
    };
    EXPECT_EQ(texts({{0, 1}, {5, 2}}).find("left out"), std::string::npos);
    EXPECT_NE(texts({{0, 1}, {5, 0}}).find("1 value not above 0 is left out"), std::string::npos);
    EXPECT_NE(texts({{0, 1}, {5, 0}, {6, -1}}).find("2 values not above 0 are left out"), std::string::npos);
    EXPECT_NE(texts({}).find("nothing to show here"), std::string::npos);
}

TEST(ProfileLayout, DrawsDashesSolidWherePointsAreDense) {
    std::vector<ResultsFileBuilder> sparse(9, oneReach({{0, 1}, {5, 2}})), dense;
    ResultsFileBuilder many = riverOf({{1, 260}});
    many.points(2600);
    for (int k = 0; k < 9; ++k)
        dense.push_back(many);
    const auto dashOfRun8 = [&](const std::vector<ResultsFileBuilder>& files) {
        const ProfileLayout layout = profileOf(studyOf(files), viewOf({1})).layout();
        return std::ranges::find(layout.panels[0].curves, 8U, &ProfileCurve::run)->pen.dash;
    };
    EXPECT_NE(dashOfRun8(sparse), Dash::solid);
    EXPECT_EQ(dashOfRun8(dense), Dash::solid);
}

TEST(ProfileLayout, KeepsTextsApartAndInside) {
    std::mt19937 random(41);
    for (int round = 0; round < 40; ++round) {
        ResultsFileBuilder file;
        const int determinands = 1 + static_cast<int>(random() % 5);
        for (int d = 1; d <= determinands; ++d)
            file.determinand(1, "Determinand" + std::to_string(d));
        const int reaches = 1 + static_cast<int>(random() % 12);
        for (int r = 1; r <= reaches; ++r)
            file.reach(r, "A reach name " + std::to_string(r), 1 + static_cast<double>(random() % 9),
                       r < reaches ? r + 1 : 0);
        for (int r = 1; r <= reaches; ++r)
            for (double km = 0; km < 2 && random() % 5 != 0; km += 0.5)
                file.point(r, km, std::string(random() % 38, 'w') + "   ", 3);
        std::vector<ResultsFileBuilder> files(1 + random() % 12, file);
        ProfileView view;
        for (int series = 0; series <= 2 * determinands; ++series)
            if (series == 0 || random() % 2 == 0) view.series.push_back(series);
        const double width = 9000 + static_cast<double>(random() % 20000),
                     height = 9000 + static_cast<double>(random() % 8000);
        const ProfileLayout layout = profileOf(studyOf(files), view).layout(width, height);
        std::vector<DrawnText> texts = layout.texts;
        for (const ProfilePanel& panel : layout.panels)
            texts.insert(texts.end(), panel.texts.begin(), panel.texts.end());
        for (const ProfileKeyEntry& entry : layout.key)
            texts.push_back(entry.text);
        for (const FeatureMark& feature : layout.features)
            if (!feature.text.text.empty()) texts.push_back(feature.text);
        for (std::size_t a = 0; a < texts.size(); ++a) {
            ASSERT_GE(texts[a].corner.x, -1) << texts[a].text;
            ASSERT_LE(texts[a].corner.x + texts[a].width, width + 1) << texts[a].text << ' ' << round;
            ASSERT_GE(texts[a].corner.y, 0);
            ASSERT_LE(texts[a].corner.y + texts[a].height, height + 1) << texts[a].text << ' ' << round;
            for (std::size_t b = 0; b < a; ++b)
                ASSERT_FALSE(overlap(texts[a], texts[b]))
                    << round << ": " << texts[a].text << " and " << texts[b].text;
        }
    }
}

TEST(ProfileLayout, StandsARunWithoutPoints) {
    const Profile empty = profileOf(studyOf({riverOf({{1, 0}})}), viewOf({0, 1}));
    const ProfileLayout layout = empty.layout();
    ASSERT_EQ(layout.panels.size(), 2U);
    EXPECT_EQ(nearestPlace(layout, *empty.data.path, 100), std::nullopt);
    Drawing drawing;
    paint(layout, drawing);
    EXPECT_GT(drawing.commands.size(), 10U);
    const ProfileLayout none = profileOf(studyOf({riverOf({{1, 5}})}), viewOf({})).layout();
    EXPECT_TRUE(none.panels.empty());
    EXPECT_GT(none.axisY, 0);
}

TEST(ProfileCursor, RunsThroughAllPanelsWithAMarkOnEachCurve) {
    const Profile profile = smallProfile(viewOf({1, 2}));
    const ProfileLayout layout = profile.layout();
    Drawing drawing;
    paintCursor(layout, profile.data, 1, drawing);
    const auto* line = std::get_if<DrawnLine>(&drawing.commands.at(0));
    ASSERT_NE(line, nullptr);
    EXPECT_EQ(line->from, (DrawnPoint{xOf(layout, 5), layout.panels[0].area.top}));
    EXPECT_EQ(line->to, (DrawnPoint{xOf(layout, 5), layout.panels[1].area.bottom}));
    EXPECT_EQ(drawing.commands.size(), 1U + 2 * 2 * 2); // two panels, two runs, a ground and a mark each
}

} // namespace korvel
