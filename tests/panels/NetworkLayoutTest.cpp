#include "panels/NetworkLayout.h"

#include "analysis/RiverSample.h"
#include "fakes/FixedTextMetrics.h"
#include "panels/NetworkLanes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <set>

namespace korvel {

namespace {

struct ReachLine {
    int number;
    double length;
    int next;
};

ResultsFileBuilder catchment(const std::vector<ReachLine>& reaches) {
    ResultsFileBuilder file;
    file.determinand(1, "BOD");
    for (const ReachLine& reach : reaches)
        file.reach(reach.number, "River " + std::to_string(reach.number), reach.length, reach.next);
    return file;
}

struct Picture {
    SharedRun run;
    Network network;
    NetworkLayout layout;
};

Picture pictureOf(const ResultsFileBuilder& file, const NetworkView& view = {}, double width = 15000,
                  double height = 4000) {
    Picture picture{runOf(file), {}, {}};
    picture.network = networkOf(*picture.run);
    picture.layout = layOutNetwork(*picture.run, picture.network, view, panelLook(Theme::light), width,
                                   height, FixedTextMetrics());
    return picture;
}

// By river, from 0 at the top.
std::vector<int> lanesOf(const std::vector<ReachLine>& reaches) {
    const Picture picture = pictureOf(catchment(reaches));
    std::vector<RiverExtent> extents;
    for (const River& river : picture.network.rivers) {
        const auto head = static_cast<std::size_t>(river.reaches.front()),
                   last = static_cast<std::size_t>(river.reaches.back());
        extents.push_back({picture.layout.reaches[head].from, picture.layout.reaches[last].to});
    }
    return riverLanes(picture.network, extents, 10);
}

// A river that others run into, farther and farther up.
ResultsFileBuilder randomCatchment(std::mt19937& random, int reaches) {
    std::vector<ReachLine> lines;
    for (int number = 1; number <= reaches; ++number) {
        const int next = number == 1 || random() % 40 == 0
                             ? 0
                             : 1 + static_cast<int>(random() % static_cast<unsigned>(number - 1));
        lines.push_back({number, 1 + static_cast<double>(random() % 1000) / 97, next});
    }
    return catchment(lines);
}

} // namespace

TEST(RiverLanes, LieAboveAndBelowInTurn) {
    const struct {
        std::vector<ReachLine> reaches;
        std::vector<int> lanes; // by river: the main one first, then its tributaries from the mouth upward
    } cases[] = {
        {{{1, 10, 0}}, {0}},
        {{{1, 10, 2}, {2, 10, 0}, {3, 5, 2}}, {1, 0}},
        // The upper tributary lies above, the lower one below.
        {{{1, 10, 2}, {2, 10, 3}, {3, 10, 0}, {4, 5, 2}, {5, 15, 3}}, {1, 2, 0}},
        // The third one is long: it goes round the first.
        {{{1, 10, 2}, {2, 10, 3}, {3, 10, 4}, {4, 10, 0}, {5, 5, 2}, {6, 5, 3}, {7, 25, 4}}, {2, 0, 3, 1}},
        // A tributary's own ones go with it.
        {{{1, 20, 2}, {2, 10, 0}, {3, 5, 4}, {4, 5, 2}, {5, 4, 4}}, {2, 1, 0}},
        // Two mouths lie one below the other.
        {{{1, 10, 0}, {2, 10, 0}}, {0, 1}},
    };
    for (const auto& [reaches, lanes] : cases)
        EXPECT_EQ(lanesOf(reaches), lanes) << reaches.size();
}

TEST(NetworkLayout, CrossesNoForeignRiver) {
    std::mt19937 random(13);
    for (int round = 0; round < 150; ++round) {
        const Picture picture = pictureOf(randomCatchment(random, 1 + static_cast<int>(random() % 60)));
        const NetworkLayout& layout = picture.layout;
        std::vector<std::pair<double, double>> joinPlaces;
        for (std::size_t a = 0; a < picture.network.rivers.size(); ++a) {
            const River& river = picture.network.rivers[a];
            const auto reachOf = [&](int place) -> const NetworkReach& {
                return layout.reaches[static_cast<std::size_t>(place)];
            };
            const NetworkReach &head = reachOf(river.reaches.front()), &last = reachOf(river.reaches.back());
            for (std::size_t b = 0; b < a; ++b) { // rivers on one lane lie apart
                const River& other = picture.network.rivers[b];
                const NetworkReach &otherHead = reachOf(other.reaches.front()),
                                   &otherLast = reachOf(other.reaches.back());
                if (head.y != otherHead.y) continue;
                ASSERT_TRUE(head.from > otherLast.to || otherHead.from > last.to) << round;
            }
            if (river.joins < 0) continue;
            const double into = reachOf(river.joins).y;
            for (const NetworkReach& reach : layout.reaches) {
                const bool between =
                    reach.y > std::min(last.y, into) + 1 && reach.y < std::max(last.y, into) - 1;
                if (between) {
                    ASSERT_FALSE(reach.from < last.to - 1e-6 && last.to < reach.to - 1e-6) << round;
                }
            }
        }
    }
}

TEST(NetworkLayout, HasTheMouthAtTheRight) {
    const NetworkLayout layout = pictureOf(catchment({{1, 10, 2}, {2, 5, 0}, {3, 3, 2}})).layout;
    EXPECT_NEAR(layout.reaches[1].to, layout.distance.scale.from, 1e-6);
    EXPECT_NEAR(layout.reaches[0].from, layout.distance.scale.to, 1e-6);
    EXPECT_LT(layout.reaches[0].from, layout.reaches[0].to);
    EXPECT_NEAR(layout.reaches[0].to, layout.reaches[1].from, 1e-6);
    ASSERT_EQ(layout.joins.size(), 1U);
    EXPECT_EQ(layout.joins[0].from, (DrawnPoint{layout.reaches[2].to, layout.reaches[2].y}));
    EXPECT_EQ(layout.joins[0].to, (DrawnPoint{layout.reaches[1].from, layout.reaches[1].y}));
}

TEST(NetworkLayout, TellsPlacesFromPoints) {
    const NetworkLayout layout = pictureOf(catchment({{1, 10, 2}, {2, 5, 0}, {3, 3, 2}})).layout;
    for (const NetworkSpot spot : {NetworkSpot{0, 2.5}, NetworkSpot{1, 4}, NetworkSpot{2, 1.5}}) {
        const auto at = placeOf(layout, spot);
        ASSERT_TRUE(at);
        const auto found = spotAt(layout, {at->x, at->y + 20}, 50);
        ASSERT_TRUE(found);
        EXPECT_EQ(found->place, spot.place);
        EXPECT_NEAR(found->distance, spot.distance, 1e-9);
        EXPECT_FALSE(spotAt(layout, {at->x, at->y + 60}, 50));
    }
    EXPECT_FALSE(placeOf(layout, {7, 1}));
}

TEST(NetworkLayout, MarksFeaturesOnce) {
    ResultsFileBuilder file = catchment({{1, 10, 0}});
    file.point(1, 0, "Start of reach", 0)
        .point(1, 4, "U/S Mill", 3)
        .point(1, 4, "D/S Mill", 3)
        .point(1, 6, "i", 99);
    file.point(1, 8, "Weir", 2);
    const Picture picture = pictureOf(file);
    ASSERT_EQ(picture.layout.features.size(), 2U);
    const DrawnPoint at = picture.layout.features[0].at;
    EXPECT_EQ(featureAt(picture.layout, {at.x + 10, at.y}, 30), 0U);
    EXPECT_EQ(featureAt(picture.layout, {at.x + 40, at.y}, 30), std::nullopt);
    EXPECT_EQ(picture.run->results.pointLabel[picture.layout.features[1].point], "Weir");
}

TEST(NetworkLayout, HasWiderLinesForLargerFlows) {
    ResultsFileBuilder file = catchment({{1, 10, 4}, {2, 10, 4}, {3, 10, 4}, {4, 10, 0}});
    const auto point = [&](int reach, double flow) {
        file.point(reach, 1, "P", 10).setAll(1).set(ValueField::meanValue, 0, flow);
    };
    point(1, 1), point(2, 20), point(3, 39), point(4, 100);
    const NetworkLayout layout = pictureOf(file).layout;
    const auto width = [&](std::size_t place) { return layout.reaches[place].pen.width; };
    EXPECT_LT(width(0), width(1));
    EXPECT_EQ(width(1), width(2));
    EXPECT_LT(width(2), width(3));
}

TEST(NetworkLayout, HasLinesNoWiderThanTheirLanes) {
    std::mt19937 random(5);
    NetworkView view;
    view.colours = NetworkColours::byVerdict;
    const Picture picture = pictureOf(randomCatchment(random, 400), view, 15000, 2400);
    std::set<double> lanes;
    double widest = 0;
    for (const NetworkReach& reach : picture.layout.reaches) {
        lanes.insert(reach.y);
        widest = std::max(widest, reach.pen.width * picture.layout.look.pixel);
    }
    const double lane = (*lanes.rbegin() - *lanes.begin()) / static_cast<double>(lanes.size() - 1);
    EXPECT_LE(widest, std::max(lane, picture.layout.look.pixel));
    EXPECT_FALSE(std::ranges::any_of(picture.layout.texts, [](const DrawnText& text) {
        return text.text.find("wider") != std::string::npos;
    })) << "all are as thin as can be";
}

TEST(NetworkLayout, HasNoKeyWhereThereIsRoomForLittleMoreThanTheRivers) {
    NetworkView view;
    view.colours = NetworkColours::byVerdict;
    view.verdicts = {Verdict::pass};
    const ResultsFileBuilder file = catchment({{1, 10, 0}});
    const double line = FixedTextMetrics().measure("0", panelLook(Theme::light).font).height;
    EXPECT_EQ(pictureOf(file, view, 15000, 7.5 * line).layout.key.size(), 4u);
    const Picture low = pictureOf(file, view, 15000, 5 * line);
    EXPECT_TRUE(low.layout.key.empty());
    EXPECT_LT(low.layout.axisY, low.layout.height - line) << "the distances stay";
}

TEST(NetworkLayout, TellsVerdictsByColourDashAndSymbol) {
    NetworkView view;
    view.colours = NetworkColours::byVerdict;
    view.verdicts = {Verdict::pass, Verdict::unsure, Verdict::fail, Verdict::none};
    const NetworkLayout layout =
        pictureOf(catchment({{1, 9, 2}, {2, 9, 3}, {3, 9, 4}, {4, 9, 0}}), view).layout;
    ASSERT_EQ(layout.key.size(), 4U);
    for (std::size_t a = 0; a < 4; ++a) {
        EXPECT_EQ(layout.reaches[a].pen.dash, layout.key[a].pen.dash);
        for (std::size_t b = 0; b < a; ++b) {
            EXPECT_NE(layout.reaches[a].pen.dash, layout.reaches[b].pen.dash);
            EXPECT_NE(layout.reaches[a].pen.colour, layout.reaches[b].pen.colour);
            EXPECT_NE(layout.key[a].symbol, layout.key[b].symbol);
        }
    }
}

TEST(NetworkLayout, ColoursByValueWithAScale) {
    NetworkView view;
    view.colours = NetworkColours::byValue;
    view.values = {1.0, 4.0, std::nullopt};
    view.valueName = "BOD (Conc), mean";
    const NetworkLayout layout = pictureOf(catchment({{1, 9, 2}, {2, 9, 3}, {3, 9, 0}}), view).layout;
    EXPECT_EQ(layout.bar.values.scale.bottom, 0);
    EXPECT_EQ(layout.bar.values.scale.top, 4);
    EXPECT_EQ(layout.reaches[1].pen.colour, valueColour(1, Theme::light));
    EXPECT_EQ(layout.reaches[0].pen.colour, valueColour(0.25, Theme::light));
    EXPECT_EQ(layout.reaches[2].pen.dash, Dash::dot); // has no value
    EXPECT_LT(layout.bar.area.left, layout.bar.area.right);
    for (const DrawnText& text : layout.texts) {
        EXPECT_LE(text.corner.y + text.height, layout.height) << text.text;
        EXPECT_LE(text.corner.x + text.width, layout.width) << text.text;
    }
}

TEST(NetworkLayout, KeepsNamesApartAndInside) {
    std::mt19937 random(29);
    for (const int reaches : {1, 14, 60, 400}) {
        NetworkView view;
        view.colours = NetworkColours::byVerdict;
        const NetworkLayout layout = pictureOf(randomCatchment(random, reaches), view, 20000, 6000).layout;
        EXPECT_EQ(layout.reaches.size(), static_cast<std::size_t>(reaches));
        ASSERT_GE(layout.names.size(), 1U);
        for (const NetworkReach& reach : layout.reaches) {
            EXPECT_GE(reach.y, 0);
            EXPECT_LE(reach.y, layout.axisY);
        }
        for (std::size_t a = 0; a < layout.names.size(); ++a) {
            const DrawnText& text = layout.names[a].text;
            EXPECT_GE(text.corner.x, 0);
            EXPECT_LE(text.corner.x + text.width, layout.width);
            for (std::size_t b = 0; b < a; ++b) {
                const DrawnText& other = layout.names[b].text;
                const bool apart = text.corner.x >= other.corner.x + other.width ||
                                   other.corner.x >= text.corner.x + text.width ||
                                   std::abs(text.corner.y - other.corner.y) >= 0.8 * text.height - 1;
                EXPECT_TRUE(apart) << text.text << ' ' << other.text;
            }
        }
    }
}

TEST(NetworkLayout, TellsOfCircles) {
    const NetworkLayout layout = pictureOf(catchment({{1, 9, 2}, {2, 9, 1}})).layout;
    EXPECT_TRUE(layout.reaches.empty());
    ASSERT_EQ(layout.texts.size(), 1U);
    EXPECT_EQ(layout.texts[0].text, "Reaches 1, 2 run in a circle: no picture of it.");
    EXPECT_FALSE(spotAt(layout, {100, 100}, 1e9));
    Drawing drawing;
    paint(layout, drawing);
    paintChosen(layout, {0, 5}, drawing);
    EXPECT_EQ(drawing.commands.size(), 1U);
}

TEST(ReachMeans, WeighWithLength) {
    ResultsFileBuilder file = riverOf({{1, 10}, {2, 5}, {3, 5}});
    addPoints(file, 1, {{0, 2}, {1, 4}, {4, 8}});
    addPoints(file, 3, {{2, 3}, {2, 5}});
    const SharedRun run = runOf(file);
    EXPECT_EQ(reachMeans(*run, 1, Statistic::mean),
              (std::vector<std::optional<double>>{5.25, std::nullopt, 4}));
}

TEST(NetworkPainting, GivesNoTwoFailuresOneRoom) {
    std::vector<ReachLine> reaches;
    for (int number = 1; number <= 300; ++number)
        reaches.push_back({number, 1, number < 300 ? number + 1 : 0});
    NetworkView view;
    view.colours = NetworkColours::byVerdict;
    view.verdicts.assign(300, Verdict::pass);
    for (const std::size_t place : {0u, 100u, 101u, 102u, 299u})
        view.verdicts[place] = Verdict::fail;
    const Picture picture = pictureOf(catchment(reaches), view);
    Drawing drawing;
    paint(picture.layout, drawing);
    int strokes = 0; // two make the symbol of a failure
    for (const DrawnCommand& command : drawing.commands) {
        const auto* run = std::get_if<DrawnRun>(&command);
        const bool fails = run != nullptr && run->pen.colour == picture.layout.look.fail;
        strokes += fails && run->points.front().y < picture.layout.axisY ? 1 : 0;
    }
    EXPECT_EQ(strokes, 2 * 3) << "the ends', and one for three side by side";
}

} // namespace korvel
