// Texts as glyphs at places. A page of a document takes many texts of one font in one piece: that is quicker
// than text by text, half the size, and the words can be found in it all the same.
#pragma once

#include "drawing/TextMetrics.h"

#include <QFont>
#include <QGlyphRun>
#include <QRawFont>

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
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
    bool append(std::string_view text, QPointF start, QList<quint32>& glyphs, QList<QPointF>& places);
    // Units; nothing where the text takes more than that.
    std::optional<double> widthOf(std::string_view text);

  private:
    static constexpr std::size_t characterCount = 256;
    using Step = std::int16_t; // units; small, as there are many

    // The text as it is shown, a byte a character; nothing where there are characters beyond, or without a
    // glyph. Most texts are that already, the others are put into `held`.
    std::optional<std::string_view> plainLetters(std::string_view text, std::string& held) const;
    // The steps from each letter to the next one are known then; false where two don't stand side by side.
    bool know(std::string_view letters);
    Step& stepBetween(char from, char to) {
        return m_steps[std::size_t{static_cast<unsigned char>(from)} * characterCount +
                       static_cast<unsigned char>(to)];
    }
    void learn(std::string_view letters);
    void learnPair(char from, char to);
    quint32 glyphOf(char letter) const { return m_glyphs[static_cast<unsigned char>(letter)]; }
    // The glyphs' places, where each character has its own.
    std::optional<QList<QPointF>> shapedPlaces(std::string_view letters) const;

    QFont m_font;
    QRawFont m_raw;
    std::array<quint32, characterCount> m_glyphs{}; // of each character; 0 where the font lacks it
    std::array<double, characterCount> m_advances{};
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
