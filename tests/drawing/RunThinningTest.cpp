#include "drawing/paint/RunThinning.h"
#include "drawing/paint/DrawingPainter.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <random>

namespace korvel {

namespace {

constexpr int width = 320;
constexpr int height = 200;
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinite = std::numeric_limits<double>::infinity();

using Points = std::vector<DrawnPoint>;

QImage emptyImage(int ratio) {
    QImage image(width * ratio, height * ratio, QImage::Format_RGB32);
    image.fill(Qt::white);
    return image;
}

// One line for each pair of neighbouring points, the points moved to whole pixels. `ratio`: pixels of the
// device to a logical one.
QImage pairByPair(const Points& points, const Pen& pen, int ratio) {
    const PixelGrid grid{0, 0, ratio / 15.0, width * ratio, height * ratio};
    QImage image = emptyImage(ratio);
    QPainter painter(&image);
    QPen qt(QColor(pen.colour.red, pen.colour.green, pen.colour.blue), pen.width * ratio);
    qt.setCapStyle(Qt::SquareCap);
    painter.setPen(qt);
    std::optional<QPoint> previous;
    for (const DrawnPoint& at : points) {
        const std::optional<QPoint> point = grid.point(at);
        if (!point) continue;
        if (previous) painter.drawLine(*previous, *point);
        previous = point;
    }
    return image;
}

QImage thinned(const Points& points, const Pen& pen, int ratio) {
    QImage image = emptyImage(ratio);
    image.setDevicePixelRatio(ratio);
    QPainter painter(&image);
    paintOnScreen(Drawing{width * 15.0, height * 15.0, 1440, {DrawnRun{points, pen}}}, painter);
    painter.end();
    image.setDevicePixelRatio(1);
    return image;
}

void expectSamePicture(const Points& points, const std::string& what) {
    for (const int ratio : {1, 2})
        for (const double penWidth : {1, 2, 3, 4, 5, 6, 8}) {
            const Pen pen{{200, 30, 60}, penWidth, Dash::solid};
            EXPECT_EQ(pairByPair(points, pen, ratio), thinned(points, pen, ratio))
                << what << ", width " << penWidth << ", ratio " << ratio;
        }
}

class RandomPoints {
  public:
    explicit RandomPoints(unsigned seed) : m_random(seed) {}

    Points make(int count, const std::function<DrawnPoint(double along)>& at) {
        Points points;
        for (int k = 0; k < count; ++k)
            points.push_back(at(static_cast<double>(k) / count));
        return points;
    }
    double between(double low, double high) {
        return std::uniform_real_distribution<double>(low, high)(m_random);
    }

