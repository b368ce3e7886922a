#include "drawing/paint/PixelColumns.h"

namespace korvel {

namespace {

constexpr std::size_t groupSize = 8;

// A point's x and y, worked on at once. The compiler has it on every machine.
using Pair = double __attribute__((vector_size(2 * sizeof(double))));

Pair pairOf(const DrawnPoint& point) {
    return Pair{point.x, point.y};
}

// Of a group of points, in units.
struct Extent {
    Pair lowest, highest;
    bool anyNaN;
};

Extent extentOf(std::span<const DrawnPoint, groupSize> points) {
    Pair lowest = pairOf(points[0]), highest = lowest;
    auto isNaN = lowest != lowest;
    for (std::size_t k = 1; k < groupSize; ++k) {
        const Pair point = pairOf(points[k]);
        lowest = point < lowest ? point : lowest;
        highest = point > highest ? point : highest;
        isNaN |= point != point;
    }
    return {lowest, highest, (isNaN[0] | isNaN[1]) != 0};
}

class ColumnFinder {
  public:
    explicit ColumnFinder(const PixelGrid& grid) : m_grid(grid) {}

    std::vector<PixelColumn> columns;

    // Whether the group lies in the column of the last point. Pixels rise with units, so that a group's ends
    // tell the ends of its pixels.
    bool addGroup(std::span<const DrawnPoint, groupSize> points) {
        if (columns.empty()) return false;
        PixelColumn& column = columns.back();
        if (m_grid.x(points.back().x) != column.x) return false; // most that leave it end elsewhere
        const Extent extent = extentOf(points);
        if (extent.anyNaN || m_grid.x(extent.lowest[0]) != column.x ||
            m_grid.x(extent.highest[0]) != column.x)
            return false;
        column.add(m_grid.y(extent.lowest[1]));
        column.add(m_grid.y(extent.highest[1]));
        column.add(m_grid.y(points.back().y));
        return true;
    }

    // Whether the point stays in the column of the last one.
    bool add(DrawnPoint at) {
        const auto point = m_grid.point(at);
        if (!point) return true;
        if (!columns.empty() && columns.back().x == point->x()) {
            columns.back().add(point->y());
            return true;
        }
        columns.emplace_back(*point);
        return false;
    }

  private:
    const PixelGrid& m_grid;
};

} // namespace

std::vector<PixelColumn> pixelColumns(std::span<const DrawnPoint> points, const PixelGrid& grid) {
    ColumnFinder finder(grid);
    while (!points.empty()) {
        while (points.size() >= groupSize && finder.addGroup(points.first<groupSize>()))
            points = points.subspan(groupSize);
        bool stays = true;
        while (stays && !points.empty()) {
            stays = finder.add(points.front());
            points = points.subspan(1);
        }
    }
    return std::move(finder.columns);
}

} // namespace korvel
