#include "drawing/paint/QtTextMetrics.h"

#include "drawing/Units.h"
#include "drawing/paint/Shown.h"

#include <algorithm>

namespace korvel {

namespace {

constexpr int referencePixels = 256;

QFont evenFont(const Font& font) {
    QFont qt(shown(font.name));
    qt.setBold(font.bold);
    qt.setHintingPreference(QFont::PreferNoHinting);
    return qt;
}

} // namespace

QFont drawnFont(const Font& font, double pixelsHigh, int dotsPerInch) {
    QFont qt = evenFont(font);
    qt.setPointSizeF(std::max(pixelsHigh, 0.1) * 72 / dotsPerInch);
    return qt;
}

const QFontMetricsF& QtTextMetrics::reference(const Font& font) const {
    const std::pair key(font.name, font.bold);
    const auto found = m_references.find(key);
    if (found != m_references.end()) return found->second;
    QFont large = evenFont(font);
    large.setPixelSize(referencePixels);
    return m_references.emplace(key, QFontMetricsF(large)).first->second;
}

// A report or an atlas measures many thousand texts, of few pairs of letters.
TextSize QtTextMetrics::measure(std::string_view text, const Font& font) const {
    const QFontMetricsF& metrics = reference(font);
    const double scale = font.size * twipsPerPoint / referencePixels;
    const double height = metrics.height() * scale;
    const QString letters = shown(text);
    GlyphFont& glyphs = m_glyphs->of(font);
    if (const auto units = glyphs.widthOf(letters))
        return {*units * (font.size * twipsPerPoint / glyphs.unitsPerEm()), height};
    return {metrics.horizontalAdvance(letters) * scale, height};
}

} // namespace korvel
