// The pixels of a device under the units of a drawing.
#pragma once

#include "drawing/Drawing.h"

#include <QPoint>

#include <optional>

namespace korvel {

// Turns the units of a drawing into whole pixels of a device.
struct PixelGrid {
    double left = 0;
    double top = 0;
    double scale = 1; // pixels a unit
    int width = 0;    // pixels of the device that can be seen
    int height = 0;

    int x(double units) const { return nearest(left + units * scale); }
    int y(double units) const { return nearest(top + units * scale); }
    // Nothing for a point that is NaN.
    std::optional<QPoint> point(DrawnPoint at) const {
        if (isNaN(at)) return std::nullopt;
        return QPoint(x(at.x), y(at.y));
    }

    // NOLINTNEXTLINE(readability-implicit-bool-conversion): without a branch, for millions of points
    static bool isNaN(DrawnPoint at) { return (at.x != at.x) | (at.y != at.y); }

  private:
    static constexpr double farAway = 1e6; // pixels; what lies farther off is drawn from here
    // Cutting off a number above 0 is much faster than rounding it down.
    static int nearest(double pixel) {
        constexpr int shift = 1 << 21;
        const double above = pixel > -farAway ? pixel : -farAway;
        return static_cast<int>((above < farAway ? above : farAway) + (shift + 0.5)) - shift;
    }
};

} // namespace korvel
