// A page as the program writes it, in few large pieces, beside the same page drawn text by text and line by
// line.
#include "basic/ModelName.h"
#include "drawing/paint/QtTextMetrics.h"
#include "drawing/paint/Shown.h"
#include "platform/DiskFiles.h"
#include "platform/TemporaryFolder.h"
#include "toolkit/PageSample.h"
#include "toolkit/PdfReading.h"
#include "toolkit/paper/PdfPaper.h"

#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace korvel {

namespace {

constexpr int dotsPerInch = 300;
// The printable area's corner on the sheet, whose size Qt takes as whole points.
constexpr QPointF corner((595 / 72.0 - printableShortSide) / 2 * dotsPerInch,
                         (842 / 72.0 - printableLongSide) / 2 * dotsPerInch);

QPointF dots(DrawnPoint at) {
    return corner + QPointF(at.x, at.y) * dotsPerInch;
}

void drawPlainly(const DrawnLine& line, QPainter& painter) {
    QPen pen(QColor(line.pen.colour.red, line.pen.colour.green, line.pen.colour.blue), line.pen.width);
    pen.setCapStyle(Qt::SquareCap);
    painter.setPen(pen);
    painter.drawLine(dots(line.from).toPoint(), dots(line.to).toPoint());
}

void drawPlainly(const DrawnText& text, QPainter& painter) {
    const QFont font = drawnFont(text.font, text.font.size * dotsPerInch / 72, dotsPerInch);
    painter.setFont(font);
    painter.setPen(QColor(text.colour.red, text.colour.green, text.colour.blue));
    const double ascent = QFontMetricsF(font, painter.device()).ascent();
    const QPointF place = dots(text.corner);
    painter.drawText(QPointF(place.x(), std::round(place.y() + ascent)), shown(text.text));
}

void writePlainly(const Drawing& page, const std::string& path) {
    QPdfWriter writer(QString::fromStdString(path));
    writer.setResolution(dotsPerInch);
    writer.setPageLayout({QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF()});
    QPainter painter(&writer);
    for (const DrawnCommand& command : page.commands)
        if (const auto* line = std::get_if<DrawnLine>(&command)) drawPlainly(*line, painter);
    for (const DrawnCommand& command : page.commands)
        if (const auto* text = std::get_if<DrawnText>(&command)) drawPlainly(*text, painter);
}

void write(const Drawing& page, const std::string& path) {
    DiskFiles files;
    PdfFilePaper paper(files, modelNameOfHostPath(path));
    const auto job = paper.begin({"Page", Orientation::portrait, ""});
    job->page(page);
    job->finish();
}

// A table as reports have it: a heading in bold, rows of a label and numbers, rules around every cell.
Drawing ruledPage() {
    std::mt19937 random(2);
    const QtTextMetrics metrics;
    constexpr int rows = 40, columns = 8;
    constexpr double left = 0.3, top = 0.8, rowHeight = 0.145, labelWidth = 2, columnWidth = 0.65;
    const Pen rule{{0, 0, 0}, 2, Dash::solid};
    // Of whole dots: Qt rounds the size of a text that it draws by itself.
    const Font heading{"Arial", 9.6, true}, usual{"Arial", 7.2, false};
    Drawing page = emptyPage();
    page.commands.emplace_back(textAt(left, 0.4, "A made-up catchment", heading));
    for (int row = 0; row < rows; ++row) {
        const double y = top + row * rowHeight;
        page.commands.emplace_back(textAt(left + 0.05, y, "Outfall of W\xc3\xa9ir " + std::to_string(row),
                                          row == 7 ? Font{"Arial", 7.2, true} : usual));
        for (int column = 0; column <= columns; ++column) {
            const double x = left + labelWidth + column * columnWidth;
            page.commands.emplace_back(DrawnLine{{x, y}, {x, y + rowHeight}, rule});
            if (column == columns) continue;
            const std::string number = std::to_string(random() % 100000);
            const double width = metrics.measure(number, usual).width / 1440;
            page.commands.emplace_back(textAt(x + columnWidth - 0.06 - width, y, number, usual));
        }
    }
    for (const double y : {top, top + rows * rowHeight})
        page.commands.emplace_back(
            DrawnLine{{left, y}, {left + labelWidth + columns * columnWidth, y}, rule});
    return page;
}

QImage pictureOf(const std::string& path, int resolution) {
    const std::string bytes =
        outputOf("pdftoppm -gray -r " + std::to_string(resolution) + " -f 1 -l 1 '" + path + "'");
    QImage image;
    image.loadFromData(reinterpret_cast<const uchar*>(bytes.data()), static_cast<int>(bytes.size()));
    return image.convertToFormat(QImage::Format_Grayscale8);
}

// Whether there is ink beside or at the pixel.
bool hasInkAround(const QImage& image, int x, int y) {
    const QRect around = QRect(x - 1, y - 1, 3, 3) & image.rect();
    for (int row = around.top(); row <= around.bottom(); ++row)
        for (int column = around.left(); column <= around.right(); ++column)
            if (qGray(image.pixel(column, row)) < 160) return true;
    return false;
}

// Dark pixels of one picture that have nothing at their place, nor beside it, in the other.
int darkPixelsMissing(const QImage& from, const QImage& in) {
    int count = 0;
    for (int y = 0; y < from.height(); ++y)
        for (int x = 0; x < from.width(); ++x)
            count += qGray(from.pixel(x, y)) < 96 && !hasInkAround(in, x, y);
    return count;
}

int inkedPixels(const QImage& image) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            count += qGray(image.pixel(x, y)) < 160;
    return count;
}

