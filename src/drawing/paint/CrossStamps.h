// Paints crosses: those of observed values, of which a graph has thousands, all alike. Qt takes more time to
// begin a line than to paint it; a picture of both lines of a cross, painted once, is put to its place in a
// third of that.
#pragma once

#include <QLine>
#include <QRect>

#include <vector>

class QPainter;

namespace korvel {

// Two lines, one painted after the other. The ends of each are whole pixels.
struct Cross {
    QLine first, second;
    bool operator==(const Cross&) const = default;
};

// Paints crosses with the painter's pen, which is solid: the same pixels as its drawLines does. `device`: the
// pixels that there are.
void drawCrosses(QPainter& painter, const std::vector<Cross>& crosses, const QRect& device);

} // namespace korvel
