#include "drawing/paint/PixelColumns.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>

namespace korvel {

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinite = std::numeric_limits<double>::infinity();
constexpr PixelGrid grid{3, 5, 1 / 15.0, 400, 200};

class Runs {
  public:
    // `step`: units from one point to the next; some points lie elsewhere.
    std::vector<DrawnPoint> make(int count, double step, double strange) {
        static constexpr double strangeValues[] = {notANumber, infinite, -infinite, 1e300,
                                                   -1e300,     7.5,      -0.0,      22.5};
        std::vector<DrawnPoint> points;
        for (int k = 0; k < count; ++k) {
            points.push_back({k * step, between(-100, 3000)});
            if (between(0, 1) < strange) points.back().x = strangeValues[m_random() % 8];
            if (between(0, 1) < strange) points.back().y = strangeValues[m_random() % 8];
        }
        return points;
    }

  private:
    double between(double low, double high) {
        return std::uniform_real_distribution<double>(low, high)(m_random);
    }

    std::mt19937 m_random{11};
};

std::vector<PixelColumn> columnsPointByPoint(std::span<const DrawnPoint> points, const PixelGrid& pixels) {
    std::vector<PixelColumn> columns;
    for (const DrawnPoint& each : points) {
        const auto point = pixels.point(each);
        if (!point) continue;
        if (columns.empty() || columns.back().x != point->x())
            columns.emplace_back(*point);
        else
            columns.back().add(point->y());
    }
    return columns;
}

} // namespace

TEST(PixelColumns, AreThoseFoundPointByPoint) {
    Runs runs;
    for (const double step : {0.0, 0.1, 0.37, 1.0, 7.5, 40.0, -0.2})
        for (const double strange : {0.0, 0.001, 0.05, 0.5})
            for (const int count : {0, 1, 7, 8, 9, 16, 17, 5000}) {
                const std::vector<DrawnPoint> points = runs.make(count, step, strange);
                EXPECT_EQ(pixelColumns(points, grid), columnsPointByPoint(points, grid))
                    << count << " points, step " << step << ", share of strange ones " << strange;
            }
}

TEST(PixelColumns, KeepFirstLastLowestAndHighest) {
    const std::vector<DrawnPoint> points = {{0, 30}, {1, 90}, {2, 15}, {3, 60}, {notANumber, 0}, {30, 45}};
    const std::vector<PixelColumn> columns = pixelColumns(points, {0, 0, 1 / 15.0, 400, 200});
    ASSERT_EQ(columns.size(), 2u);
    EXPECT_EQ(columns[0].first, 2);
    EXPECT_EQ(columns[0].last, 4);
    EXPECT_EQ(columns[0].lowest, 1);
    EXPECT_EQ(columns[0].highest, 6);
    EXPECT_FALSE(columns[0].single);
    EXPECT_TRUE(columns[1].single);
}

} // namespace korvel
