// Paints short slanting lines two by two: the crosses of observed values, of which a graph has thousands, all
// alike. Qt takes more time to begin a line than to paint it; a picture of both lines of a cross, painted
// once, is put to its place in a third of that.
#pragma once

#include <QLine>
#include <QRect>

#include <vector>

class QPainter;

namespace korvel {

// Paints lines with the painter's pen, which is solid: the same pixels as its drawLines does. `device`: the
// pixels that there are.
void drawLinesAndCrosses(QPainter& painter, const std::vector<QLine>& lines, const QRect& device);

} // namespace korvel