class PdfPictureTest : public testing::Test {
  protected:
    void SetUp() override {
        if (outputOf("command -v pdftoppm").empty()) GTEST_SKIP() << "pdftoppm is not installed";
    }
    QImage inPieces(const Drawing& page, int resolution) {
        write(page, m_folder.path("pieces.pdf"));
        return pictureOf(m_folder.path("pieces.pdf"), resolution);
    }
    QImage drawnPlainly(const Drawing& page, int resolution) {
        writePlainly(page, m_folder.path("plain.pdf"));
        return pictureOf(m_folder.path("plain.pdf"), resolution);
    }

    TemporaryFolder m_folder;
};

} // namespace

TEST_F(PdfPictureTest, HasTheSamePixelsOfRules) {
    Drawing page = ruledPage();
    std::erase_if(page.commands, [](const auto& each) { return std::holds_alternative<DrawnText>(each); });
    for (const int resolution : {72, 100, 150, 300}) {
        const QImage plain = drawnPlainly(page, resolution);
        ASSERT_GT(inkedPixels(plain), 1000);
        EXPECT_EQ(inPieces(page, resolution), plain) << resolution << " pixels an inch";
    }
}

// Qt rounds the steps between the letters of a text that it draws by itself, so that a letter at the end of a
// long one lies up to a tenth of a dot elsewhere, and pdftoppm puts it to the next fourth of a pixel.
TEST_F(PdfPictureTest, HasTheSameTextsAtTheirPlacesToADot) {
    const Drawing page = ruledPage();
    const QImage pieces = inPieces(page, dotsPerInch), plain = drawnPlainly(page, dotsPerInch);
    EXPECT_EQ(darkPixelsMissing(plain, pieces), 0);
    EXPECT_EQ(darkPixelsMissing(pieces, plain), 0);
}

TEST_F(PdfPictureTest, DiffersWhereOneDigitDoes) {
    Drawing page = ruledPage();
    const QImage plain = drawnPlainly(page, dotsPerInch);
    std::get<DrawnText>(page.commands.at(1)).text.back() = '8'; // of the first row's 0
    const QImage pieces = inPieces(page, dotsPerInch);
    EXPECT_GT(darkPixelsMissing(plain, pieces) + darkPixelsMissing(pieces, plain), 10);
}

} // namespace korvel
