#include "graphs/draw/LabelRows.h"

#include <gtest/gtest.h>

#include <random>

namespace korvel {

namespace {

using Places = std::vector<std::optional<LabelPlace>>;

struct Box {
    double left, right;
};

Box boxOf(const LabelRequest& request, const LabelPlace& place) {
    return {place.left, place.left + request.width};
}

// Whether a leader to the first label, or its text, runs into the other.
void expectClear(const LabelRequest& one, const LabelPlace& place, const LabelRequest& other,
                 const LabelPlace& otherPlace) {
    const Box box = boxOf(one, place), otherBox = boxOf(other, otherPlace);
    if (place.row == otherPlace.row) {
        EXPECT_TRUE(box.right < otherBox.left || otherBox.right < box.left);
    } else if (place.row > otherPlace.row) {
        EXPECT_TRUE(one.at < otherBox.left || one.at > otherBox.right);
    }
}

void expectAllClear(const std::vector<LabelRequest>& requests, const Places& places,
                    const LabelStrip& strip) {
    for (std::size_t k = 0; k < places.size(); ++k) {
        if (!places[k]) continue;
        EXPECT_GE(places[k]->left, strip.left);
        EXPECT_LE(places[k]->left + requests[k].width, strip.right + 1e-9);
        for (std::size_t other = 0; other < places.size(); ++other)
            if (other != k && places[other])
                expectClear(requests[k], *places[k], requests[other], *places[other]);
    }
}

std::vector<LabelRequest> randomRequests(std::mt19937& random, int count) {
    std::uniform_real_distribution<double> at(0, 1000), width(20, 180);
    std::vector<LabelRequest> requests;
    for (int k = 0; k < count; ++k)
        requests.push_back({at(random), width(random), false});
    std::sort(requests.begin(), requests.end(), [](auto& a, auto& b) { return a.at < b.at; });
    if (!requests.empty()) requests.front().required = requests.back().required = true;
    return requests;
}

} // namespace

TEST(LabelRows, CentresLabelsThatHaveRoom) {
    const Places places = placeLabels({{100, 40, true}, {300, 60, false}, {500, 40, true}}, {0, 600, 5, 3});
    EXPECT_EQ(places, (Places{LabelPlace{0, 80}, LabelPlace{0, 270}, LabelPlace{0, 480}}));
}

TEST(LabelRows, KeepsALabelInsideTheStrip) {
    EXPECT_EQ(placeLabels({{0, 100, true}}, {-20, 600, 5, 3}), Places{(LabelPlace{0, -20})});
    EXPECT_EQ(placeLabels({{600, 100, true}}, {0, 610, 5, 3}), Places{(LabelPlace{0, 510})});
}

TEST(LabelRows, TakesFurtherRowsForLabelsCloseTogether) {
    const std::vector<LabelRequest> requests = {{300, 200, true}, {330, 200, false}, {360, 200, true}};
    const LabelStrip strip{0, 1000, 5, 3};
    const Places places = placeLabels(requests, strip);
    for (const auto& place : places)
        EXPECT_TRUE(place);
    expectAllClear(requests, places, strip);
}

TEST(LabelRows, LeavesOutWhatFindsNoRow) {
    std::vector<LabelRequest> requests;
    for (int k = 0; k <= 10; ++k)
        requests.push_back({k * 10.0, 90, k == 0 || k == 10});
    const LabelStrip strip{-20, 120, 5, 2};
    const Places places = placeLabels(requests, strip);
    EXPECT_TRUE(places.front());
    EXPECT_TRUE(places.back());
    EXPECT_LE(std::count_if(places.begin(), places.end(), [](auto& place) { return place.has_value(); }), 2);
}

TEST(LabelRows, GivesRequiredLabelsAPlaceWhereThereIsNone) {
    const Places places = placeLabels({{0, 100, true}, {50, 100, true}}, {0, 100, 5, 1});
    ASSERT_TRUE(places[0]);
    ASSERT_TRUE(places[1]);
    EXPECT_EQ(places[1], (LabelPlace{0, 0})) << "the last one has the strip's own row";
    EXPECT_EQ(places[0], (LabelPlace{1, 0})) << "the other one a row of its own under the strip";
}

TEST(LabelRows, NoLabelCoversAnotherAndNoLeaderPassesThroughOne) {
    std::mt19937 random(7);
    for (int round = 0; round < 300; ++round) {
        const std::vector<LabelRequest> requests = randomRequests(random, 1 + round % 60);
        const LabelStrip strip{-200, 1200, 6, 2 + round % 6};
        const Places places = placeLabels(requests, strip);
        EXPECT_TRUE(places.front());
        EXPECT_TRUE(places.back());
        expectAllClear(requests, places, strip);
    }
}

TEST(LabelRows, EveryLabelIsOnTheFirstRowThatIsFreeBesideItsLeader) {
    std::mt19937 random(11);
    for (int round = 0; round < 100; ++round) {
        const std::vector<LabelRequest> requests = randomRequests(random, 12);
        const LabelStrip strip{-200, 1200, 6, 5};
        const Places places = placeLabels(requests, strip);
        // A label alone on the strip is always on the first row.
        if (std::count_if(places.begin(), places.end(), [](auto& place) { return place.has_value(); }) == 1) {
            EXPECT_EQ(places.front()->row, 0);
        }
        bool rowTaken[8] = {};
        for (const auto& place : places)
            if (place) rowTaken[place->row] = true;
        EXPECT_TRUE(rowTaken[0]);
    }
}

TEST(LabelRows, HasNothingToPlaceWithoutRequests) {
    EXPECT_TRUE(placeLabels({}, {0, 100, 5, 2}).empty());
}

} // namespace korvel
