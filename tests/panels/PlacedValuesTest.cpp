#include "panels/PlacedValues.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>

namespace korvel {

namespace {

using Places = std::vector<std::size_t>;

const Scale all{0, 100, 0, 1000}; // 10 units a km

std::vector<PlacedValue> manySamples(std::mt19937& random, int count) {
    std::vector<double> km;
    for (int k = 0; k < count; ++k)
        km.push_back(std::uniform_real_distribution(0.0, 100.0)(random));
    std::ranges::sort(km);
    std::vector<PlacedValue> samples;
    for (const double each : km)
        samples.push_back({each, each, std::uniform_real_distribution(0.0, 9.0)(random)});
    return samples;
}

} // namespace

TEST(PlacedValues, ShowsWhatIsInView) {
    const PlacedValues targets({{0, 10, 4}, {10, 30, 6}, {30, 60, 2}, {80, 90, 9}});
    EXPECT_EQ(targets.inView({20, 70, 0, 1000}, 8).places, (Places{1, 2}));
    EXPECT_EQ(targets.rangeInView({20, 70, 0, 1000}), (NumberRange{2, 6}));
    EXPECT_EQ(targets.inView({10, 30, 0, 1000}, 8).places, (Places{0, 1, 2}));
    EXPECT_TRUE(targets.inView({61, 79, 0, 1000}, 8).places.empty());
    EXPECT_EQ(targets.rangeInView({61, 79, 0, 1000}), std::nullopt);
    EXPECT_EQ(PlacedValues().rangeInView(all), std::nullopt);
}

TEST(PlacedValues, ShowsWhatIsInViewWhereDistancesGoBack) {
    const PlacedValues targets({{50, 60, 4}, {10, 30, 6}, {30, 45, 2}});
    EXPECT_EQ(targets.inView({40, 55, 0, 1000}, 8).places, (Places{0, 2}));
    EXPECT_EQ(targets.rangeInView({40, 55, 0, 1000}), (NumberRange{2, 4}));
}

TEST(PlacedValues, ShowsAllThatCanBeToldApart) {
    std::mt19937 random(5);
    const PlacedValues samples(manySamples(random, 60));
    const auto seen = samples.inView({0, 100, 0, 30000}, 120);
    EXPECT_EQ(seen.places.size(), 60u);
    EXPECT_FALSE(seen.thinned);
}

TEST(PlacedValues, ThinsToTheLowestTheHighestAndSomeBetween) {
    std::mt19937 random(6);
    const std::vector<PlacedValue> values = manySamples(random, 50000);
    const PlacedValues samples(values);
    const double room = 20; // 2 km
    const auto seen = samples.inView(all, room);
    EXPECT_TRUE(seen.thinned);
    EXPECT_LE(seen.places.size(), 51u * 4);
    EXPECT_TRUE(std::ranges::is_sorted(seen.places));
    for (int begin = 0; begin < 100; begin += 2) {
        const auto isThere = [&](std::size_t place) {
            return values[place].from >= begin && values[place].from < begin + 2;
        };
        std::set<double> shown;
        for (const std::size_t place : seen.places)
            if (isThere(place)) shown.insert(values[place].value);
        NumberRange range{100, -100};
        for (std::size_t place = 0; place < values.size(); ++place)
            if (isThere(place))
                range = {std::min(range.lowest, values[place].value),
                         std::max(range.highest, values[place].value)};
        ASSERT_TRUE(shown.contains(range.lowest)) << begin;
        ASSERT_TRUE(shown.contains(range.highest)) << begin;
    }
}

TEST(PlacedValues, HasTheRangeThatAPlainWalkFinds) {
    std::mt19937 random(7);
    const std::vector<PlacedValue> values = manySamples(random, 3000);
    const PlacedValues samples(values);
    for (double from = 0; from < 95; from += 7.3) {
        NumberRange range{100, -100};
        for (const PlacedValue& each : values)
            if (each.from >= from && each.from <= from + 5)
                range = {std::min(range.lowest, each.value), std::max(range.highest, each.value)};
        EXPECT_EQ(samples.rangeInView({from, from + 5, 0, 1000}), range) << from;
    }
}

} // namespace korvel
