// Sizes of text in the page's pictures, without any font at hand: the widths of the common sans-serif
// letters.
#pragma once

#include "drawing/TextMetrics.h"

namespace korvel {

class PageMetrics : public TextMetrics {
  public:
    TextSize measure(std::string_view text, const Font& font) const override;

    // Of the line height, from its top to the foot of the letters.
    static constexpr double ascent = 0.905;
    static constexpr double lineHeight = 1.149; // of the font's size
};

} // namespace korvel
