// Text as Qt's fonts measure it, at 15 twips a logical pixel.
#pragma once

#include "drawing/TextMetrics.h"
#include "drawing/paint/GlyphFonts.h"

#include <QFont>
#include <QFontMetricsF>

#include <map>
#include <memory>
#include <string>
#include <utility>

namespace korvel {

// Measured once at a large size and scaled: a text twice the size is exactly twice as wide, on every device.
class QtTextMetrics : public TextMetrics {
  public:
    TextSize measure(std::string_view text, const Font& font) const override;
    // What it learned of the fonts serves whoever paints the texts, too.
    const std::shared_ptr<GlyphFonts>& glyphs() const { return m_glyphs; }

  private:
    const QFontMetricsF& reference(const Font& font) const;

    mutable std::map<std::pair<std::string, bool>, QFontMetricsF> m_references; // by name and bold
    std::shared_ptr<GlyphFonts> m_glyphs = std::make_shared<GlyphFonts>();
};

// Of a height in pixels, with shapes that grow evenly with the size.
QFont drawnFont(const Font& font, double pixelsHigh, int dotsPerInch);

} // namespace korvel
