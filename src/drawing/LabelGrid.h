// Labels in whole numbers: a picture that is shifted or enlarged has the same labels, whatever the last
// digits of its coordinates.
#pragma once

#include "drawing/LabelPlacing.h"

namespace korvel {

class LabelGrid {
  public:
    explicit LabelGrid(const LabelStrip& strip);

    const LabelStrip& strip() const { return m_fine; }
    LabelRequest fine(const LabelRequest& request) const;
    // The place of a request in the strip's own units; a straight leader stays straight.
    LabelPlace coarse(const LabelPlace& place, const LabelRequest& request) const;

  private:
    LabelStrip m_strip;
    LabelStrip m_fine;
    double m_unit;
};

} // namespace korvel
