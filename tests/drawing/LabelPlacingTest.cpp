#include "drawing/LabelPlacing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <random>

namespace korvel {

namespace {

using Requests = std::vector<LabelRequest>;
using Places = std::vector<std::optional<LabelPlace>>;

constexpr double rounding = 1e-4;

std::size_t shownCount(const Places& places) {
    return static_cast<std::size_t>(
        std::count_if(places.begin(), places.end(), [](auto& place) { return place.has_value(); }));
}

void expectInside(const LabelRequest& request, const LabelPlace& place, const LabelStrip& strip) {
    EXPECT_GE(place.left, strip.left - rounding);
    EXPECT_LE(place.left + request.width, strip.right + rounding);
    EXPECT_GE(place.port, strip.left - rounding);
    EXPECT_LE(place.port, strip.right + rounding);
    EXPECT_GE(place.row, 0);
    EXPECT_LT(place.row, strip.rows);
}

// The leader comes down beside the text or on it.
void expectJoined(const LabelRequest& request, const LabelPlace& place, const LabelStrip& strip) {
    EXPECT_GE(place.port, place.left - strip.clearance() - rounding);
    EXPECT_LE(place.port, place.left + request.width + strip.clearance() + rounding);
    if (request.required) return;
    EXPECT_LE(std::abs(place.port - request.at), strip.reach + rounding);
}

// The texts don't touch, and the first one's leader passes the other one's text.
void expectClear(const LabelRequest& one, const LabelPlace& place, const LabelRequest& other,
                 const LabelPlace& otherPlace, const LabelStrip& strip) {
    if (place.row == otherPlace.row) {
        EXPECT_TRUE(place.left + one.width + strip.gap <= otherPlace.left + rounding ||
                    otherPlace.left + other.width + strip.gap <= place.left + rounding);
    } else if (place.row > otherPlace.row) {
        EXPECT_TRUE(place.port <= otherPlace.left - strip.clearance() + rounding ||
                    place.port >= otherPlace.left + other.width + strip.clearance() - rounding);
    }
    // Leaders that keep their order do not cross where they slant.
    EXPECT_TRUE(one.at >= other.at || place.port < otherPlace.port + rounding);
}

void expectAllClear(const Requests& requests, const Places& places, const LabelStrip& strip) {
    ASSERT_EQ(places.size(), requests.size());
    for (std::size_t k = 0; k < places.size(); ++k) {
        if (!places[k]) continue;
        expectInside(requests[k], *places[k], strip);
        expectJoined(requests[k], *places[k], strip);
        for (std::size_t other = 0; other < places.size(); ++other)
            if (other != k && places[other])
                expectClear(requests[k], *places[k], requests[other], *places[other], strip);
    }
}

void expectPlaces(const Places& places, const Places& wanted) {
    ASSERT_EQ(places.size(), wanted.size());
    for (std::size_t k = 0; k < places.size(); ++k) {
        ASSERT_TRUE(places[k]) << k;
        EXPECT_EQ(places[k]->row, wanted[k]->row) << k;
        EXPECT_NEAR(places[k]->left, wanted[k]->left, 0.001) << k;
        EXPECT_EQ(places[k]->port, wanted[k]->port) << k;
    }
}

struct Dice {
    std::mt19937 random;

