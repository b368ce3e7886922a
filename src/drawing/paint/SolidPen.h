// The pen of solid lines: its square ends are those of boxes.
#pragma once

#include <QPen>

namespace korvel {

inline QPen solidPen(const QColor& colour, int width) {
    return {colour, static_cast<qreal>(width), Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin};
}

} // namespace korvel
