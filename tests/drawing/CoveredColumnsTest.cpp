#include "drawing/paint/CoveredColumns.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

#include <random>

namespace korvel {

namespace {

constexpr int width = 60;
constexpr int height = 80;

void fill(QImage& image, const QRect& box) {
    QPainter painter(&image);
    painter.fillRect(box, Qt::black);
}

QImage emptyImage() {
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::white);
    return image;
}

} // namespace

TEST(CoveredColumns, CoverWhatWasAddedAndNothingElse) {
    std::mt19937 random(4);
    for (const int count : {0, 1, 5, 50, 500})
        for (const int longest : {1, 3, 20, 200}) {
            CoveredColumns columns(-5, width + 5);
            QImage expected = emptyImage(), found = emptyImage();
            for (int k = 0; k < count; ++k) {
                const int x = static_cast<int>(random() % (width + 11)) - 5;
                const int top = static_cast<int>(random() % (height + 40)) - 20;
                const Stretch stretch{top, top + static_cast<int>(random() % longest)};
                columns.add(x, stretch);
                fill(expected, {QPoint(x, stretch.top), QPoint(x, stretch.bottom)});
            }
            for (const QRect& box : columns.takeBoxes())
                fill(found, box);
            EXPECT_EQ(expected, found) << count << " stretches of at most " << longest;
        }
}

TEST(CoveredColumns, AreOneBoxWhereStretchesTouchOrOverlap) {
    CoveredColumns columns(0, 9);
    columns.add(3, {10, 20});
    columns.add(3, {21, 30});
    columns.add(3, {5, 9});
    columns.add(3, {8, 25});
    EXPECT_EQ(columns.takeBoxes(), std::vector{QRect(3, 5, 1, 26)});
    EXPECT_TRUE(columns.takeBoxes().empty());
}

TEST(CoveredColumns, AreTwoBoxesWhereThereIsAGap) {
    CoveredColumns columns(0, 9);
    columns.add(0, {10, 20});
    columns.add(0, {22, 30});
    EXPECT_EQ(columns.takeBoxes(), (std::vector{QRect(0, 10, 1, 11), QRect(0, 22, 1, 9)}));
}

TEST(CoveredColumns, AreOneBoxWhereNeighboursAreCoveredAlike) {
    CoveredColumns columns(-2, 9);
    for (const int x : {-2, -1, 0, 1, 3})
        columns.add(x, {-4, 4});
    EXPECT_EQ(columns.takeBoxes(), (std::vector{QRect(-2, -4, 4, 9), QRect(3, -4, 1, 9)}));
}

} // namespace korvel
