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
    BandExtent(int left, int right)
        : left(left),
          tops(static_cast<std::size_t>(right - left + 1), std::numeric_limits<int>::max()),
          bottoms(tops.size(), std::numeric_limits<int>::min()) {}

    void addEdge(const std::vector<PixelColumn>& columns) {
        for (std::size_t k = 0; k < columns.size(); ++k) {
            take(columns[k].x, columns[k].lowest);
            take(columns[k].x, columns[k].highest);
            if (k > 0) join(columns[k - 1], columns[k]);
        }
    }

    int left;
    std::vector<int> tops, bottoms;

  private:
    void take(int x, int y) {
        if (x < left || x - left >= static_cast<int>(tops.size())) return;
        const auto column = static_cast<std::size_t>(x - left);
        tops[column] = std::min(tops[column], y);
        bottoms[column] = std::max(bottoms[column], y);
    }
    void join(const PixelColumn& from, const PixelColumn& to) {
        const double slope = static_cast<double>(to.first - from.last) / std::max(1, to.x - from.x);
        const int end = std::min(to.x, left + static_cast<int>(tops.size()));
        for (int x = std::max(from.x + 1, left); x < end; ++x)
            take(x, from.last + static_cast<int>(std::lround(slope * (x - from.x))));
    }
};

BandPicture pictureOf(const BandExtent& extent, QRgb colour, const PixelGrid& grid,
                      std::vector<QRgb>& pixels) {
    const int top = std::max(0, *std::ranges::min_element(extent.tops));
    const int bottom = std::min(grid.height, *std::ranges::max_element(extent.bottoms));
    const auto width = static_cast<int>(extent.tops.size());
    const int height = std::max(0, bottom - top);
    const auto count = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    if (pixels.size() < count) pixels.resize(count);
    const QRgb pixel = qPremultiply(colour);
    for (int y = top; y < bottom; ++y) {
        QRgb* const line = pixels.data() + static_cast<std::ptrdiff_t>(y - top) * width;
        const int* const tops = extent.tops.data();
        const int* const bottoms = extent.bottoms.data();
        for (int x = 0; x < width; ++x)
            line[x] = (tops[x] <= y) & (y < bottoms[x]) ? pixel : 0;
    }
    return {{extent.left, top},
            QImage(reinterpret_cast<const uchar*>(pixels.data()), width, height,
                   static_cast<qsizetype>(width) * static_cast<qsizetype>(sizeof(QRgb)),
                   QImage::Format_ARGB32_Premultiplied)};
}

} // namespace

QColor colourOf(const DrawnBand& band) {
    const Rgb& filled = band.fill.colour;
    QColor colour(filled.red, filled.green, filled.blue);
    colour.setAlphaF(static_cast<float>(band.fill.opacity));
    return colour;
}

std::optional<BandPicture> bandByColumns(const DrawnBand& band, const PixelGrid& grid,
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
    return pictureOf(extent, colourOf(band).rgba(), grid, pixels);
}

} // namespace korvel
