#include "toolkit/RunThinning.h"

#include "toolkit/PixelColumns.h"

#include <algorithm>

namespace {

// The boxes and slants of solid lines between neighbouring points.
class PieceMaker {
  public:
    PieceMaker(const std::vector<PixelColumn>& columns, const PixelGrid& grid, int penWidth)
        : m_columns(columns), m_left(-penWidth), m_right(grid.width + penWidth), m_width(penWidth) {}

    ThinnedRun make() {
        for (std::size_t k = 0; k < m_columns.size(); ++k) {
            addColumn(m_columns[k]);
            if (k + 1 < m_columns.size() && !isCovered(k)) join(m_columns[k], m_columns[k + 1]);
        }
        return std::move(m_run);
    }

  private:
    bool isSeen(const PixelColumn& column) const { return column.x >= m_left && column.x <= m_right; }

    void addColumn(const PixelColumn& column) {
        if (!column.single && isSeen(column)) addBox(column.x, column.lowest, column.x, column.highest);
    }
    void join(const PixelColumn& from, const PixelColumn& to) {
        const int left = std::min(from.x, to.x), right = std::max(from.x, to.x);
        if (right < m_left || left > m_right) return;
        if (from.last == to.first)
            addBox(left, to.first, right, to.first);
        else
            m_run.slants.emplace_back(from.x, from.last, to.x, to.first);
    }
    // Whether the boxes of the columns around hide the line from column k to the next one. The corners of a
    // slanting line lie up to a fifth of its width farther out than those of a box.
    bool isCovered(std::size_t k) const {
        const auto beyond = static_cast<std::size_t>(m_width / 5 + 1);
        if (k < beyond || k + 1 + beyond >= m_columns.size()) return false;
        const int margin = static_cast<int>(beyond);
        const int from = m_columns[k].last, to = m_columns[k + 1].first;
        const int lowest = std::min(from, to) - margin, highest = std::max(from, to) + margin;
        for (std::size_t j = k - beyond; j <= k + 1 + beyond; ++j) {
            const PixelColumn& column = m_columns[j];
            const bool inLine = column.x - m_columns[k].x == static_cast<int>(j) - static_cast<int>(k);
            if (!inLine || !isSeen(column) || column.lowest > lowest || column.highest < highest)
                return false;
        }
        return true;
    }

    // The pixels of a line with square ends.
    void addBox(int left, int top, int right, int bottom) {
        m_run.boxes.emplace_back(left - m_width / 2, top - m_width / 2, right - left + m_width,
                                 bottom - top + m_width);
    }

    const std::vector<PixelColumn>& m_columns;
    ThinnedRun m_run;
    int m_left;
    int m_right;
    int m_width;
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
