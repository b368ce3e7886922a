#include "drawing/paint/CoveredColumns.h"

#include <algorithm>
#include <utility>

namespace korvel {

namespace {

constexpr long long fewColumns = 64;
constexpr long long pixelsOfPicture = 6; // take as long as one pixel of a box

} // namespace

CoveredColumns::CoveredColumns(int left, int right)
    : m_left(left), m_stretches(static_cast<std::size_t>(right - left + 1), nothing) {}

void CoveredColumns::add(int column, Stretch stretch) {
    Stretch& known = m_stretches[static_cast<std::size_t>(column - m_left)];
    if (stretch.top > known.bottom + 1 || stretch.bottom < known.top - 1)
        addBox(column, std::exchange(known, stretch));
    else
        known = {std::min(known.top, stretch.top), std::max(known.bottom, stretch.bottom)};
}

std::vector<QRect> CoveredColumns::takeBoxes() {
    int column = m_left;
    for (Stretch& stretch : m_stretches)
        addBox(column++, std::exchange(stretch, nothing));
    return std::exchange(m_boxes, {});
}

bool CoveredColumns::areHigh() const {
    Stretch all = nothing;
    long long covered = 0, columns = 0;
    for (const Stretch& stretch : m_stretches) {
        if (stretch.top > stretch.bottom) continue;
        all = {std::min(all.top, stretch.top), std::max(all.bottom, stretch.bottom)};
        covered += stretch.bottom - stretch.top + 1;
        ++columns;
    }
    return columns >= fewColumns && covered * pixelsOfPicture > columns * (all.bottom - all.top + 1LL);
}

FilledColumns CoveredColumns::takeColumns(std::vector<QRect>& boxes) {
    FilledColumns filled{m_left, {}, {}};
    for (Stretch& stretch : m_stretches) {
        filled.tops.push_back(stretch.top);
        filled.bottoms.push_back(stretch.bottom + 1);
        stretch = nothing;
    }
    boxes.insert(boxes.end(), m_boxes.begin(), m_boxes.end());
    m_boxes.clear();
    return filled;
}

// Where the last box ends at the same heights in the column before, it grows.
void CoveredColumns::addBox(int column, Stretch stretch) {
    if (stretch.top > stretch.bottom) return;
    const bool grows = !m_boxes.empty() && m_boxes.back().right() == column - 1 &&
                       m_boxes.back().top() == stretch.top && m_boxes.back().bottom() == stretch.bottom;
    if (grows)
        m_boxes.back().setRight(column);
    else
        m_boxes.emplace_back(QPoint(column, stretch.top), QPoint(column, stretch.bottom));
}

} // namespace korvel
