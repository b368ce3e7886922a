#include "drawing/LabelPlacing.h"

#include "fakes/Rounds.h"

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
            1 + dice.upTo(5)};
}

// The most labels that fit, found by trying all subsets and rows: each label as far to the left as those
// before it allow.
class EveryWay {
  public:
    EveryWay(Requests requests, const LabelStrip& strip) : m_requests(std::move(requests)), m_strip(strip) {
        std::ranges::sort(m_requests, {}, &LabelRequest::at);
    }

    std::size_t most() {
        tryFrom(0);
        return m_most;
    }

  private:
    struct Shown {
        const LabelRequest* request;
        LabelPlace place;
    };

    void tryFrom(std::size_t k) {
        m_most = std::max(m_most, m_shown.size());
        if (k == m_requests.size()) return;
        for (int row = 0; row < m_strip.rows; ++row)
            if (const auto place = leftmost(m_requests[k], row)) {
                m_shown.push_back({&m_requests[k], *place});
                tryFrom(k + 1);
                m_shown.pop_back();
            }
        tryFrom(k + 1);
    }
    std::optional<LabelPlace> leftmost(const LabelRequest& request, int row) const {
        const double clear = m_strip.clearance();
        double port = std::max(m_strip.left, request.at - m_strip.reach), text = m_strip.left;
        for (const auto& [other, place] : m_shown) {
            const double end = place.left + other->width;
            port = std::max(port, place.port + clear);
            if (place.row < row) port = std::max(port, end + clear);
            if (place.row == row) text = std::max(text, end + m_strip.gap);
            if (place.row > row) text = std::max(text, place.port + clear);
        }
        port = std::max(port, text - clear);
        text = std::max(text, port - request.width - clear);
        const bool inside = text + request.width <= m_strip.right && port <= m_strip.right;
        return inside && port <= request.at + m_strip.reach ? std::optional(LabelPlace{row, text, port})
                                                            : std::nullopt;
    }

    Requests m_requests;
    LabelStrip m_strip;
    std::vector<Shown> m_shown;
    std::size_t m_most = 0;
};

// Whether a label on a straight leader has room among the others.
bool hasRoomFor(const LabelRequest& request, const Requests& requests, const Places& places,
                const LabelStrip& strip) {
    for (int row = 0; row < strip.rows; ++row) {
        double from = std::max(strip.left, request.at - request.width);
        double to = std::min(strip.right, request.at + request.width);
        bool leaderIsClear = true;
        for (std::size_t k = 0; k < places.size(); ++k) {
            if (!places[k]) continue;
            const bool before = requests[k].at < request.at;
            const double end = places[k]->left + requests[k].width;
            const double margin = strip.gap + 0.01;
            leaderIsClear = leaderIsClear && (before ? places[k]->port + margin < request.at
                                                     : places[k]->port - margin > request.at);
            if (places[k]->row < row)
                leaderIsClear = leaderIsClear &&
                                (before ? end + margin < request.at : places[k]->left - margin > request.at);
            if (places[k]->row == row)
                (before ? from = std::max(from, end + margin) : to = std::min(to, places[k]->left - margin));
            if (places[k]->row > row)
                (before ? from = std::max(from, places[k]->port + margin)
                        : to = std::min(to, places[k]->port - margin));
        }
        if (leaderIsClear && to - from >= request.width && from <= request.at && to >= request.at)
            return true;
    }
    return false;
}

