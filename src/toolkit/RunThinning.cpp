#include "toolkit/RunThinning.h"

#include <algorithm>
#include <array>

namespace {

// The points of a run that fall into one column.
struct PixelColumn {
    int x;
    int first, last, lowest, highest;
    bool single = true;

    explicit PixelColumn(QPoint point)
        : x(point.x()), first(point.y()), last(first), lowest(first), highest(first) {}

    void add(int y) {
        single = false;
        last = y;
        lowest = std::min(lowest, y);
        highest = std::max(highest, y);
    }
};

class PieceThinner {
  public:
    PieceThinner(const PixelGrid& grid, int penWidth)
        : m_left(-penWidth), m_right(grid.width + penWidth), m_width(penWidth) {}

    ThinnedRun run;

    void column(const PixelColumn& column) {
        if (!column.single && column.x >= m_left && column.x <= m_right)
            addBox(column.x, column.lowest, column.x, column.highest);
    }
    void join(const PixelColumn& from, QPoint to) {
        const int left = std::min(from.x, to.x()), right = std::max(from.x, to.x());
        if (right < m_left || left > m_right) return;
        if (from.last == to.y())
            addBox(left, to.y(), right, to.y());
        else
            run.slants.emplace_back(from.x, from.last, to.x(), to.y());
    }

  private:
    // The pixels of a line with square ends.
    void addBox(int left, int top, int right, int bottom) {
        run.boxes.emplace_back(left - m_width / 2, top - m_width / 2, right - left + m_width,
                               bottom - top + m_width);
    }

    int m_left;
    int m_right;
    int m_width;
};

class PolygonThinner {
  public:
    QPolygon polygon;

    void column(const PixelColumn& column) {
        add(column.x, column.first);
        if (column.lowest < std::min(column.first, column.last)) add(column.x, column.lowest);
        if (column.highest > std::max(column.first, column.last)) add(column.x, column.highest);
        add(column.x, column.last);
    }
    void join(const PixelColumn&, QPoint) {}

  private:
    void add(int x, int y) {
        if (polygon.isEmpty() || polygon.back() != QPoint(x, y)) polygon.append(QPoint(x, y));
    }
};

// Takes the points of one column after another.
template <typename Thinner>
class Columns {
  public:
    explicit Columns(Thinner& thinner) : m_thinner(thinner) {}

    void add(QPoint point) {
        if (m_any && m_column.x == point.x()) return m_column.add(point.y());
        if (m_any) {
            m_thinner.column(m_column);
            m_thinner.join(m_column, point);
        }
        m_any = true;
        m_column = PixelColumn(point);
    }
    void end() {
        if (m_any) m_thinner.column(m_column);
    }

  private:
    Thinner& m_thinner;
    bool m_any = false;
    PixelColumn m_column{QPoint()};
};

template <typename Thinner>
void thin(std::span<const DrawnPoint> points, const PixelGrid& grid, Thinner& thinner) {
    std::array<QPoint, 512> block;
    Columns columns(thinner);
    while (!points.empty()) {
        const auto some = points.first(std::min(points.size(), block.size()));
        const std::size_t count = grid.points(some, block.data());
        for (std::size_t k = 0; k < count; ++k)
            columns.add(block[k]);
        points = points.subspan(some.size());
    }
    columns.end();
}

} // namespace

std::size_t PixelGrid::points(std::span<const DrawnPoint> from, QPoint* to) const {
    bool anyNowhere = false;
    for (std::size_t k = 0; k < from.size(); ++k) {
        to[k] = QPoint(x(from[k].x), y(from[k].y));
        anyNowhere |= isNowhere(from[k]);
    }
    if (!anyNowhere) return from.size();
    std::size_t count = 0;
    for (std::size_t k = 0; k < from.size(); ++k)
        if (!isNowhere(from[k])) to[count++] = to[k];
    return count;
}

ThinnedRun thinnedRun(const std::vector<DrawnPoint>& points, const PixelGrid& grid, int penWidth) {
    PieceThinner thinner(grid, penWidth);
    thin(points, grid, thinner);
    return std::move(thinner.run);
}

QPolygon thinnedPolygon(const std::vector<DrawnPoint>& points, const PixelGrid& grid) {
    PolygonThinner thinner;
    thin(points, grid, thinner);
    return std::move(thinner.polygon);
}
