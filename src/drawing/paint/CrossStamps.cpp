#include "drawing/paint/CrossStamps.h"

#include "drawing/paint/LineBox.h"

#include <QImage>
#include <QPainter>
#include <QPen>

#include <algorithm>
#include <cmath>

namespace korvel {

namespace {

constexpr int largestCross = 64; // pixels
constexpr std::size_t mostStamps = 16;

// Two lines, one painted after the other.
struct Cross {
    QLine first, second;

    bool operator==(const Cross&) const = default;
    Cross movedBy(QPoint way) const { return {first.translated(way), second.translated(way)}; }
    QRect box() const { return boxOf(first) | boxOf(second); }
    bool hasStamp() const {
        const bool slanting = first.dx() != 0 && first.dy() != 0 && second.dx() != 0 && second.dy() != 0;
        return slanting && std::max(box().width(), box().height()) <= largestCross;
    }
};

struct Stamp {
    Cross cross; // its first line begins at 0, 0
    QPoint corner;
    QImage image;
};

Stamp makeStamp(const Cross& cross, const QPen& pen) {
    const int margin = 3 * pen.width() / 4 + 1; // a square end's corners lie 0.71 widths off
    const QRect box = cross.box().adjusted(-margin, -margin, margin, margin);
    Stamp stamp{cross, box.topLeft(), QImage(box.size(), QImage::Format_ARGB32_Premultiplied)};
    stamp.image.fill(Qt::transparent);
    QPainter painter(&stamp.image);
    painter.setPen(pen);
    painter.drawLine(cross.first.translated(-box.topLeft()));
    painter.drawLine(cross.second.translated(-box.topLeft()));
    return stamp;
}

class Stamper {
  public:
    Stamper(QPainter& painter, const QRect& device) : m_painter(painter), m_device(device) {}

    // Whether it was painted: not where too many shapes are known, or a part of it is off the device, which
    // Qt cuts off a line before it chooses its pixels.
    bool paint(const Cross& cross) {
        const QPoint place = cross.first.p1();
        const Stamp* stamp = stampOf(cross.movedBy(-place));
        if (stamp == nullptr) return false;
        const QPoint corner = place + stamp->corner;
        if (!m_device.contains(QRect(corner, stamp->image.size()))) return false;
        m_painter.drawImage(corner, stamp->image);
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

    QPainter& m_painter;
    QRect m_device;
    std::vector<Stamp> m_stamps;
};

// Images keep their pixels where the painter moves them by whole pixels, or not at all.
bool keepsPixels(const QTransform& transform) {
    return transform.type() <= QTransform::TxTranslate && transform.dx() == std::floor(transform.dx()) &&
           transform.dy() == std::floor(transform.dy());
}

} // namespace

void drawLinesAndCrosses(QPainter& painter, const std::vector<QLine>& lines, const QRect& device) {
    Stamper stamper(painter, device);
    const bool stamps = keepsPixels(painter.deviceTransform());
    std::vector<QLine> others;
    for (std::size_t k = 0; k < lines.size(); ++k) {
        const bool hasNext = k + 1 < lines.size();
        const Cross cross{lines[k], hasNext ? lines[k + 1] : QLine()};
        if (stamps && cross.hasStamp() && stamper.paint(cross))
            ++k;
        else
            others.push_back(lines[k]);
    }
    painter.drawLines(others.data(), static_cast<int>(others.size()));
}

} // namespace korvel
