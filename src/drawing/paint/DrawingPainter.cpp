#include "drawing/paint/DrawingPainter.h"

#include "drawing/Units.h"
#include "drawing/paint/BandColumns.h"
#include "drawing/paint/CrossStamps.h"
#include "drawing/paint/MergedLines.h"
#include "drawing/paint/PageTexts.h"
#include "drawing/paint/PaintedImage.h"
#include "drawing/paint/QtTextMetrics.h"
#include "drawing/paint/RunThinning.h"
#include "drawing/paint/Shown.h"
#include "drawing/paint/SolidPen.h"

#include <QFontMetricsF>
#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <optional>
#include <utility>

namespace korvel {

namespace {

constexpr double screenDotsPerInch = 96;
constexpr double pageDotsPerInch = 300;
constexpr double finerGrid = 8; // steps a logical pixel where lines are stored, not painted

bool storesLines(const QPainter& painter) {
    const QPaintEngine::Type type = painter.paintEngine()->type();
    return type == QPaintEngine::Pdf || type == QPaintEngine::SVG || type == QPaintEngine::Picture;
}

// Dashes and gaps, in 1/96 inch, so that they can be seen with thin pens on fine devices too.
QList<qreal> dashLengths(Dash dash) {
    switch (dash) {
    case Dash::solid: break;
    case Dash::dash: return {6, 3};
    case Dash::dot: return {2, 3};
    case Dash::dashDot: return {6, 3, 2, 3};
    case Dash::dashDotDot: return {6, 3, 2, 3, 2, 3};
    }
    return {};
}

struct DeviceScale {
    PixelGrid grid;
    double penUnit = 1; // pixels of a pen's width 1
    double pixelsPerInch = screenDotsPerInch;
};

class DrawingPlayer {
  public:
    DrawingPlayer(const Drawing& drawing, QPainter& painter, const DeviceScale& scale)
        : m_drawing(drawing), m_painter(painter), m_scale(scale), m_stored(storesLines(painter)) {
        m_painter.save();
        m_painter.setRenderHint(QPainter::Antialiasing, false);
        m_painter.setRenderHint(QPainter::TextAntialiasing, true);
        m_painter.setBrush(Qt::NoBrush);
    }
    ~DrawingPlayer() { m_painter.restore(); }
    DrawingPlayer(const DrawingPlayer&) = delete;
    DrawingPlayer& operator=(const DrawingPlayer&) = delete;

    // Texts as pieces of a page where `texts` is given.
    void play(PageTexts* texts = nullptr) {
        std::vector<const DrawnText*> drawnTexts; // above everything else
        for (const DrawnCommand& command : m_drawing.commands) {
            if (const auto* line = std::get_if<DrawnLine>(&command))
                draw(*line);
            else if (const auto* run = std::get_if<DrawnRun>(&command))
                draw(*run);
            else if (const auto* marker = std::get_if<DrawnMarker>(&command))
                draw(*marker);
            else if (const auto* band = std::get_if<DrawnBand>(&command))
                draw(*band);
            else if (const auto* text = std::get_if<DrawnText>(&command))
                drawnTexts.push_back(text);
        }
        flush();
        for (const DrawnText* text : drawnTexts)
            if (texts == nullptr || !texts->add(*text, cornerOf(*text))) draw(*text);
        if (texts != nullptr) texts->flush();
    }

    double dotsPerPoint() const { return m_drawing.unitsPerInch * m_scale.grid.scale / pointsPerInch; }

  private:
    void draw(const DrawnLine& line) {
        const auto from = m_scale.grid.point(line.from), to = m_scale.grid.point(line.to);
        if (!from || !to) return;
        use(line.pen);
        if (line.pen.dash == Dash::solid)
            m_lines.emplace_back(*from, *to);
        else
            m_painter.drawLine(*from, *to);
    }

    void draw(const DrawnMarker& marker) {
        const auto at = [&](double across, double down) {
            return m_scale.grid.point({marker.centre.x + across, marker.centre.y + down});
        };
        if (!at(0, 0)) return;
        const double half = marker.half;
        use(marker.pen);
        m_crosses.push_back({{*at(-half, half), *at(half, -half)}, {*at(-half, -half), *at(half, half)}});
        if (m_stored || marker.pen.dash != Dash::solid) drawCrossesAsLines();
    }

    void drawCrossesAsLines() {
        for (const Cross& cross : std::exchange(m_crosses, {}))
            if (m_stored)
                m_lines.insert(m_lines.end(), {cross.first, cross.second});
            else
                m_painter.drawLine(cross.first), m_painter.drawLine(cross.second);
    }

    void draw(const DrawnBand& band) {
        flush();
        m_pen.reset();
        if (!m_stored)
            if (const auto picture = bandByColumns(band, m_scale.grid, m_columnPixels))
                return m_painter.drawImage(picture->corner, picture->image);
        QPolygon outline = thinnedPolygon(band.above, m_scale.grid);
        const QPolygon below = thinnedPolygon(band.below, m_scale.grid);
        std::copy(below.rbegin(), below.rend(), std::back_inserter(outline));
        m_painter.setPen(Qt::NoPen);
        m_painter.setBrush(colourOf(band));
        m_painter.drawPolygon(outline);
        m_painter.setBrush(Qt::NoBrush);
    }

    // Lines and crosses of one pen at once. Where they are stored a rule is one line, however many rows it
    // passes.
    void flush() {
        if (m_stored) {
            const std::vector<QLine> merged = mergedLines(m_lines);
            m_painter.drawLines(merged.data(), static_cast<int>(merged.size()));
        } else {
            m_painter.drawLines(m_lines.data(), static_cast<int>(m_lines.size()));
            drawCrosses(m_painter, m_crosses, QRect(0, 0, m_scale.grid.width, m_scale.grid.height));
        }
        m_lines.clear();
        m_crosses.clear();
    }

