#include "toolkit/RunThinning.h"

#include <algorithm>

namespace {

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
        } else if (y > highest) {
            highest = y;
            lowestFirst = true;
        }
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
    auto at = points.begin();
    while (at != points.end() && !grid.point(*at))
        ++at;
    if (at == points.end()) return;
    PixelColumn column(*grid.point(*at));
    for (++at; at != points.end(); ++at) {
        const std::optional<QPoint> point = grid.point(*at);
        if (!point) continue;
        if (point->x() == column.x) {
            column.add(point->y());
            continue;
        }
        thinner.column(column);
        thinner.join(column, *point);
        column = PixelColumn(*point);
    }
    thinner.column(column);
}

} // namespace

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
