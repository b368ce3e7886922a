// What a run covers of each column of pixels. Neighbouring boxes and lines of a run overlap, and mostly they
// cover one stretch of a column together: painted as such, no pixel is painted twice.
#pragma once

#include "drawing/paint/ColumnPicture.h"
#include "drawing/paint/SlantPictures.h"

#include <QRect>

#include <vector>

namespace korvel {

class CoveredColumns {
  public:
    // Of columns from `left` to `right`.
    CoveredColumns(int left, int right);

    // The column must be one of them.
    void add(int column, Stretch stretch);

    // All that was added, as boxes; empties the columns.
    std::vector<QRect> takeBoxes();
    // The same where columns are so high that their picture is quicker: mostly columns then, and few boxes.
    bool areHigh() const;
    FilledColumns takeColumns(std::vector<QRect>& boxes);

  private:
    void addBox(int column, Stretch stretch);

    static constexpr Stretch nothing{1 << 30, -(1 << 30)};

    int m_left;
    std::vector<Stretch> m_stretches; // the last one of each column
    std::vector<QRect> m_boxes;
};

} // namespace korvel
