#include "drawing/paint/BandColumns.h"

#include "drawing/paint/PixelColumns.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace korvel {

namespace {

constexpr std::size_t fewColumns = 64; // a polygon is quick

bool goesOn(const std::vector<PixelColumn>& columns) {
    return std::ranges::is_sorted(columns, {}, &PixelColumn::x);
}

// From where to where the band goes in each column.
class BandExtent {
  public:
    BandExtent(int left, int right) {
        columns.left = left;
        columns.tops.assign(static_cast<std::size_t>(right - left + 1), std::numeric_limits<int>::max());
        columns.bottoms.assign(columns.tops.size(), std::numeric_limits<int>::min());
    }

    FilledColumns columns;

    void addEdge(const std::vector<PixelColumn>& edge) {
        for (std::size_t k = 0; k < edge.size(); ++k) {
            take(edge[k].x, edge[k].lowest);
            take(edge[k].x, edge[k].highest);
            if (k > 0) join(edge[k - 1], edge[k]);
        }
    }

  private:
    int end() const { return columns.left + static_cast<int>(columns.tops.size()); }
    void take(int x, int y) {
        if (x < columns.left || x >= end()) return;
        const auto column = static_cast<std::size_t>(x - columns.left);
        columns.tops[column] = std::min(columns.tops[column], y);
        columns.bottoms[column] = std::max(columns.bottoms[column], y);
    }
    // Only where columns lie between them.
    void join(const PixelColumn& from, const PixelColumn& to) {
        if (to.x <= from.x + 1) return;
        const double slope = static_cast<double>(to.first - from.last) / (to.x - from.x);
        const int last = std::min(to.x, end());
        for (int x = std::max(from.x + 1, columns.left); x < last; ++x)
            take(x, from.last + static_cast<int>(std::lround(slope * (x - from.x))));
    }
};

} // namespace

QColor colourOf(const DrawnBand& band) {
    const Rgb& filled = band.fill.colour;
    QColor colour(filled.red, filled.green, filled.blue);
    colour.setAlphaF(static_cast<float>(band.fill.opacity));
    return colour;
}

std::optional<ColumnPicture> bandByColumns(const DrawnBand& band, const PixelGrid& grid,
                                           std::vector<QRgb>& pixels) {
    const std::vector<PixelColumn> above = pixelColumns(band.above, grid);
    const std::vector<PixelColumn> below = pixelColumns(band.below, grid);
    if (above.empty() || below.empty() || std::max(above.size(), below.size()) <= fewColumns)
        return std::nullopt;
    if (!goesOn(above) || !goesOn(below)) return std::nullopt;
    const int left = std::max(0, std::min(above.front().x, below.front().x));
    const int right = std::min(grid.width - 1, std::max(above.back().x, below.back().x));
    if (right < left) return std::nullopt;
    BandExtent extent(left, right);
    extent.addEdge(above);
    extent.addEdge(below);
    return pictureOf(extent.columns, colourOf(band).rgba(), {grid.width, grid.height}, pixels);
}

} // namespace korvel
