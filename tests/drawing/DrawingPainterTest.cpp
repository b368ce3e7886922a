#include "drawing/paint/DrawingPainter.h"
#include "drawing/paint/QtTextMetrics.h"

#include <QBuffer>
#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <QSvgGenerator>

#include <gtest/gtest.h>

#include <random>

namespace korvel {

namespace {

constexpr int width = 200;
constexpr int height = 100;

Drawing drawingOf(std::vector<DrawnCommand> commands) {
    return {width * 15.0, height * 15.0, 1440, std::move(commands)};
}

QImage painted(const Drawing& drawing, double ratio = 1, QPointF from = {}) {
    QImage image(static_cast<int>(width * ratio), static_cast<int>(height * ratio), QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.translate(from);
    paintOnScreen(drawing, painter);
    return image;
}

QRect inked(const QImage& image) {
    QRect box;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixel(x, y) != qRgb(255, 255, 255)) box |= QRect(x, y, 1, 1);
    return box;
}

int darkPixels(const QImage& image, int y) {
    int count = 0;
    for (int x = 0; x < image.width(); ++x)
        count += image.pixel(x, y) != qRgb(255, 255, 255);
    return count;
}

DrawnText textAt(DrawnPoint corner, const std::string& text, const Font& font) {
    const TextSize size = QtTextMetrics().measure(text, font);
    return {corner, size.width, size.height, text, font, {0, 0, 0}};
}

QByteArray svgOf(const Drawing& drawing) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QSvgGenerator generator;
    generator.setOutputDevice(&buffer);
    generator.setResolution(96);
    generator.setSize({width, height});
    generator.setViewBox(QRect(0, 0, width, height));
    QPainter painter(&generator);
    paintOnScreen(drawing, painter);
    painter.end();
    return bytes;
}

} // namespace

TEST(DrawingPainter, FifteenUnitsAreOnePixel) {
    const Drawing line = drawingOf({DrawnLine{{150, 300}, {1500, 300}, {{0, 0, 0}, 1}}});
    EXPECT_EQ(inked(painted(line)), QRect(QPoint(10, 20), QPoint(100, 20)));
}

TEST(DrawingPainter, ScalesPlacesAndPensWithTheScreen) {
    const Drawing line = drawingOf({DrawnLine{{150, 300}, {1500, 300}, {{0, 0, 0}, 4}}});
    EXPECT_EQ(inked(painted(line)).height(), 4);
    EXPECT_EQ(inked(painted(line, 2)).height(), 8);
    EXPECT_EQ(inked(painted(line, 2)).center().y(), inked(painted(line)).center().y() * 2 + 1);
}

// On a screen of a broken scale the window's parts stand between pixels.
TEST(DrawingPainter, BeginsAtAWholePixel) {
    DrawnRun run{{}, {{255, 0, 0}, 3, Dash::solid}};
    for (int k = 0; k < 400; ++k)
        run.points.push_back({600 + k * 4.0, 300 + (k % 7) * 90.0});
    const Drawing drawing = drawingOf({run});
    EXPECT_EQ(painted(drawing, 1, {6.25, 28.75}), painted(drawing, 1, {6, 29}));
    EXPECT_EQ(painted(drawing, 1.25, {5, 23}), painted(drawing, 1.25, {4.8, 23.2})); // 6.25, 28.75 pixels
}

TEST(DrawingPainter, DashesCanBeSeen) {
    const Pen dotted{{255, 0, 0}, 1, Dash::dot};
    const int solid = darkPixels(painted(drawingOf({DrawnLine{{0, 300}, {2985, 300}, {{0, 0, 0}, 1}}})), 20);
    const int dots = darkPixels(painted(drawingOf({DrawnLine{{0, 300}, {2985, 300}, dotted}})), 20);
    EXPECT_EQ(solid, width);
    EXPECT_NEAR(dots, width * 2 / 5, 3);
    const int dottedRun =
        darkPixels(painted(drawingOf({DrawnRun{{{0, 300}, {1500, 300}, {2985, 300}}, dotted}})), 20);
    EXPECT_EQ(dottedRun, dots);
}

TEST(DrawingPainter, TextsLieAboveLines) {
    const Font font{"Arial", 30, false};
    const DrawnText text = textAt({0, 0}, "MMM", font);
    const Drawing textFirst = drawingOf({text, DrawnLine{{0, 400}, {3000, 400}, {{0, 255, 0}, 4}}});
    const Drawing lineFirst = drawingOf({DrawnLine{{0, 400}, {3000, 400}, {{0, 255, 0}, 4}}, text});
    EXPECT_EQ(painted(textFirst), painted(lineFirst));
}

TEST(DrawingPainter, TextStaysInItsMeasuredBox) {
    for (const char* name : {"Arial", "Arial Narrow"})
        for (const double size : {7.0, 9.3, 17.5, 23.1}) {
            const DrawnText text = textAt({450, 300}, "Upper Mill (12.5km)", {name, size, false});
            const QRect box = inked(painted(drawingOf({text})));
            if (text.width > 2400) continue;
            EXPECT_GE(box.left(), 29) << name << size;
            EXPECT_LE(box.right(), 31 + text.width / 15) << name << size;
            EXPECT_GE(box.right(), 24 + text.width / 15) << name << size;
            EXPECT_GE(box.top(), 20) << name << size;
            EXPECT_LE(box.bottom(), 20 + text.height / 15) << name << size;
        }
}

