// Texts as glyphs at places. A page of a document takes many texts of one font in one piece: that is quicker
// than text by text, half the size, and the words can be found in it all the same.
#pragma once

#include "drawing/TextMetrics.h"

#include <QFont>
#include <QGlyphRun>
#include <QRawFont>

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace korvel {

// A font at one pixel for each unit of its design, so that every advance is a whole number.
class GlyphFont {
  public:
    explicit GlyphFont(const Font& font);

    const QRawFont& raw() const { return m_raw; }
    double unitsPerEm() const { return m_raw.pixelSize(); }
    double ascent() const { return m_raw.ascent(); }

    // Appends the text's glyphs from `start` on (units), or nothing and false where it takes more than one
    // glyph of this font for each character.
    bool append(const QString& text, QPointF start, QList<quint32>& glyphs, QList<QPointF>& places);
    // Units; nothing where the text takes more than that.
    std::optional<double> widthOf(const QString& text);

  private:
    static constexpr int characterCount = 256;
    using Step = std::int16_t; // units; small, as there are many

    bool isPlain(const QString& text) const;
    // From one character's place to the next one's; nothing where the two don't stand side by side.
    std::optional<double> step(QChar from, QChar to);
    Step& stepBetween(QChar from, QChar to) {
        return m_steps[std::size_t{from.unicode()} * characterCount + to.unicode()];
    }
    void learn(const QString& text);
    // The glyphs' places, where each character has its own.
    std::optional<QList<QPointF>> shapedPlaces(const QString& text) const;

    QFont m_font;
    QRawFont m_raw;
    QList<quint32> m_glyphs; // of each character; 0 where the font lacks it
    QList<QPointF> m_advances;
    std::vector<Step> m_steps; // for each pair of characters: unknown, none, or units
};

// Made once for all pages of a document.
class GlyphFonts {
  public:
    GlyphFont& of(const Font& font);

  private:
    std::map<std::pair<std::string, bool>, GlyphFont> m_fonts; // by name and bold
};

} // namespace korvel
