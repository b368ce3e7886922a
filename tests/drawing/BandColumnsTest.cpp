#include "drawing/paint/BandColumns.h"

#include "drawing/paint/DrawingPainter.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

#include <functional>
#include <random>

namespace korvel {

namespace {

constexpr int width = 300, height = 120;
constexpr double unit = 15;
const PixelGrid pixels{0, 0, 1 / unit, width, height};
constexpr Rgb black{0, 0, 0};

// Points of an edge, evenly along the picture, in its units.
std::vector<DrawnPoint> edge(int points, const std::function<double(double share)>& y) {
    std::vector<DrawnPoint> made;
    for (int k = 0; k < points; ++k) {
        const double share = k / (points - 1.0);
        made.push_back({share * (width - 1) * unit, y(share) * unit});
    }
    return made;
}

QImage painted(const DrawnBand& band) {
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    Drawing drawing;
    drawing.width = width * unit;
    drawing.height = height * unit;
    drawing.commands.push_back(band);
    paintOnScreen(drawing, painter);
    return image;
}

std::vector<QRgb> memory;

std::optional<ColumnPicture> pictureOf(const DrawnBand& band, const PixelGrid& grid) {
    return bandByColumns(band, grid, memory);
}

bool isFilled(const QImage& image, int x, int y) {
    return image.pixel(x, y) != qRgb(255, 255, 255);
}

} // namespace

TEST(BandColumns, LeavesSimpleBandsToAPolygon) {
    const auto level = [](double y) { return [y](double) { return y; }; };
    EXPECT_FALSE(pictureOf({edge(2, level(20)), edge(2, level(60)), black}, pixels));
    EXPECT_FALSE(pictureOf({edge(60, level(20)), edge(60, level(60)), black}, pixels));
    EXPECT_FALSE(pictureOf({{}, {}, black}, pixels));
}

TEST(BandColumns, LeavesBandsWhoseDistancesGoBackToAPolygon) {
    std::vector<DrawnPoint> back = edge(5000, [](double) { return 20; });
    std::swap(back.front(), back.back());
    EXPECT_FALSE(pictureOf({back, edge(2, [](double) { return 60; }), black}, pixels));
}

TEST(BandColumns, FillsEachColumnFromTheHighestToTheLowestPlace) {
    std::mt19937 random(3);
    const auto anyOf = [&random](double from, double to) {
        return [&random, from, to](double) { return std::uniform_real_distribution(from, to)(random); };
    };
    const DrawnBand band{edge(6000, anyOf(10, 40)), edge(6000, anyOf(60, 100)), black};
    const auto picture = pictureOf(band, pixels);
    ASSERT_TRUE(picture);
    const QImage image = painted(band);
    for (int x = 0; x < width; ++x) {
        int top = height, bottom = 0;
        for (const auto* edge : {&band.above, &band.below})
            for (const DrawnPoint& point : *edge)
                if (pixels.x(point.x) == x) {
                    top = std::min(top, pixels.y(point.y));
                    bottom = std::max(bottom, pixels.y(point.y));
                }
        for (int y = 0; y < height; ++y)
            ASSERT_EQ(isFilled(image, x, y), y >= top && y < bottom) << x << ", " << y;
    }
}

TEST(BandColumns, PaintsWhatAPolygonDoesWithinAPixelWhereEdgesAreSmooth) {
    const auto wave = [](double middle) {
        return [middle](double share) { return middle + 20 * std::sin(9 * share); };
    };
    const QImage dense = painted({edge(9000, wave(40)), edge(9000, wave(80)), black});
    const QImage sparse = painted({edge(60, wave(40)), edge(60, wave(80)), black});
    ASSERT_TRUE(pictureOf({edge(9000, wave(40)), edge(9000, wave(80)), black}, pixels));
    for (int x = 1; x + 1 < width; ++x)
        for (int y = 2; y + 2 < height; ++y) {
            if (!isFilled(sparse, x, y)) continue;
            const bool near = isFilled(dense, x, y) || isFilled(dense, x, y - 2) || isFilled(dense, x, y + 2);
            ASSERT_TRUE(near) << x << ", " << y;
        }
    const auto count = [](const QImage& image) {
        int filled = 0;
        for (int x = 0; x < width; ++x)
            for (int y = 0; y < height; ++y)
                filled += isFilled(image, x, y);
        return filled;
    };
    EXPECT_NEAR(count(dense), count(sparse), 2 * width);
}

TEST(BandColumns, KeepsToTheDevice) {
    const DrawnBand band{edge(6000, [](double share) { return share < 0.5 ? -500.0 : 10.0; }),
                         edge(6000, [](double share) { return share < 0.5 ? 900.0 : 50.0; }), black};
    const auto picture = pictureOf(band, pixels);
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->image.height(), height);
    EXPECT_EQ(picture->image.width(), width);
}

} // namespace korvel
