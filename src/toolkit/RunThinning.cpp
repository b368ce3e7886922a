#include "toolkit/RunThinning.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double farAway = 1e6; // pixels; what lies farther off is drawn from here

// The points of a run that fall into one column.
struct PixelColumn {
    int x;
    int first, last, lowest, highest;
    bool single = true;
    bool lowestFirst = true; // in the order of the run

    explicit PixelColumn(QPoint point)
        : x(point.x()), first(point.y()), last(first), lowest(first), highest(first) {}

    void add(int y) {
        single = false;
        last = y;
        if (y < lowest) {
            lowest = y;
            lowestFirst = false;
        }
        if (y > highest) {
            highest = y;
            lowestFirst = true;
        }
    }
};

class LineThinner {
  public:
    LineThinner(const PixelGrid& grid, int penWidth) : m_right(grid.width + penWidth), m_left(-penWidth) {}

    std::vector<QLine> lines;

    void column(const PixelColumn& column) {
        if (!column.single && column.x >= m_left && column.x <= m_right)
            lines.emplace_back(column.x, column.lowest, column.x, column.highest);
    }
    void join(const PixelColumn& from, QPoint to) {
        const bool unseen = std::max(from.x, to.x()) < m_left || std::min(from.x, to.x()) > m_right;
        if (!unseen) lines.emplace_back(from.x, from.last, to.x(), to.y());
    }

  private:
    int m_right;
    int m_left;
};

class PolygonThinner {
  public:
    QPolygon polygon;

    void column(const PixelColumn& column) {
        add(column.x, column.first);
        add(column.x, column.lowestFirst ? column.lowest : column.highest);
        add(column.x, column.lowestFirst ? column.highest : column.lowest);
        add(column.x, column.last);
    }
    void join(const PixelColumn&, QPoint) {}

  private:
    void add(int x, int y) {
        if (polygon.isEmpty() || polygon.back() != QPoint(x, y)) polygon.append(QPoint(x, y));
    }
};

template <typename Thinner>
void thin(const std::vector<DrawnPoint>& points, const PixelGrid& grid, Thinner& thinner) {
    std::optional<PixelColumn> column;
    for (const DrawnPoint& at : points) {
        const std::optional<QPoint> point = grid.point(at);
        if (!point) continue;
        if (column && column->x == point->x()) {
            column->add(point->y());
            continue;
        }
        if (column) {
            thinner.column(*column);
            thinner.join(*column, *point);
        }
        column.emplace(*point);
    }
    if (column) thinner.column(*column);
}

} // namespace

int PixelGrid::nearest(double pixel) {
    // Cutting off a number above 0 is much faster than rounding it down.
    constexpr int shift = 1 << 21;
    return static_cast<int>(std::clamp(pixel, -farAway, farAway) + (shift + 0.5)) - shift;
}

std::optional<QPoint> PixelGrid::point(DrawnPoint at) const {
    if (std::isnan(at.x) || std::isnan(at.y)) return std::nullopt;
    return QPoint(x(at.x), y(at.y));
}

std::vector<QLine> thinnedLines(const std::vector<DrawnPoint>& points, const PixelGrid& grid, int penWidth) {
    LineThinner thinner(grid, penWidth);
    thin(points, grid, thinner);
    return std::move(thinner.lines);
}

QPolygon thinnedPolygon(const std::vector<DrawnPoint>& points, const PixelGrid& grid) {
    PolygonThinner thinner;
    thin(points, grid, thinner);
    return std::move(thinner.polygon);
}
