// Paints bands whose edges hold several points in most columns of pixels. Filling such an outline as a
// polygon takes Qt a time that grows with the square of its edges, a hundred times as long as this picture of
// it.
#pragma once

#include "drawing/Drawing.h"
#include "drawing/paint/ColumnPicture.h"
#include "drawing/paint/PixelGrid.h"

#include <QColor>

#include <optional>
#include <vector>

namespace korvel {

// Every column of pixels filled from the band's highest place in it to its lowest. Nothing for a band that is
// simple enough for a polygon, and for one whose distances go back.
// `pixels`: memory for it, to be used again for the next.
std::optional<ColumnPicture> bandByColumns(const DrawnBand& band, const PixelGrid& grid,
                                           std::vector<QRgb>& pixels);

QColor colourOf(const DrawnBand& band);

} // namespace korvel
