// Text measured by a fixed rule, the same on every machine: each shown character is half the font size wide.
#pragma once

#include "basic/Text.h"
#include "drawing/TextMetrics.h"

namespace korvel {

class FixedTextMetrics : public TextMetrics {
  public:
    TextSize measure(std::string_view text, const Font& font) const override {
        const double twips = font.size * 20; // a point has 20 twips
        return {static_cast<double>(shownLength(shownUtf8(text))) * twips * 0.5, twips * 1.2};
    }
};

} // namespace korvel
