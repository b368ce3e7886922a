// The box with a line's ends for corners, however it runs.
#pragma once

#include <QLine>
#include <QRect>

#include <algorithm>

namespace korvel {

inline QRect boxOf(const QLine& line) {
    return {QPoint(std::min(line.x1(), line.x2()), std::min(line.y1(), line.y2())),
            QPoint(std::max(line.x1(), line.x2()), std::max(line.y1(), line.y2()))};
}

} // namespace korvel