  private:
    std::mt19937 m_random;
};

} // namespace

TEST(RunThinning, DrawsTheSamePictureOfRandomRuns) {
    RandomPoints random(5);
    for (const int count : {1, 2, 3, 10, 100, 1000, 20000}) {
        const double noise = random.between(0, 200 * 15);
        expectSamePicture(
            random.make(count,
                        [&](double along) {
                            return DrawnPoint{along * width * 15, 1500 + random.between(-noise, noise)};
                        }),
            "forward " + std::to_string(count));
        expectSamePicture(
            random.make(count,
                        [&](double) {
                            return DrawnPoint{random.between(-900, 5700), random.between(-900, 3900)};
                        }),
            "anywhere " + std::to_string(count));
    }
}

TEST(RunThinning, DrawsTheSamePictureWherePixelsCanNotBeSet) {
    RandomPoints random(8);
    const Points points = random.make(20000, [&](double along) {
        return DrawnPoint{along * width * 15, 1500 + random.between(-1200, 1200)};
    });
    const Pen pen{{200, 30, 60}, 2, Dash::solid};
    QImage image(width, height, QImage::Format_ARGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    paintOnScreen(Drawing{width * 15.0, height * 15.0, 1440, {DrawnRun{points, pen}}}, painter);
    painter.end();
    EXPECT_EQ(image.convertToFormat(QImage::Format_RGB32), pairByPair(points, pen, 1));
}

// Where points scatter little around a slope, joining lines lie just inside or just outside of their
// neighbours' boxes. They begin off the left edge, since Qt gives vertical lines of odd widths another corner
// near it.
TEST(RunThinning, DrawsTheSamePictureOfScatterAroundASlope) {
    RandomPoints random(6);
    for (const double noise : {15.0, 30.0, 60.0, 100.0, 300.0})
        for (const double rise : {0.0, 500.0, 3000.0, 30000.0})
            expectSamePicture(
                random.make(
                    3000,
                    [&](double along) {
                        const double y = 1500 + std::fmod(rise * along, 1500);
                        return DrawnPoint{300 + along * width * 15, y + random.between(-noise, noise)};
                    }),
                "noise " + std::to_string(noise) + ", rise " + std::to_string(rise));
}

// Of some lengths, Qt paints level lines of odd widths a column of pixels shorter.
TEST(RunThinning, DrawsTheSamePictureOfLevelLines) {
    for (int length = 40; length <= 100; ++length)
        expectSamePicture({{300, 1500}, {300 + 15.0 * length, 1500}}, "length " + std::to_string(length));
}

TEST(RunThinning, DrawsTheSamePictureOfNastyRuns) {
    const std::pair<const char*, Points> runs[] = {
        {"empty", {}},
        {"one point", {{100, 100}}},
        {"one point twice", {{100, 100}, {100, 100}}},
        {"one column", {{1500, 300}, {1501, 2400}, {1499, 900}, {1500, 900}}},
        {"level", {{0, 900}, {1500, 900}, {3000, 900}, {600, 900}}},
        {"level column", {{0, 900}, {1500, 900}, {1502, 900}, {1504, 900}, {3000, 1200}}},
        {"back and forth", {{0, 0}, {3000, 2000}, {0, 2000}, {3000, 0}, {0, 0}}},
        {"spikes", {{0, 1500}, {15, 0}, {16, 2999}, {30, 1500}, {45, 0}, {46, 1500}, {60, 1500}}},
        {"no number in between", {{0, 0}, {notANumber, 300}, {1500, notANumber}, {3000, 1500}}},
        {"no number first and last", {{notANumber, 0}, {0, 0}, {3000, 1500}, {0, notANumber}}},
        {"no number at all", {{notANumber, notANumber}, {notANumber, 0}}},
        {"without end", {{0, 1500}, {1500, infinite}, {1510, -infinite}, {3000, 1500}}},
        {"left of the picture",
         {{-9000, 0}, {-8999, 3000}, {-500, 100}, {-45, 200}, {-30, 2900}, {-10, 400}}},
        {"right of the picture", {{4700, 0}, {4800, 3000}, {4815, 3000}, {4816, 0}, {9000, 1500}}},
        {"across the picture", {{-9000, 700}, {9000, 2000}, {-9000, 2500}}},
        {"above and below", {{100, -900000}, {200, 900000}, {300, -1000}, {301, 9000}, {400, 1500}}},
    };
    for (const auto& [what, points] : runs)
        expectSamePicture(points, what);
}

TEST(RunThinning, DrawsAtMostTwoPiecesAColumn) {
    RandomPoints random(9);
    const Points points = random.make(60000, [&](double along) {
        return DrawnPoint{along * width * 15, random.between(0, 3000)};
    });
    const ThinnedRun run = thinnedRun(points, {0, 0, 1 / 15.0, width, height}, 4);
    EXPECT_LE(run.boxes.size() + run.lines.size(), 2u * (width + 1));
}

TEST(RunThinning, APolygonTouchesTheEndsOfEveryColumn) {
    const Points points = {{0, 75}, {1, 150}, {2, 15}, {3, 90}, {15, 45}, {15, 30}};
    const QPolygon expected({{0, 5}, {0, 1}, {0, 10}, {0, 6}, {1, 3}, {1, 2}});
    EXPECT_EQ(thinnedPolygon(points, {0, 0, 1 / 15.0, width, height}), expected);
}

TEST(PixelGrid, TakesTheNearestPixel) {
    const PixelGrid grid{10, -5, 0.1, width, height};
    EXPECT_EQ(grid.x(0), 10);
    EXPECT_EQ(grid.x(4.9), 10);
    EXPECT_EQ(grid.x(5.1), 11);
    EXPECT_EQ(grid.x(-106), -1);
    EXPECT_EQ(grid.y(54), 0);
    EXPECT_FALSE(grid.point({notANumber, 0}));
    EXPECT_EQ(grid.x(1e300), 1000000);
    EXPECT_EQ(grid.x(-infinite), -1000000);
}

} // namespace korvel
