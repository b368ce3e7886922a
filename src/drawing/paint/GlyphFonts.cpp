#include "drawing/paint/GlyphFonts.h"

#include "drawing/paint/QtTextMetrics.h"

#include <QTextLayout>

#include <algorithm>
#include <cmath>
#include <limits>

namespace korvel {

namespace {

constexpr std::int16_t unknown = std::numeric_limits<std::int16_t>::min();
constexpr std::int16_t none = unknown + 1;

QFont designSize(const Font& font) {
    QFont qt = drawnFont(font, font.size, 72);
    qt.setPixelSize(std::max(1, static_cast<int>(QRawFont::fromFont(qt).unitsPerEm())));
    return qt;
}

} // namespace

GlyphFont::GlyphFont(const Font& font)
    : m_font(designSize(font)),
      m_raw(QRawFont::fromFont(m_font)),
      m_steps(std::size_t{characterCount} * characterCount, unknown) {
    for (int code = 0; code < characterCount; ++code) {
        const QChar character(code);
        const QList<quint32> glyphs = m_raw.glyphIndexesForString(QString(character));
        m_glyphs << (character.isPrint() && glyphs.size() == 1 ? glyphs.front() : 0);
    }
    m_advances = m_raw.advancesForGlyphIndexes(m_glyphs);
}

bool GlyphFont::isPlain(const QString& text) const {
    return std::ranges::all_of(text, [&](QChar character) {
        return character.unicode() < characterCount && m_glyphs[character.unicode()] != 0;
    });
}

bool GlyphFont::append(const QString& text, QPointF start, QList<quint32>& glyphs, QList<QPointF>& places) {
    if (!isPlain(text)) return false;
    learn(text);
    const qsizetype before = glyphs.size();
    QChar last;
    for (const QChar character : text) {
        const auto advance = last.isNull() ? std::optional(0.0) : step(last, character);
        if (!advance) {
            glyphs.resize(before);
            places.resize(before);
            return false;
        }
        start.rx() += *advance;
        glyphs << m_glyphs[character.unicode()];
        places << start;
        last = character;
    }
    return true;
}

std::optional<double> GlyphFont::widthOf(const QString& text) {
    if (!isPlain(text)) return std::nullopt;
    if (text.isEmpty()) return 0;
    learn(text);
    double width = m_advances[text.back().unicode()].x();
    for (qsizetype k = 1; k < text.size(); ++k) {
        const auto advance = step(text[k - 1], text[k]);
        if (!advance) return std::nullopt;
        width += *advance;
    }
    return width;
}

// All new pairs of a text at once: shaping a text takes little longer than shaping a pair.
void GlyphFont::learn(const QString& text) {
    int news = 0;
    for (qsizetype k = 1; k < text.size(); ++k)
        news += stepBetween(text[k - 1], text[k]) == unknown;
    if (news < 2) return;
    const auto places = shapedPlaces(text);
    if (!places) return; // pair by pair
    for (qsizetype k = 1; k < text.size(); ++k)
        stepBetween(text[k - 1], text[k]) =
            static_cast<Step>(std::lround((*places)[k].x() - (*places)[k - 1].x()));
}

std::optional<double> GlyphFont::step(QChar from, QChar to) {
    Step& known = stepBetween(from, to);
    if (known == unknown) {
        const auto places = shapedPlaces(QString(from) + to);
        known = places ? static_cast<Step>(std::lround((*places)[1].x() - (*places)[0].x())) : none;
    }
    if (known == none) return std::nullopt;
    return known;
}

std::optional<QList<QPointF>> GlyphFont::shapedPlaces(const QString& text) const {
    QTextLayout layout(text, m_font);
    layout.beginLayout();
    layout.createLine();
    layout.endLayout();
    const QList<QGlyphRun> runs = layout.glyphRuns();
    if (runs.size() != 1) return std::nullopt;
    QList<quint32> expected;
    for (const QChar character : text)
        expected << m_glyphs[character.unicode()];
    if (runs[0].glyphIndexes() != expected) return std::nullopt;
    return runs[0].positions();
}

GlyphFont& GlyphFonts::of(const Font& font) {
    const std::pair key(font.name, font.bold);
    const auto found = m_fonts.find(key);
    return found != m_fonts.end() ? found->second : m_fonts.emplace(key, GlyphFont(font)).first->second;
}

} // namespace korvel
