#include "drawing/paint/CrossStamps.h"

#include "drawing/paint/LineBox.h"
#include "drawing/paint/PaintedImage.h"

#include <QImage>
#include <QPainter>
#include <QPen>

#include <algorithm>
#include <cmath>

namespace korvel {

namespace {

constexpr int largestCross = 64; // pixels
constexpr std::size_t mostStamps = 16;

Cross movedBy(const Cross& cross, QPoint way) {
    return {cross.first.translated(way), cross.second.translated(way)};
}
QRect extentOf(const Cross& cross) {
    return boxOf(cross.first) | boxOf(cross.second);
}
// Not one that is squeezed flat: it is as quick as lines.
bool hasStamp(const Cross& cross) {
    const bool slanting =
        cross.first.dx() != 0 && cross.first.dy() != 0 && cross.second.dx() != 0 && cross.second.dy() != 0;
    const QRect box = extentOf(cross);
    return slanting && std::max(box.width(), box.height()) <= largestCross;
}

struct Stamp {
    Cross cross; // its first line begins at 0, 0
    QPoint corner;
    QImage image;
    std::vector<QRect> rows; // inked, one pixel high, from the corner
};

std::vector<QRect> inkedRows(const QImage& image) {
    std::vector<QRect> rows;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)) == 0) continue;
            if (!rows.empty() && rows.back().top() == y && rows.back().right() == x - 1)
                rows.back().setRight(x);
            else
                rows.emplace_back(x, y, 1, 1);
        }
    return rows;
}

QRect inkedPart(const QImage& image) {
    QRect inked;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (qAlpha(image.pixel(x, y)) > 0) inked |= QRect(x, y, 1, 1);
    return inked;
}

Stamp makeStamp(const Cross& cross, const QPen& pen) {
    const int margin = 3 * pen.width() / 4 + 1; // a square end's corners lie 0.71 widths off
    const QRect box = extentOf(cross).adjusted(-margin, -margin, margin, margin);
    Stamp stamp{cross, box.topLeft(), QImage(box.size(), QImage::Format_ARGB32_Premultiplied), {}};
    stamp.image.fill(Qt::transparent);
    QPainter painter(&stamp.image);
    painter.setPen(pen);
    painter.drawLine(cross.first.translated(-box.topLeft()));
    painter.drawLine(cross.second.translated(-box.topLeft()));
    painter.end();
    // Its empty rows and columns would be blended with each cross.
    const QRect inked = inkedPart(stamp.image);
    stamp.corner += inked.topLeft();
    stamp.image = stamp.image.copy(inked);
    stamp.rows = inkedRows(stamp.image);
    return stamp;
}

class Stamper {
  public:
    Stamper(QPainter& painter, const QRect& device)
        : m_painter(painter),
          m_device(device),
          m_colour(painter.pen().color().rgba()),
          m_image(qAlpha(m_colour) == 255 ? paintedImage(painter) : nullptr) {
        if (m_image != nullptr) m_device &= m_image->rect();
    }

    // Whether it was painted: not where too many shapes are known, or a part of it is off the device, which
    // Qt cuts off a line before it chooses its pixels.
    bool paint(const Cross& cross) {
        const QPoint place = cross.first.p1();
        const Stamp* stamp = stampOf(movedBy(cross, -place));
        if (stamp == nullptr) return false;
        const QPoint corner = place + stamp->corner;
        if (!m_device.contains(QRect(corner, stamp->image.size()))) return false;
        if (m_image == nullptr)
            m_painter.drawImage(corner, stamp->image);
        else
            ink(corner, stamp->rows);
        return true;
    }

  private:
    const Stamp* stampOf(const Cross& cross) {
        const auto known = std::find_if(m_stamps.begin(), m_stamps.end(),
                                        [&](const Stamp& stamp) { return stamp.cross == cross; });
        if (known != m_stamps.end()) return &*known;
        if (m_stamps.size() == mostStamps) return nullptr;
        m_stamps.push_back(makeStamp(cross, m_painter.pen()));
        return &m_stamps.back();
    }

    void ink(QPoint corner, const std::vector<QRect>& rows) {
        const qsizetype step = m_image->bytesPerLine() / static_cast<qsizetype>(sizeof(QRgb));
        QRgb* const first = reinterpret_cast<QRgb*>(m_image->bits()) + corner.y() * step + corner.x();
        for (const QRect& row : rows)
            std::fill_n(first + row.top() * step + row.left(), row.width(), m_colour);
    }

    QPainter& m_painter;
    QRect m_device;
    QRgb m_colour;
    QImage* m_image; // none: by the painter
    std::vector<Stamp> m_stamps;
};

// Images keep their pixels where the painter moves them by whole pixels, or not at all.
bool keepsPixels(const QTransform& transform) {
    return transform.type() <= QTransform::TxTranslate && transform.dx() == std::floor(transform.dx()) &&
           transform.dy() == std::floor(transform.dy());
}

} // namespace

void drawCrosses(QPainter& painter, const std::vector<Cross>& crosses, const QRect& device) {
    Stamper stamper(painter, device);
    const bool stamps = keepsPixels(painter.deviceTransform());
    std::vector<QLine> others;
    for (const Cross& cross : crosses)
        if (!stamps || !hasStamp(cross) || !stamper.paint(cross))
            others.insert(others.end(), {cross.first, cross.second});
    painter.drawLines(others.data(), static_cast<int>(others.size()));
}

} // namespace korvel
