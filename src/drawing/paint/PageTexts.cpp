#include "drawing/paint/PageTexts.h"

#include <QPainter>

#include <cmath>

namespace korvel {

bool PageTexts::add(const DrawnText& text, QPointF corner) {
    use(text);
    const double baseline = std::round(corner.y() + m_glyphFont->ascent() * m_dotsPerUnit);
    const QPointF start(std::round(corner.x() / (m_dotsPerUnit * m_narrowing)),
                        std::round(baseline / m_dotsPerUnit));
    if (m_glyphFont->append(text.text, start, m_glyphs, m_places)) return true;
    flush();
    return false;
}

void PageTexts::flush() {
    if (m_glyphs.isEmpty()) return;
    QGlyphRun run;
    // NOLINTNEXTLINE(clang-analyzer-core.CallAndMessage): where there are glyphs there is their font
    run.setRawFont(m_glyphFont->raw());
    run.setGlyphIndexes(m_glyphs);
    run.setPositions(m_places);
    m_painter.save();
    m_painter.setPen(QColor(m_colour.red, m_colour.green, m_colour.blue));
    m_painter.scale(m_dotsPerUnit * m_narrowing, m_dotsPerUnit);
    m_painter.drawGlyphRun({}, run);
    m_painter.restore();
    m_glyphs.clear();
    m_places.clear();
}

void PageTexts::use(const DrawnText& text) {
    if (m_glyphFont != nullptr && m_font == text.font && m_colour == text.colour &&
        m_narrowing == text.narrowing)
        return;
    flush();
    m_narrowing = text.narrowing;
    m_font = text.font;
    m_colour = text.colour;
    m_glyphFont = &m_fonts.of(text.font);
    m_dotsPerUnit = text.font.size * m_dotsPerPoint / m_glyphFont->unitsPerEm();
}

} // namespace korvel
