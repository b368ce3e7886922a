#include "drawing/paint/GlyphFonts.h"

#include "drawing/paint/QtTextMetrics.h"

#include <QTextLayout>

#include <algorithm>
#include <cmath>
#include <limits>

namespace korvel {

namespace {

constexpr double unknown = std::numeric_limits<double>::quiet_NaN();
constexpr double none = std::numeric_limits<double>::infinity();

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
}

bool GlyphFont::append(const QString& text, QPointF start, QList<quint32>& glyphs, QList<QPointF>& places) {
    const qsizetype before = glyphs.size();
    QChar last;
    for (const QChar character : text) {
        const auto advance = last.isNull() ? std::optional(0.0) : step(last, character);
        if (!advance || character.unicode() >= characterCount || m_glyphs[character.unicode()] == 0) {
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

std::optional<double> GlyphFont::step(QChar from, QChar to) {
    if (to.unicode() >= characterCount) return std::nullopt;
    double& known = m_steps[std::size_t{from.unicode()} * characterCount + to.unicode()];
    if (std::isnan(known)) known = shapedStep(from, to);
    if (std::isinf(known)) return std::nullopt;
    return known;
}

double GlyphFont::shapedStep(QChar from, QChar to) const {
    QTextLayout layout(QString(from) + to, m_font);
    layout.beginLayout();
    layout.createLine();
    layout.endLayout();
    const QList<QGlyphRun> runs = layout.glyphRuns();
    if (runs.size() != 1) return none;
    const bool asExpected = runs[0].glyphIndexes() == QList{m_glyphs[from.unicode()], m_glyphs[to.unicode()]};
    const QList<QPointF> places = runs[0].positions();
    return asExpected ? std::round(places[1].x() - places[0].x()) : none;
}

GlyphFont& GlyphFonts::of(const Font& font) {
    const std::pair key(font.name, font.bold);
    const auto found = m_fonts.find(key);
    return found != m_fonts.end() ? found->second : m_fonts.emplace(key, GlyphFont(font)).first->second;
}

} // namespace korvel
