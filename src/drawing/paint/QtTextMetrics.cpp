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

const QtTextMetrics::Reference& QtTextMetrics::reference(const Font& font) const {
    for (const Reference& known : m_references)
        if (known.bold == font.bold && known.name == font.name) return known;
    QFont large = evenFont(font);
    large.setPixelSize(referencePixels);
    const QFontMetricsF metrics(large);
    return m_references.emplace_back(
        Reference{font.name, font.bold, metrics, metrics.height(), &m_glyphs->of(font)});
}

// A report or an atlas measures many thousand texts, of few pairs of letters.
TextSize QtTextMetrics::measure(std::string_view text, const Font& font) const {
    const Reference& known = reference(font);
    const double scale = font.size * twipsPerPoint / referencePixels;
    const double height = known.height * scale;
    if (const auto units = known.glyphs->widthOf(text))
        return {*units * (font.size * twipsPerPoint / known.glyphs->unitsPerEm()), height};
    return {known.metrics.horizontalAdvance(shown(text)) * scale, height};
}

} // namespace korvel
