#include "drawing/paint/CrossStamps.h"

#include "drawing/paint/SolidPen.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

#include <functional>
#include <random>

namespace korvel {

namespace {

constexpr int width = 240;
constexpr int height = 160;

using Crosses = std::vector<Cross>;
using Preparation = std::function<void(QPainter&)>;

QImage painted(const Preparation& prepare, int penWidth, const std::function<void(QPainter&)>& paint) {
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    prepare(painter);
    painter.setPen(solidPen(QColor(10, 90, 200), penWidth));
    paint(painter);
    return image;
}

void expectSamePicture(
    const Crosses& crosses, const std::string& what, const Preparation& prepare = [](QPainter&) {}) {
    for (int penWidth = 1; penWidth <= 6; ++penWidth) {
        const QImage plain = painted(prepare, penWidth, [&](QPainter& painter) {
            for (const Cross& cross : crosses)
                painter.drawLine(cross.first), painter.drawLine(cross.second);
        });
        const QImage stamped = painted(prepare, penWidth, [&](QPainter& painter) {
            drawCrosses(painter, crosses, QRect(0, 0, width, height));
        });
        EXPECT_EQ(plain, stamped) << what << ", width " << penWidth;
    }
}

class Strokes {
  public:
    // Crosses somewhere within a box of the given size about the middle of the picture.
    Crosses crosses(int count, int across, int half) {
        Crosses crosses;
        for (int k = 0; k < count; ++k) {
            const QPoint centre = somewhere(across);
            // The ends of real ones are rounded each by itself.
            const int right = half + odd(), low = half + odd();
            crosses.push_back({{centre + QPoint(-half, low), centre + QPoint(right, -half)},
                               {centre + QPoint(-half, -half), centre + QPoint(right, low)}});
        }
        return crosses;
    }
    Crosses anyLines(int count, int longest) {
        Crosses crosses;
        for (int k = 0; k < count; ++k)
            crosses.push_back({anyLine(longest), anyLine(longest)});
        return crosses;
    }

  private:
    QLine anyLine(int longest) {
        const QPoint from = somewhere(2 * width);
        return {from, from + QPoint(upTo(longest), upTo(longest))};
    }
    int odd() { return static_cast<int>(m_random() % 2); }
    int upTo(int most) { return std::uniform_int_distribution<int>(-most, most)(m_random); }
    QPoint somewhere(int across) {
        return {width / 2 + upTo(across / 2), height / 2 + upTo(across * height / width / 2)};
    }

    std::mt19937 m_random{8};
};

} // namespace

TEST(CrossStamps, AreThePixelsOfTheirLines) {
    Strokes strokes;
    for (const int half : {1, 2, 3, 4, 7, 12, 31, 40})
        for (const int count : {0, 1, 5, 40})
            expectSamePicture(strokes.crosses(count, 130, half),
                              std::to_string(count) + " crosses of half " + std::to_string(half));
}

TEST(CrossStamps, AreCutOffAsTheirLinesAreAtTheEdges) {
    Strokes strokes;
    for (const int half : {1, 4, 9, 31})
        expectSamePicture(strokes.crosses(60, 2 * width, half), "half " + std::to_string(half));
}

TEST(CrossStamps, AreThePixelsOfAnyTwoLines) {
    Strokes strokes;
    for (const int longest : {0, 1, 2, 5, 30, 300, 20000})
        expectSamePicture(strokes.anyLines(61, longest), "lines up to " + std::to_string(longest));
}

TEST(CrossStamps, AreThePixelsOfTheirLinesWhereverThePainterPutsThem) {
    Strokes strokes;
    const Crosses crosses = strokes.crosses(30, 60, 4);
    const std::pair<const char*, Preparation> preparations[] = {
        {"moved", [](QPainter& painter) { painter.translate(7, -5); }},
        {"moved by half a pixel", [](QPainter& painter) { painter.translate(0.5, 0.25); }},
        {"stretched", [](QPainter& painter) { painter.scale(1.5, 1.5); }},
        {"there and back", [](QPainter& painter) { painter.scale(1.25, 1.25), painter.scale(0.8, 0.8); }},
        {"turned", [](QPainter& painter) { painter.rotate(10); }},
    };
    for (const auto& [what, prepare] : preparations)
        expectSamePicture(crosses, what, prepare);
}

} // namespace korvel
