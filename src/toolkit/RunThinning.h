// Thins runs of joined points for a device: whatever falls into one column of pixels is drawn as one upright
// line and one joining line, and the picture stays the same to the last pixel.
#pragma once

#include "graphs/draw/Drawing.h"

#include <QLine>
#include <QPolygon>

#include <optional>
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
    std::optional<QPoint> point(DrawnPoint at) const;

  private:
    static int nearest(double pixel);
};

// Lines that give the picture of one line drawn for each pair of neighbouring points.
std::vector<QLine> thinnedLines(const std::vector<DrawnPoint>& points, const PixelGrid& grid, int penWidth);

// The same as one line through fewer points, in order, for devices that store lines.
QPolygon thinnedPolygon(const std::vector<DrawnPoint>& points, const PixelGrid& grid);