    double between(double from, double to) {
        return std::uniform_real_distribution<double>(from, to)(random);
    }
    int upTo(int most) { return std::uniform_int_distribution<int>(0, most)(random); }
};

Requests randomRequests(Dice& dice, int count) {
    Requests requests;
    for (int k = 0; k < count; ++k)
        requests.push_back({dice.between(0, 1000), dice.between(20, 300), dice.upTo(1) == 1, false});
    if (!requests.empty()) requests.front().required = requests.back().required = true;
    return requests;
}

LabelStrip randomStrip(Dice& dice) {
    return {dice.between(-50, 0), dice.between(1000, 1100), dice.between(0, 10), dice.between(0, 200),
            1 + dice.upTo(7)};
}

} // namespace

TEST(LabelPlacing, CentresLabelsThatHaveRoom) {
    const Places places = placeLabels({{100, 40}, {300, 60}, {500, 40}}, {0, 600, 5, 100, 3});
    expectPlaces(places, Places{LabelPlace{0, 80, 100}, LabelPlace{0, 270, 300}, LabelPlace{0, 480, 500}});
}

TEST(LabelPlacing, KeepsALabelInsideTheStrip) {
    expectPlaces(placeLabels({{0, 100}}, {-20, 600, 5, 100, 3}), Places{LabelPlace{0, -20, 0}});
    expectPlaces(placeLabels({{600, 100}}, {0, 610, 5, 100, 3}), Places{LabelPlace{0, 510, 600}});
}

TEST(LabelPlacing, TakesFurtherRowsForLabelsCloseTogether) {
    const Requests requests = {{300, 200}, {330, 200}, {360, 200}};
    const LabelStrip strip{0, 1000, 5, 0, 3};
    const Places places = placeLabels(requests, strip);
    EXPECT_EQ(shownCount(places), 3u);
    expectAllClear(requests, places, strip);
}

TEST(LabelPlacing, BendsLeadersWhereThatShowsMore) {
    Requests requests;
    for (int k = 0; k < 5; ++k)
        requests.push_back({500.0 + k, 190});
    EXPECT_EQ(shownCount(placeLabels(requests, {0, 1000, 5, 0, 1})), 2u) << "one at each side";
    EXPECT_EQ(shownCount(placeLabels(requests, {0, 1000, 5, 500, 1})), 5u);
}

TEST(LabelPlacing, PlacesLabelsInAnyOrderOfTheirAnchors) {
    const Places places = placeLabels({{500, 40}, {100, 40}, {300, 60}}, {0, 600, 5, 100, 3});
    expectPlaces(places, Places{LabelPlace{0, 480, 500}, LabelPlace{0, 80, 100}, LabelPlace{0, 270, 300}});
}

TEST(LabelPlacing, ShowsTheLaterOfTwoRequiredLabelsWhereOnlyOneFits) {
    for (const double at : {0.0, 50.0, 100.0}) {
        const Places places =
            placeLabels({{at, 100, false, true}, {100 - at, 100, false, true}}, {0, 110, 5, 20, 1});
        EXPECT_FALSE(places[0]) << at;
        EXPECT_TRUE(places[1]) << at;
    }
}

TEST(LabelPlacing, ShowsBothRequiredLabelsWhereTheyFit) {
    for (const double at : {0.0, 50.0, 100.0, 205.0}) {
        const Requests requests = {{at, 100, false, true}, {at, 100, false, true}};
        const LabelStrip strip{0, 205.001, 5, 20, 1};
        EXPECT_EQ(shownCount(placeLabels(requests, strip)), 2u) << at;
    }
}

TEST(LabelPlacing, LeavesOutATextWiderThanTheStrip) {
    EXPECT_EQ(placeLabels({{50, 101, false, true}}, {0, 100, 5, 20, 3}), Places{std::nullopt});
    expectPlaces(placeLabels({{50, 100, false, true}}, {0, 100, 5, 20, 3}), Places{LabelPlace{0, 0, 50}});
}

TEST(LabelPlacing, PrefersImportantLabels) {
    const Places places = placeLabels({{100, 90}, {120, 90, true}, {140, 90}}, {50, 180, 5, 0, 1});
    EXPECT_EQ(shownCount(places), 1u);
    EXPECT_TRUE(places[1]);
}

TEST(LabelPlacing, NoLabelCoversAnotherAndNoLeaderPassesThroughOne) {
    Dice dice{std::mt19937(7)};
    for (int round = 0; round < 300; ++round) {
        const Requests requests = randomRequests(dice, 1 + round % 40);
        const LabelStrip strip = randomStrip(dice);
        const Places places = placeLabels(requests, strip);
        const bool bothFit =
            strip.rows > 1 || requests.front().width + requests.back().width + strip.gap < 1000;
        EXPECT_TRUE(places.back());
        EXPECT_TRUE(places.front() || !bothFit);
        expectAllClear(requests, places, strip);
        ASSERT_FALSE(HasFailure()) << "round " << round;
    }
}

TEST(LabelPlacing, TheOrderOfRequestsDoesNotMatter) {
    Dice dice{std::mt19937(11)};
    for (int round = 0; round < 40; ++round) {
        const Requests requests = randomRequests(dice, 20);
        const LabelStrip strip = randomStrip(dice);
        const Places forward = placeLabels(requests, strip);
        Places backward = placeLabels(Requests(requests.rbegin(), requests.rend()), strip);
        std::reverse(backward.begin(), backward.end());
        ASSERT_EQ(forward, backward);
    }
}

TEST(LabelPlacing, HasNothingToPlaceWithoutRequestsOrRows) {
    EXPECT_TRUE(placeLabels({}, {0, 100, 5, 20, 2}).empty());
    EXPECT_EQ(placeLabels({{50, 20}}, {0, 100, 5, 20, 0}), Places{std::nullopt});
}

} // namespace korvel
