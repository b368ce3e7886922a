#include "drawing/paint/SlantPictures.h"

#include "drawing/paint/SolidPen.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

#include <random>

namespace korvel {

namespace {

constexpr int widest = 8;
constexpr int margin = 2 * widest;

class Screen {
  public:
    Screen() : m_image(1900, 950, QImage::Format_RGB32), m_painter(&m_image) { m_image.fill(Qt::white); }

    // What is painted within the box, which is wiped first.
    template <typename Paint>
    QImage show(const QRect& box, Paint paint) {
        m_painter.fillRect(box, Qt::white);
        paint(m_painter);
        return m_image.copy(box);
    }

  private:
    QImage m_image;
    QPainter m_painter;
};

void fill(QPainter& painter, QPoint from, const SlantPictures::Picture& picture) {
    int x = from.x() + picture.firstColumn;
    for (const Stretch& stretch : picture.stretches) {
        const int height = stretch.bottom - stretch.top + 1;
        painter.fillRect(QRect(x, from.y() + stretch.top, 1, height), Qt::black);
        ++x;
    }
}

} // namespace

TEST(SlantPictures, AreThePixelsOfALineWhereverItLies) {
    std::mt19937 random(3);
    std::uniform_int_distribution<int> x(margin, 1899 - margin), y(280, 669);
    Screen screen;
    for (int width = 1; width <= widest; ++width)
        for (int rise = -SlantPictures::steepest; rise <= SlantPictures::steepest; ++rise) {
            if (rise == 0) continue;
            const QPoint from(x(random), y(random)), to = from + QPoint(1, rise);
            const QRect box(from.x() - margin, std::min(from.y(), to.y()) - margin, 2 * margin + 2,
                            std::abs(rise) + 2 * margin + 1);
            const QImage line = screen.show(box, [&](QPainter& painter) {
                painter.setPen(solidPen(Qt::black, width));
                painter.drawLine(from, to);
            });
            const QImage filled = screen.show(
                box, [&](QPainter& painter) { fill(painter, from, SlantPictures::ofPen(width).to(rise)); });
            EXPECT_EQ(line, filled) << "width " << width << ", rise " << rise << " at " << from.x() << ", "
                                    << from.y();
        }
}

TEST(SlantPictures, StayWithinTheirReach) {
    for (int width = 1; width <= widest; ++width) {
        SlantPictures pictures(width);
        for (const int rise : {-255, -7, -1, 1, 2, 100}) {
            const SlantPictures::Picture& picture = pictures.to(rise);
            const int columns = static_cast<int>(picture.stretches.size());
            EXPECT_GT(picture.firstColumn, -pictures.reach()) << "width " << width << ", rise " << rise;
            EXPECT_LE(picture.firstColumn + columns, 1 + pictures.reach())
                << "width " << width << ", rise " << rise;
        }
    }
}

} // namespace korvel
