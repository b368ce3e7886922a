#include "drawing/paint/ColumnPicture.h"

#include <algorithm>

namespace korvel {

namespace {

// The part of columns that lies on a device.
struct Seen {
    int skipped = 0; // columns left of it
    int width = 0;
    int top = 0, bottom = 0;

    Seen(const FilledColumns& columns, QSize device)
        : skipped(std::max(0, -columns.left)),
          width(std::min(static_cast<int>(columns.tops.size()), device.width() - columns.left) - skipped),
          top(std::max(0, *std::ranges::min_element(columns.tops))),
          bottom(std::min(device.height(), *std::ranges::max_element(columns.bottoms))) {
        if (width <= 0 || bottom <= top) width = bottom = top = 0;
    }
};

} // namespace

void fill(QImage& image, const FilledColumns& columns, QRgb colour) {
    const Seen seen(columns, image.size());
    const int* const tops = columns.tops.data() + seen.skipped;
    const int* const bottoms = columns.bottoms.data() + seen.skipped;
    for (int y = seen.top; y < seen.bottom; ++y) {
        QRgb* const line = reinterpret_cast<QRgb*>(image.scanLine(y)) + columns.left + seen.skipped;
        for (int x = 0; x < seen.width; ++x)
            line[x] = (tops[x] <= y) & (y < bottoms[x]) ? colour : line[x];
    }
}

ColumnPicture pictureOf(const FilledColumns& columns, QRgb colour, QSize device, std::vector<QRgb>& pixels) {
    const Seen seen(columns, device);
    const int height = seen.bottom - seen.top;
    const auto count = static_cast<std::size_t>(seen.width) * static_cast<std::size_t>(height);
    if (pixels.size() < count) pixels.resize(count);
    const QRgb pixel = qPremultiply(colour);
    const int* const tops = columns.tops.data() + seen.skipped;
    const int* const bottoms = columns.bottoms.data() + seen.skipped;
    for (int y = seen.top; y < seen.bottom; ++y) {
        QRgb* const line = pixels.data() + static_cast<std::ptrdiff_t>(y - seen.top) * seen.width;
        for (int x = 0; x < seen.width; ++x)
            line[x] = (tops[x] <= y) & (y < bottoms[x]) ? pixel : 0;
    }
    return {{columns.left + seen.skipped, seen.top},
            QImage(reinterpret_cast<const uchar*>(pixels.data()), seen.width, height,
                   static_cast<qsizetype>(seen.width) * static_cast<qsizetype>(sizeof(QRgb)),
                   QImage::Format_ARGB32_Premultiplied)};
}

} // namespace korvel