TEST(DrawingPainter, NarrowsATextAndKeepsItsHeight) {
    const DrawnText whole = textAt({450, 300}, "0.0000000", {"Arial", 12, false});
    DrawnText narrow = whole;
    narrow.narrowing = 0.5;
    const QRect box = inked(painted(drawingOf({whole}))), half = inked(painted(drawingOf({narrow})));
    EXPECT_NEAR(half.width(), box.width() / 2.0, 2);
    EXPECT_NEAR(half.height(), box.height(), 1);
    EXPECT_NEAR(half.top(), box.top(), 1);
    EXPECT_NEAR(half.left(), box.left(), 2);
}

TEST(DrawingPainter, PaintsAMarkerAsTwoSlantingLines) {
    const Pen pen{{0, 0, 0}, 1, Dash::solid};
    const Drawing marker = drawingOf({DrawnMarker{{750, 600}, 75, pen}});
    const Drawing lines =
        drawingOf({DrawnLine{{675, 675}, {825, 525}, pen}, DrawnLine{{675, 525}, {825, 675}, pen}});
    for (const double ratio : {1.0, 1.5, 2.0})
        EXPECT_EQ(painted(marker, ratio), painted(lines, ratio)) << ratio;
    EXPECT_EQ(svgOf(marker), svgOf(lines));
}

TEST(DrawingPainter, FillsABandBetweenItsRuns) {
    const QImage image = painted(
        drawingOf({DrawnBand{{{150, 150}, {1500, 300}}, {{150, 900}, {1500, 750}}, {{0, 0, 255}, 0.5}}}));
    EXPECT_EQ(image.pixel(50, 40), qRgb(127, 127, 255));
    EXPECT_EQ(image.pixel(50, 5), qRgb(255, 255, 255));
    EXPECT_EQ(image.pixel(50, 70), qRgb(255, 255, 255));
    EXPECT_EQ(image.pixel(150, 40), qRgb(255, 255, 255));
}

TEST(DrawingPainter, PaintsABandOverWhatWasDrawnBefore) {
    const Pen pen{{0, 0, 0}, 1, Dash::solid};
    const DrawnBand band{{{0, 0}, {3000, 0}}, {{0, 1500}, {3000, 1500}}, {{255, 0, 0}, 1}};
    const DrawnLine line{{0, 600}, {2985, 600}, pen};
    EXPECT_EQ(painted(drawingOf({line, band})).pixel(50, 40), qRgb(255, 0, 0));
    EXPECT_EQ(painted(drawingOf({band, line})).pixel(50, 40), qRgb(0, 0, 0));
}

TEST(DrawingPainter, KeepsTextAsTextInAnSvg) {
    const Drawing drawing = drawingOf({textAt({0, 0}, "Caf\xe9 <1>", {"Arial Narrow", 10, false})});
    const QByteArray svg = svgOf(drawing);
    EXPECT_TRUE(svg.contains("Caf\xc3\xa9 &lt;1&gt;")) << svg.constData();
    EXPECT_TRUE(svg.contains("Arial Narrow"));
}

TEST(DrawingPainter, ThinsLongRunsInAnSvg) {
    DrawnRun run{{}, {{0, 0, 255}, 4}};
    for (int k = 0; k < 60000; ++k)
        run.points.push_back({k * 0.05, 700.0 + k % 7 * 50});
    EXPECT_LT(svgOf(drawingOf({run})).size(), 100000);
}

TEST(QtTextMetrics, MeasuresEvenly) {
    const QtTextMetrics metrics;
    for (const char* text : {"Upper Mill (12.5km)", "0.00000010", "KORVEL RESULTS"}) {
        const TextSize one = metrics.measure(text, {"Arial", 7.3, false});
        const TextSize two = metrics.measure(text, {"Arial", 14.6, false});
        EXPECT_DOUBLE_EQ(two.width, 2 * one.width);
        EXPECT_DOUBLE_EQ(two.height, 2 * one.height);
        EXPECT_GT(metrics.measure(text, {"Arial", 7.3, true}).width, one.width * 0.99);
        EXPECT_LT(metrics.measure(text, {"Arial Narrow", 7.3, false}).width, one.width * 0.9);
    }
}

TEST(QtTextMetrics, MeasuresAsTheFontShapes) {
    const QtTextMetrics metrics;
    std::mt19937 random(1);
    std::vector<std::string> texts = {"",
                                      "A",
                                      "AVATAR To. Ty 11.1",
                                      "office fluffy fjord",
                                      "-0.00001234 mg/l",
                                      "caf\u00e9 \u00fcber \u00a3",
                                      "\u05e9\u05dc\u05d5\u05dd",
                                      "a\tb",
                                      "\u2026 x"};
    for (int k = 0; k < 500; ++k) {
        std::string text;
        for (std::size_t length = 1 + random() % 30; text.size() < length;)
            text += static_cast<char>(' ' + random() % 95);
        texts.push_back(text);
    }
    for (const bool bold : {false, true}) {
        QFont font("Arial");
        font.setBold(bold);
        font.setHintingPreference(QFont::PreferNoHinting);
        font.setPixelSize(256);
        const QFontMetricsF shaped(font);
        for (const std::string& text : texts) {
            const double width = shaped.horizontalAdvance(QString::fromStdString(text)) * 160 / 256;
            EXPECT_NEAR(metrics.measure(text, {"Arial", 8, bold}).width, width, 1e-9 + 1e-4 * width) << text;
        }
    }
}

} // namespace korvel
