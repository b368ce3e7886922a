// Text as Qt's fonts measure it, at 15 twips a logical pixel.
#pragma once

#include "drawing/TextMetrics.h"
#include "drawing/paint/GlyphFonts.h"

#include <QFont>
#include <QFontMetricsF>

#include <memory>
#include <string>
#include <vector>

namespace korvel {

// Measured once at a large size and scaled: a text twice the size is exactly twice as wide, on every device.
class QtTextMetrics : public TextMetrics {
  public:
    TextSize measure(std::string_view text, const Font& font) const override;
    // What it learned of the fonts serves whoever paints the texts, too.
    const std::shared_ptr<GlyphFonts>& glyphs() const { return m_glyphs; }

  private:
    // What is known of a font at the large size.
    struct Reference {
        std::string name;
        bool bold = false;
        QFontMetricsF metrics;
        double height = 0;
        GlyphFont* glyphs = nullptr;
    };
    const Reference& reference(const Font& font) const;

    mutable std::vector<Reference> m_references; // few
    std::shared_ptr<GlyphFonts> m_glyphs = std::make_shared<GlyphFonts>();
};

// Of a height in pixels, with shapes that grow evenly with the size.
QFont drawnFont(const Font& font, double pixelsHigh, int dotsPerInch);

} // namespace korvel
