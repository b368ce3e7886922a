#include "drawing/Axis.h"

#include <gtest/gtest.h>

#include <cmath>

namespace korvel {

TEST(Scale, TurnsValuesIntoPlacesAndBack) {
    const std::pair<Scale, std::vector<std::pair<double, double>>> cases[] = {
        {{0, 10, 100, 300}, {{0, 100}, {5, 200}, {10, 300}, {-5, 0}}},
        {{-4, 4, 0, 80}, {{-4, 0}, {0, 40}, {4, 80}}},
        {{20, 30, 500, 400}, {{20, 500}, {25, 450}, {30, 400}}},
        {{1, 100, 0, 60, ScaleKind::logarithmic}, {{1, 0}, {10, 30}, {100, 60}}},
        {{0.1, 1000, 80, 0, ScaleKind::logarithmic}, {{0.1, 80}, {1, 60}, {1000, 0}}},
    };
    for (const auto& [scale, pairs] : cases)
        for (const auto& [value, place] : pairs) {
            EXPECT_NEAR(scale.place(value), place, 1e-9);
            EXPECT_NEAR(scale.value(place), value, 1e-9);
        }
}

TEST(Scale, HasNoPlaceForWhatHasNoLogarithm) {
    const Scale scale{1, 100, 0, 60, ScaleKind::logarithmic};
    for (const double value : {0.0, -1.0, std::nan("")})
        EXPECT_TRUE(std::isnan(scale.place(value))) << value;
}

TEST(Axis, HasRoundTicksWhateverTheBottom) {
    struct Case {
        Scale scale;
        double room;
        std::vector<double> ticks;
    };
    constexpr auto logarithmic = ScaleKind::logarithmic;
    const Case cases[] = {
        {{0, 10, 0, 100}, 20, {0, 2, 4, 6, 8, 10}},
        {{0, 10, 100, 0}, 20, {0, 2, 4, 6, 8, 10}},
        {{-4, 4, 0, 80}, 20, {-4, -2, 0, 2, 4}},
        {{17, 33, 0, 80}, 25, {20, 25, 30}},
        {{0, 0.004, 0, 100}, 25, {0, 0.001, 0.002, 0.003, 0.004}},
        {{1, 1000, 0, 300, logarithmic}, 30, {1, 2, 5, 10, 20, 50, 100, 200, 500, 1000}},
        {{1, 1000, 0, 300, logarithmic}, 50, {1, 10, 100, 1000}},
        {{0.3, 4000, 0, 100, logarithmic}, 40, {1, 100}},
        {{0.3, 4, 0, 100, logarithmic}, 20, {0.5, 1, 2}},
    };
    for (const Case& one : cases) {
        const std::vector<double> ticks = tickValues(one.scale, one.room);
        ASSERT_EQ(ticks.size(), one.ticks.size()) << one.scale.bottom << " to " << one.scale.top;
        for (std::size_t k = 0; k < ticks.size(); ++k)
            EXPECT_NEAR(ticks[k], one.ticks[k], 1e-9 * std::abs(one.ticks[k]));
    }
}

} // namespace korvel
