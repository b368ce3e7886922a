#include "drawing/paint/RunThinning.h"

#include "drawing/paint/CoveredColumns.h"
#include "drawing/paint/LineBox.h"
#include "drawing/paint/PixelColumns.h"
#include "drawing/paint/SlantPictures.h"

#include <algorithm>

namespace korvel {

namespace {

// The boxes and lines of solid lines between neighbouring points.
class PieceMaker {
  public:
    PieceMaker(const std::vector<PixelColumn>& columns, const PixelGrid& grid, int penWidth)
        : m_columns(columns),
          m_width(penWidth),
          m_device(0, 0, grid.width, grid.height),
          m_seen(m_device.adjusted(-penWidth, -penWidth, penWidth, penWidth)),
          m_slants(SlantPictures::ofPen(penWidth)),
          m_covered(m_seen.left() - penWidth, m_seen.right() + penWidth) {}

    ThinnedRun make() {
        for (std::size_t k = 0; k < m_columns.size(); ++k) {
            const PixelColumn& column = m_columns[k];
            if (!column.single && isSeen(column.x)) cover(column.x, column.lowest, column.highest);
            if (k + 1 < m_columns.size()) join(column, m_columns[k + 1]);
        }
        if (m_covered.areHigh()) {
            m_run.columns = m_covered.takeColumns(m_run.boxes);
        } else {
            const std::vector<QRect> covered = m_covered.takeBoxes();
            m_run.boxes.insert(m_run.boxes.end(), covered.begin(), covered.end());
        }
        return std::move(m_run);
    }

  private:
    bool isSeen(int x) const { return x >= m_seen.left() && x <= m_seen.right(); }

    void join(const PixelColumn& from, const PixelColumn& to) {
        const QLine line(from.x, from.last, to.x, to.first);
        const QRect box = boxOf(line);
        if (!m_seen.intersects(box)) return;
        if (line.dy() == 0 && areLevelLinesBoxes())
            addLevel(box);
        else if (line.dy() != 0 && line.dx() == 1 && hasPicture(box))
            addPicture(line);
        else
            m_run.lines.push_back(line);
    }

    // Lines of odd widths, but for the thinnest, Qt paints a column of pixels shorter where they have certain
    // lengths.
    bool areLevelLinesBoxes() const { return m_width == 1 || m_width % 2 == 0; }
    void addLevel(const QRect& line) {
        const int before = m_width / 2, after = m_width - 1 - before;
        if (line.width() > 2 || !isSeen(line.left()) || !isSeen(line.right()))
            return m_run.boxes.push_back(line.adjusted(-before, -before, after, after));
        cover(line.left(), line.top(), line.top());
        cover(line.right(), line.top(), line.top());
    }

    // Whether the line in the box has a picture, and all of it is on the device: Qt cuts off what is not, and
    // what remains can differ.
    bool hasPicture(const QRect& box) const {
        const int reach = m_slants.reach();
        return box.height() <= SlantPictures::steepest &&
               m_device.contains(box.adjusted(-reach, -reach, reach, reach));
    }
    void addPicture(const QLine& line) {
        const SlantPictures::Picture& picture = m_slants.to(line.dy());
        int column = line.x1() + picture.firstColumn;
        for (const Stretch& stretch : picture.stretches)
            m_covered.add(column++, {line.y1() + stretch.top, line.y1() + stretch.bottom});
    }

    // The pixels of a vertical line with square ends.
    void cover(int x, int top, int bottom) {
        const int before = m_width / 2, after = m_width - 1 - before;
        for (int column = x - before; column <= x + after; ++column)
            m_covered.add(column, {top - before, bottom + after});
    }

    const std::vector<PixelColumn>& m_columns;
    int m_width;
    QRect m_device;
    QRect m_seen; // what lies outside leaves no pixel on the device
    SlantPictures& m_slants;
    CoveredColumns m_covered;
    ThinnedRun m_run;
};

void add(QPolygon& polygon, int x, int y) {
    if (polygon.isEmpty() || polygon.back() != QPoint(x, y)) polygon.append(QPoint(x, y));
}

} // namespace

ThinnedRun thinnedRun(const std::vector<DrawnPoint>& points, const PixelGrid& grid, int penWidth) {
    return PieceMaker(pixelColumns(points, grid), grid, penWidth).make();
}

QPolygon thinnedPolygon(const std::vector<DrawnPoint>& points, const PixelGrid& grid) {
    QPolygon polygon;
    for (const PixelColumn& column : pixelColumns(points, grid)) {
        add(polygon, column.x, column.first);
        if (column.lowest < std::min(column.first, column.last)) add(polygon, column.x, column.lowest);
        if (column.highest > std::max(column.first, column.last)) add(polygon, column.x, column.highest);
        add(polygon, column.x, column.last);
    }
    return polygon;
}

} // namespace korvel
