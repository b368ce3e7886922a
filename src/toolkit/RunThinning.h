// Thins runs of joined points for a device: whatever falls into one column of pixels is drawn as one upright
// line and one joining line, and the picture stays the same to the last pixel.
#pragma once

#include "toolkit/PixelGrid.h"

#include <QLine>
#include <QPolygon>
#include <QRect>

#include <vector>

// What gives the picture of one solid line, with square ends, for each pair of neighbouring points. Upright
// and level pieces are filled as boxes, which is ten times as fast as painting wide lines.
struct ThinnedRun {
    std::vector<QRect> boxes;
    std::vector<QLine> slants;
};

ThinnedRun thinnedRun(const std::vector<DrawnPoint>& points, const PixelGrid& grid, int penWidth);

// The same as one line through fewer points, for devices that store lines.
QPolygon thinnedPolygon(const std::vector<DrawnPoint>& points, const PixelGrid& grid);
