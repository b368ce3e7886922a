// Thins runs of joined points for a device: whatever falls into one column of pixels is drawn as one upright
// line and one joining line, and the picture stays the same to the last pixel.
#pragma once

#include "graphs/draw/Drawing.h"

#include <QLine>
#include <QPolygon>
#include <QRect>

#include <optional>
#include <span>
#include <vector>

// Turns the units of a drawing into whole pixels of a device.
struct PixelGrid {
    double left = 0;
    double top = 0;
    double scale = 1; // pixels a unit
    int width = 0;    // pixels of the device that can be seen
    int height = 0;

    int x(double units) const { return nearest(left + units * scale); }
    int y(double units) const { return nearest(top + units * scale); }
    // Nothing for a point that is nowhere (not a number).
    std::optional<QPoint> point(DrawnPoint at) const {
        if (isNowhere(at)) return std::nullopt;
        return QPoint(x(at.x), y(at.y));
    }
    // Many at once, without those that are nowhere; gives their number. `to` has room for all.
    std::size_t points(std::span<const DrawnPoint> from, QPoint* to) const;

  private:
    static constexpr double farAway = 1e6; // pixels; what lies farther off is drawn from here
    static bool isNowhere(DrawnPoint at) { return (at.x != at.x) | (at.y != at.y); }
    // Cutting off a number above 0 is much faster than rounding it down. Written so that the compiler can do
    // several at a time.
    static int nearest(double pixel) {
        constexpr int shift = 1 << 21;
        const double above = pixel > -farAway ? pixel : -farAway;
        return static_cast<int>((above < farAway ? above : farAway) + (shift + 0.5)) - shift;
    }
};

// What gives the picture of one solid line, with square ends, for each pair of neighbouring points. Upright
// and level pieces are filled as boxes, which is ten times as fast as painting wide lines.
struct ThinnedRun {
    std::vector<QRect> boxes;
    std::vector<QLine> slants;
};

ThinnedRun thinnedRun(const std::vector<DrawnPoint>& points, const PixelGrid& grid, int penWidth);

// The same as one line through fewer points, for devices that store lines.
QPolygon thinnedPolygon(const std::vector<DrawnPoint>& points, const PixelGrid& grid);
