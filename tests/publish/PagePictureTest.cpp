#include "publish/PagePicture.h"

#include "publish/LineThinning.h"
#include "publish/PageMetrics.h"

#include <gtest/gtest.h>

#include <cmath>

namespace korvel {

namespace {

std::vector<DrawnPoint> wave(std::size_t count) {
    std::vector<DrawnPoint> points;
    for (std::size_t k = 0; k < count; ++k)
        points.push_back({static_cast<double>(k), 100 * std::sin(static_cast<double>(k))});
    points[count / 3].y = 1000;
    points[count / 2].y = -1000;
    return points;
}

TEST(PagePicture, KeepsEndsAndExtremesOfALongLine) {
    const std::vector<DrawnPoint> points = wave(10000);
    const std::vector<DrawnPoint> some = thinned(points, 100);
    EXPECT_LE(some.size(), 100U);
    EXPECT_EQ(some.front(), points.front());
    EXPECT_EQ(some.back(), points.back());
    const auto byHeight = [](const DrawnPoint& a, const DrawnPoint& b) { return a.y < b.y; };
    EXPECT_EQ(std::ranges::max_element(some, byHeight)->y, 1000);
    EXPECT_EQ(std::ranges::min_element(some, byHeight)->y, -1000);
    EXPECT_TRUE(std::ranges::is_sorted(some, {}, &DrawnPoint::x));
}

TEST(PagePicture, LeavesAShortLineAsItIs) {
    const std::vector<DrawnPoint> points = wave(50);
    EXPECT_EQ(thinned(points, 50), points);
    EXPECT_EQ(thinned(points, 0).size(), 2U);
}

TEST(PagePicture, NamesColoursAndDashes) {
    EXPECT_EQ(hexOf({0x0b, 0xff, 0x00}), "#0bff00");
    EXPECT_EQ(dashesOf(Dash::solid), "");
    EXPECT_NE(dashesOf(Dash::dash), dashesOf(Dash::dot));
}

TEST(PagePicture, HasAStyleForEachRunInBothSchemes) {
    const std::string style = pictureStyle(2);
    EXPECT_NE(style.find(".line.run-1{stroke:"), std::string::npos);
    EXPECT_EQ(style.find("run-2"), std::string::npos);
    EXPECT_NE(style.find("prefers-color-scheme:dark"), std::string::npos);
}

TEST(PageMetrics, MeasuresWideAndNarrowLetters) {
    const PageMetrics metrics;
    const Font font{"Arial", 10, false};
    EXPECT_DOUBLE_EQ(metrics.measure("i", font).width, 0.222 * 200);
    EXPECT_DOUBLE_EQ(metrics.measure("W", font).width, 0.944 * 200);
    EXPECT_DOUBLE_EQ(metrics.measure("\u00e9", font).width, 0.6 * 200);
    EXPECT_GT(metrics.measure("W", {"Arial", 10, true}).width, metrics.measure("W", font).width);
}

} // namespace

} // namespace korvel
