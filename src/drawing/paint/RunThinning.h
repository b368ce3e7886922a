// Thins runs of joined points for a device: whatever falls into one column of pixels becomes one vertical
// line, joined to the next by one line, and most of these are filled as boxes, column by column. The picture
// stays the same to the last pixel, but for corners of lines of odd widths within a few pixels of the
// device's left and top edges, which Qt paints otherwise there.
#pragma once

#include "drawing/paint/ColumnPicture.h"
#include "drawing/paint/PixelGrid.h"

#include <QLine>
#include <QPolygon>
#include <QRect>

#include <vector>

namespace korvel {

// What gives the picture of one solid line, with square ends, for each pair of neighbouring points. Lines are
// left where their pixels are Qt's to choose; a box takes a tenth of the time of a wide one.
struct ThinnedRun {
    std::vector<QRect> boxes;
    std::vector<QLine> lines;
    FilledColumns columns; // empty where boxes are quicker
};

ThinnedRun thinnedRun(const std::vector<DrawnPoint>& points, const PixelGrid& grid, int penWidth);

// The same as one line through fewer points, for devices that store lines.
QPolygon thinnedPolygon(const std::vector<DrawnPoint>& points, const PixelGrid& grid);

} // namespace korvel