    void draw(const DrawnRun& run) {
        use(run.pen);
        // Dashes go on along the whole run; lines of their own would each begin anew.
        if (m_stored || run.pen.dash != Dash::solid)
            m_painter.drawPolyline(thinnedPolygon(run.points, m_scale.grid));
        else
            drawThinned(run);
    }

    // Never one wide line through all points: painting its joins takes a hundred times as long.
    void drawThinned(const DrawnRun& run) {
        const QPen pen = m_painter.pen();
        const ThinnedRun thinned = thinnedRun(run.points, m_scale.grid, pen.width());
        m_painter.drawLines(thinned.lines.data(), static_cast<int>(thinned.lines.size()));
        m_painter.setPen(Qt::NoPen);
        m_painter.setBrush(pen.color());
        m_painter.drawRects(thinned.boxes.data(), static_cast<int>(thinned.boxes.size()));
        m_painter.setBrush(Qt::NoBrush);
        m_painter.setPen(pen);
        if (thinned.columns.isEmpty()) return;
        const QRgb colour = pen.color().rgba();
        if (QImage* image = qAlpha(colour) == 255 ? paintedImage(m_painter) : nullptr)
            return fill(*image, thinned.columns, colour);
        const ColumnPicture picture =
            pictureOf(thinned.columns, colour, {m_scale.grid.width, m_scale.grid.height}, m_columnPixels);
        m_painter.drawImage(picture.corner, picture.image);
    }

    void draw(const DrawnText& text) {
        use(text.font);
        m_painter.setPen(QColor(text.colour.red, text.colour.green, text.colour.blue));
        m_pen.reset();
        const QPointF corner = cornerOf(text);
        const QPointF start(corner.x(), std::round(corner.y() + m_ascent));
        if (text.narrowing == 1) return m_painter.drawText(start, shown(text.text));
        m_painter.save();
        m_painter.translate(start);
        m_painter.scale(text.narrowing, 1);
        m_painter.drawText(QPointF(), shown(text.text));
        m_painter.restore();
    }

    QPointF cornerOf(const DrawnText& text) const {
        const PixelGrid& grid = m_scale.grid;
        return {grid.left + text.corner.x * grid.scale, grid.top + text.corner.y * grid.scale};
    }

    void use(const Pen& pen) {
        if (m_pen == pen) return;
        flush();
        m_pen = pen;
        const int width = std::max(1, static_cast<int>(std::lround(pen.width * m_scale.penUnit)));
        QPen qt = solidPen(QColor(pen.colour.red, pen.colour.green, pen.colour.blue), width);
        QList<qreal> dashes = dashLengths(pen.dash);
        for (qreal& length : dashes)
            length *= m_scale.pixelsPerInch / screenDotsPerInch / width;
        if (!dashes.isEmpty()) {
            qt.setCapStyle(Qt::FlatCap);
            qt.setDashPattern(dashes);
        }
        m_painter.setPen(qt);
    }

    void use(const Font& font) {
        if (m_font == font) return;
        m_font = font;
        const QFont qt = drawnFont(font, font.size * dotsPerPoint(), m_painter.device()->logicalDpiY());
        m_painter.setFont(qt);
        m_ascent = QFontMetricsF(qt, m_painter.device()).ascent();
    }

    const Drawing& m_drawing;
    QPainter& m_painter;
    DeviceScale m_scale;
    bool m_stored;
    std::optional<Pen> m_pen;
    std::optional<Font> m_font;
    double m_ascent = 0;
    std::vector<QLine> m_lines; // not painted yet, all of m_pen
    std::vector<Cross> m_crosses;
    std::vector<QRgb> m_columnPixels;
};

// Where a screen's scale is broken, a form's parts stand between pixels; there, a line, a box and an image of
// the same place would not agree.
void beginAtWholePixel(QPainter& painter) {
    const QTransform device = painter.deviceTransform();
    painter.translate(std::round(device.dx()) - device.dx(), std::round(device.dy()) - device.dy());
}

} // namespace

void paintOnScreen(const Drawing& drawing, QPainter& painter) {
    const bool stored = storesLines(painter);
    const double ratio = stored ? finerGrid : painter.device()->devicePixelRatio();
    const double logicalPixel = stored ? painter.device()->logicalDpiX() / screenDotsPerInch : 1;
    painter.save();
    painter.scale(logicalPixel / ratio, logicalPixel / ratio);
    if (!stored) beginAtWholePixel(painter);
    const double pixelsPerInch = ratio * screenDotsPerInch;
    const double perUnit = pixelsPerInch / drawing.unitsPerInch;
    const PixelGrid grid{0, 0, perUnit, static_cast<int>(std::ceil(drawing.width * perUnit)),
                         static_cast<int>(std::ceil(drawing.height * perUnit))};
    DrawingPlayer(drawing, painter, {grid, ratio, pixelsPerInch}).play();
    painter.restore();
}

void paintOnPage(const Drawing& drawing, QPainter& painter, const QRectF& area, GlyphFonts& fonts) {
    const double dotsPerInch = painter.device()->logicalDpiX();
    const double perUnit = area.width() / drawing.width;
    const PixelGrid grid{area.left(), area.top(), perUnit, painter.device()->width(),
                         painter.device()->height()};
    DrawingPlayer player(drawing, painter, {grid, dotsPerInch / pageDotsPerInch, dotsPerInch});
    PageTexts texts(painter, fonts, player.dotsPerPoint());
    player.play(&texts);
}

} // namespace korvel