double secondsFor(int count, double width, int rows) {
    Dice dice{std::mt19937(5)};
    Requests requests;
    for (int k = 0; k < count; ++k)
        requests.push_back({dice.between(0, width), dice.between(60, 250), dice.upTo(2) == 0});
    requests.front().required = requests.back().required = true;
    const auto start = std::chrono::steady_clock::now();
    EXPECT_GT(shownCount(placeLabels(requests, {0, width, 6, 90, rows})), 2u);
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// The features of a river of six reaches on a window of middle size: places and widths in pixels.
Requests longRiver() {
    const std::vector<LabelRequest> river = {
        {56.5, 240.3, true},   {79.3, 213.6, true},  {97.0, 251.3, true},   {126.3, 209.2},
        {152.2, 283.1, true},  {180.9, 189.3, true}, {210.3, 244.7, true},  {232.3, 294.5, true},
        {256.8, 190.4, true},  {281.7, 189.0},       {306.7, 286.7},        {332.9, 287.9, true},
        {357.4, 223.6, true},  {390.8, 307.8, true}, {408.8, 280.8, true},  {432.4, 231.4, true},
        {454.2, 276.8, true},  {478.1, 252.4, true}, {502.9, 250.2, true},  {527.4, 224.8, true},
        {562.0, 233.6, true},  {580.3, 333.3, true}, {618.0, 214.8},        {640.4, 321.0},
        {668.7, 249.1, true},  {696.7, 242.5},       {735.5, 189.3, true},  {763.7, 179.3},
        {788.7, 308.9, true},  {807.1, 232.5, true}, {830.6, 212.6},        {871.3, 335.1},
        {897.2, 209.3},        {921.5, 263.5, true}, {946.5, 214.8, true},  {970.9, 210.0},
        {990.5, 272.4, true},  {1015.2, 284.5},      {1039.7, 307.8, true}, {1062.5, 226.9, true},
        {1092.6, 298.6, true}, {1114.5, 244.7},      {1139.3, 304.5, true}, {1147.5, 308.9, true},
    };
    Requests requests = river;
    requests.front().required = requests.back().required = true;
    return requests;
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
    for (int round = 0; round < roundsOf(2000); ++round) {
        const Requests requests = randomRequests(dice, round % 100 == 0 ? 40 : 1 + round % 8);
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
    for (int round = 0; round < roundsOf(30); ++round) {
        const Requests requests = randomRequests(dice, 20);
        const LabelStrip strip = randomStrip(dice);
        const Places forward = placeLabels(requests, strip);
        Places backward = placeLabels(Requests(requests.rbegin(), requests.rend()), strip);
        std::reverse(backward.begin(), backward.end());
        ASSERT_EQ(forward, backward);
    }
}

TEST(LabelPlacing, ShowsAlmostAsManyAsAllWaysTriedShow) {
    Dice dice{std::mt19937(13)};
    std::size_t shown = 0, most = 0;
    for (int round = 0; round < roundsOf(400); ++round) {
        Requests requests = randomRequests(dice, 2 + dice.upTo(5));
        for (LabelRequest& request : requests)
            request.required = request.important = false;
        const LabelStrip strip{0, dice.between(300, 1000), dice.between(0, 10), dice.between(0, 200),
                               1 + dice.upTo(2)};
        const std::size_t ours = shownCount(placeLabels(requests, strip));
        const std::size_t best = EveryWay(requests, strip).most();
        ASSERT_LE(ours, best) << "round " << round;
        ASSERT_GE(ours + 1, best) << "round " << round;
        shown += ours;
        most += best;
    }
    EXPECT_GE(static_cast<double>(shown), 0.98 * static_cast<double>(most));
}

TEST(LabelPlacing, ShowsAlmostAsManyWithFewerCandidates) {
    const Requests requests = longRiver();
    LabelStrip strip{0, 1165, 6.7, 89, 6};
    const std::size_t most = shownCount(placeLabels(requests, strip));
    strip.candidates = 50;
    const Places places = placeLabels(requests, strip);
    expectAllClear(requests, places, strip);
    EXPECT_GE(shownCount(places) + 1, most);
}

TEST(LabelPlacing, AddsWhatStillHasRoom) {
    Dice dice{std::mt19937(17)};
    for (int round = 0; round < roundsOf(200); ++round) {
        const Requests requests = randomRequests(dice, 5 + round % 12);
        const LabelStrip strip = randomStrip(dice);
        const Places places = placeLabels(requests, strip);
        for (std::size_t k = 0; k < places.size(); ++k)
            ASSERT_TRUE(places[k] || !hasRoomFor(requests[k], requests, places, strip)) << round << ", " << k;
    }
}

TEST(LabelPlacing, ShowsMostFeaturesOfALongRiver) {
    const Requests requests = longRiver();
    ASSERT_EQ(requests.size(), 44u);
    const LabelStrip strip{0, 1165, 6.7, 89, 6};
    const Places places = placeLabels(requests, strip);
    expectAllClear(requests, places, strip);
    EXPECT_GE(shownCount(places), 24u);
    double last = 0, longest = 0;
    for (std::size_t k = 0; k < places.size(); ++k)
        if (places[k]) {
            longest = std::max(longest, requests[k].at - last);
            last = requests[k].at;
        }
    EXPECT_LT(longest, 0.15 * 1165) << "the longest stretch without a label";
}

TEST(LabelPlacing, ShiftingAndEnlargingChangeNothing) {
    const Requests requests = longRiver();
    const Places places = placeLabels(requests, {0, 1165, 6.7, 89, 6});
    for (const auto& [factor, shift] : {std::pair{2.0, 0.0}, {0.25, -1234.567}, {1.0 / 3, 1e5}}) {
        Requests moved = requests;
        for (LabelRequest& request : moved) {
            request.at = request.at * factor + shift;
            request.width *= factor;
        }
        const Places there = placeLabels(moved, {shift, 1165 * factor + shift, 6.7 * factor, 89 * factor, 6});
        for (std::size_t k = 0; k < places.size(); ++k) {
            ASSERT_EQ(places[k].has_value(), there[k].has_value());
            if (!places[k]) continue;
            EXPECT_EQ(places[k]->row, there[k]->row);
            EXPECT_NEAR(places[k]->left * factor + shift, there[k]->left, 1e-3);
            EXPECT_NEAR(places[k]->port * factor + shift, there[k]->port, 1e-3);
        }
    }
}

// An exact figure is for the benchmark; here it is the way that the time grows, with much to spare.
TEST(LabelPlacing, TakesTimeInProportionToTheLabels) {
    for (const double widthEach : {0.0, 300.0}) {
        const double few = secondsFor(3000, 1200 + 3000 * widthEach, 6);
        EXPECT_LT(secondsFor(60000, 1200 + 60000 * widthEach, 6), 4 * 20 * few + 1) << widthEach;
    }
}

TEST(LabelPlacing, HasNothingToPlaceWithoutRequestsOrRows) {
    EXPECT_TRUE(placeLabels({}, {0, 100, 5, 20, 2}).empty());
    EXPECT_EQ(placeLabels({{50, 20}}, {0, 100, 5, 20, 0}), Places{std::nullopt});
}

} // namespace korvel
