#include "panels/VisiblePart.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <random>

namespace korvel {

namespace {

PathValues pathValues(std::vector<double> km, std::vector<double> values,
                      std::vector<std::size_t> breaks = {0}) {
    PathValues made;
    made.ascending = std::ranges::is_sorted(km);
    made.km = std::make_shared<const std::vector<double>>(std::move(km));
    made.values = std::move(values);
    made.breaks = std::move(breaks);
    made.pyramid = RangePyramid(made.values);
    return made;
}

std::vector<VisiblePiece> seen(const PathValues& values, double from, double to) {
    const Scale distance{from, to, 0, 1500};
    return visiblePieces(values, {distance, 15});
}

using Numbers = std::vector<double>;

struct Column {
    double first, lowest, highest, last;
    bool operator==(const Column&) const = default;
};

// What a painter makes of joined points: of each column of pixels the first, lowest, highest and last.
std::map<double, Column> columnsOf(const Numbers& km, const Numbers& values, const Scale& distance) {
    std::map<double, Column> columns;
    for (std::size_t j = 0; j < km.size(); ++j) {
        const double column = std::floor(distance.place(km[j]) / 15 + 0.5);
        const double value = values[j];
        const auto [at, isNew] = columns.try_emplace(column, Column{value, value, value, value});
        if (isNew) continue;
        at->second.lowest = std::min(at->second.lowest, value);
        at->second.highest = std::max(at->second.highest, value);
        at->second.last = value;
    }
    return columns;
}

} // namespace

TEST(VisiblePieces, AreCutWhereTheyLeaveTheView) {
    const PathValues values = pathValues({0, 10, 20, 30}, {0, 100, 100, 400});
    const struct {
        double from, to;
        Numbers km, values;
    } cases[] = {
        {0, 30, {0, 10, 20, 30}, {0, 100, 100, 400}},
        {5, 25, {5, 10, 20, 25}, {50, 100, 100, 250}},
        {10, 20, {10, 20}, {100, 100}},
        {2, 4, {2, 4}, {20, 40}}, // between two points
        {30, 40, {30}, {400}},
        {-9, 0, {0}, {0}},
    };
    for (const auto& [from, to, km, shown] : cases) {
        const auto pieces = seen(values, from, to);
        ASSERT_EQ(pieces.size(), 1U) << from;
        EXPECT_EQ(pieces[0].km, km);
        EXPECT_EQ(pieces[0].values, shown);
    }
    EXPECT_TRUE(seen(values, 31, 40).empty());
    EXPECT_TRUE(seen(values, -9, -1).empty());
    EXPECT_TRUE(seen(pathValues({}, {}, {}), 0, 1).empty());
}

TEST(VisiblePieces, EndAtBreaks) {
    const auto pieces = seen(pathValues({0, 1, 5, 6}, {1, 2, 3, 4}, {0, 2, 3}), 0.5, 9);
    ASSERT_EQ(pieces.size(), 3U);
    EXPECT_EQ(pieces[0].km, (Numbers{0.5, 1}));
    EXPECT_EQ(pieces[1].km, (Numbers{5}));
    EXPECT_EQ(pieces[2].km, (Numbers{6}));
}

TEST(VisiblePieces, FollowDistancesThatGoBack) {
    const PathValues values = pathValues({0, 10, 4, 8}, {0, 10, 4, 8});
    const auto pieces = seen(values, 5, 9);
    ASSERT_EQ(pieces.size(), 3U);
    EXPECT_EQ(pieces[0].km, (Numbers{5, 9}));
    EXPECT_EQ(pieces[1].km, (Numbers{9, 5}));
    EXPECT_EQ(pieces[2].km, (Numbers{5, 8}));
    EXPECT_EQ(pieces[2].values, (Numbers{5, 8}));
    const auto range = rangeInView(values, {Scale{5, 9, 0, 1500}, 15});
    EXPECT_EQ(range, (NumberRange{5, 9}));
}

TEST(VisiblePieces, GiveThePictureOfAllPoints) {
    std::mt19937 random(5);
    for (int round = 0; round < 60; ++round) {
        const std::size_t count = 1000 + random() % 3000;
        Numbers km(count), values(count);
        for (std::size_t j = 0; j < count; ++j) {
            km[j] = std::uniform_real_distribution(0.0, 50.0)(random);
            values[j] = std::uniform_real_distribution(0.0, 9.0)(random);
        }
        if (round % 3 == 0)
            for (double& each : km)
                each = std::round(each); // many at one place
        std::ranges::sort(km);
        double from = std::uniform_real_distribution(0.0, 20.0)(random);
        const Scale distance{from, from + 20, 30, 1530};
        const auto pieces = visiblePieces(pathValues(km, values), {distance, 15});
        ASSERT_EQ(pieces.size(), 1U);
        ASSERT_TRUE(pieces[0].thinned);
        ASSERT_LE(pieces[0].km.size(), 4 * 102U);
        Numbers insideKm, insideValues; // the ends are cut already
        for (std::size_t j = 0; j < count; ++j)
            if (km[j] >= distance.bottom && km[j] <= distance.top) {
                insideKm.push_back(km[j]);
                insideValues.push_back(values[j]);
            }
        auto plain = columnsOf(insideKm, insideValues, distance);
        auto thinned = columnsOf(pieces[0].km, pieces[0].values, distance);
        // The columns of the two ends hold a crossing, too.
        const auto isEnd = [&](double column) {
            return column == std::floor(30 / 15.0 + 0.5) || column == std::floor(1530 / 15.0 + 0.5);
        };
        std::erase_if(plain, [&](const auto& each) { return isEnd(each.first); });
        std::erase_if(thinned, [&](const auto& each) { return isEnd(each.first); });
        ASSERT_EQ(plain, thinned) << round;
    }
}

TEST(RangeInView, CountsWhatTheCutEndsShow) {
    std::mt19937 random(3);
    for (int round = 0; round < 300; ++round) {
        Numbers km, values;
        std::vector<std::size_t> breaks;
        for (std::size_t j = 0; j < 40; ++j) {
            km.push_back(static_cast<double>(random() % 100));
            values.push_back(static_cast<double>(random() % 1000));
            if (j == 0 || random() % 9 == 0) breaks.push_back(j);
        }
        std::ranges::sort(km);
        const PathValues all = pathValues(km, values, breaks);
        const double from = static_cast<double>(random() % 90) + 0.5;
        const Scale distance{from, from + 1 + static_cast<double>(random() % 30), 0, 1500};
        std::optional<NumberRange> plain;
        for (const VisiblePiece& piece : visiblePieces(all, {distance, 15}))
            for (const double value : piece.values) {
                if (!plain) plain = {value, value};
                plain = {std::min(plain->lowest, value), std::max(plain->highest, value)};
            }
        ASSERT_EQ(rangeInView(all, {distance, 15}), plain) << round;
    }
}

TEST(VisibleBands, AreCutWhereTheyLeaveTheView) {
    const PathValues above = pathValues({0, 10, 20}, {4, 8, 6}), below = pathValues({0, 10, 20}, {0, 2, 2});
    const Scale distance{5, 15, 0, 1500};
    const auto bands = visibleBands(above, below, {distance, 15});
    ASSERT_EQ(bands.size(), 1U);
    EXPECT_EQ(bands[0].km, (Numbers{5, 10, 15}));
    EXPECT_EQ(bands[0].above, (Numbers{6, 8, 7}));
    EXPECT_EQ(bands[0].below, (Numbers{1, 2, 2}));
    EXPECT_TRUE(visibleBands({}, {}, {distance, 15}).empty());
}

TEST(VisibleBands, HaveOnePlaceAColumnTheHighestAndTheLowest) {
    std::mt19937 random(11);
    for (const std::size_t count : {5000, 20000, 60000}) {
        Numbers km(count), high(count), low(count);
        for (std::size_t j = 0; j < count; ++j) {
            km[j] = std::uniform_real_distribution(0.0, 50.0)(random);
            low[j] = std::uniform_real_distribution(0.0, 9.0)(random);
            high[j] = low[j] + 1;
        }
        std::ranges::sort(km);
        const Scale distance{0, 50, 0, 1500};
        const auto bands = visibleBands(pathValues(km, high), pathValues(km, low), {distance, 15});
        ASSERT_EQ(bands.size(), 1U);
        EXPECT_TRUE(bands[0].thinned);
        const auto above = columnsOf(km, high, distance), below = columnsOf(km, low, distance);
        ASSERT_EQ(bands[0].km.size(), above.size());
        for (std::size_t j = 0; j < bands[0].km.size(); ++j) {
            const double column = std::floor(distance.place(bands[0].km[j]) / 15 + 0.5);
            ASSERT_EQ(bands[0].above[j], above.at(column).highest);
            ASSERT_EQ(bands[0].below[j], below.at(column).lowest);
        }
    }
}

TEST(VisibleBands, GoFromTheLastPointToTheNextOverColumnsWithoutPoints) {
    Numbers km, values;
    for (int k = 0; k < 3000; ++k) {
        km.push_back(k < 1500 ? 0.001 * k : 48 + 0.001 * k);
        values.push_back(k % 2 == 0 ? 9 : 1);
    }
    values[1499] = 4;
    values[1500] = 6;
    const PathValues of = pathValues(km, values);
    const Scale distance{0, 51, 0, 1500};
    const auto bands = visibleBands(of, of, {distance, 15});
    ASSERT_EQ(bands.size(), 1U);
    const auto last = std::ranges::find(bands[0].km, km[1499]);
    ASSERT_NE(last, bands[0].km.end());
    const auto at = static_cast<std::size_t>(last - bands[0].km.begin());
    EXPECT_EQ(bands[0].above[at], 4);
    EXPECT_EQ(bands[0].below[at], 4);
    EXPECT_EQ(bands[0].km[at + 1], km[1500]);
    EXPECT_EQ(bands[0].above[at + 1], 6);
}

TEST(VisibleBands, FollowDistancesThatGoBack) {
    const PathValues above = pathValues({0, 10, 4, 8}, {1, 11, 5, 9}),
                     below = pathValues({0, 10, 4, 8}, {0, 10, 4, 8});
    const Scale distance{5, 9, 0, 1500};
    const auto bands = visibleBands(above, below, {distance, 15});
    ASSERT_EQ(bands.size(), 3U);
    EXPECT_EQ(bands[1].km, (Numbers{9, 5}));
    EXPECT_EQ(bands[1].above, (Numbers{10, 6}));
    EXPECT_EQ(bands[1].below, (Numbers{9, 5}));
}

TEST(VisiblePieces, AreTheSameWhereSeriesShareTheColumnsOfTheirDistances) {
    std::mt19937 random(8);
    Numbers km, one, other;
    for (int k = 0; k < 4000; ++k) {
        km.push_back(0.025 * k);
        one.push_back(std::uniform_real_distribution(0.0, 9.0)(random));
        other.push_back(std::uniform_real_distribution(0.0, 9.0)(random));
    }
    PathValues first = pathValues(km, one, {0, 1111, 2500}), second = pathValues(km, other);
    second.km = first.km;
    const Scale distance{7, 93, 0, 1500};
    PixelColumnsOfKm columns;
    for (const PathValues* values : {&first, &second}) {
        const auto alone = visiblePieces(*values, {distance, 15});
        const auto shared = visiblePieces(*values, {distance, 15, &columns});
        ASSERT_EQ(alone.size(), shared.size());
        for (std::size_t k = 0; k < alone.size(); ++k) {
            EXPECT_TRUE(alone[k].thinned);
            EXPECT_EQ(alone[k].km, shared[k].km);
            EXPECT_EQ(alone[k].values, shared[k].values);
        }
    }
}

} // namespace korvel
