#include "drawing/paint/GlyphFonts.h"

#include "drawing/paint/QtTextMetrics.h"
#include "drawing/paint/Shown.h"

#include <QTextLayout>

#include <algorithm>
#include <cmath>
#include <limits>

namespace korvel {

namespace {

constexpr std::int16_t unknown = std::numeric_limits<std::int16_t>::min();
constexpr std::int16_t none = unknown + 1;

bool isAscii(char letter) {
    return static_cast<unsigned char>(letter) < 0x80;
}

QFont designSize(const Font& font) {
    QFont qt = drawnFont(font, font.size, 72);
    qt.setPixelSize(std::max(1, static_cast<int>(QRawFont::fromFont(qt).unitsPerEm())));
    return qt;
}

} // namespace

GlyphFont::GlyphFont(const Font& font)
    : m_font(designSize(font)),
      m_raw(QRawFont::fromFont(m_font)),
      m_steps(characterCount * characterCount, unknown) {
    QList<quint32> glyphs;
    for (std::size_t code = 0; code < characterCount; ++code) {
        const QChar character(static_cast<char16_t>(code));
        const QList<quint32> own = m_raw.glyphIndexesForString(QString(character));
        m_glyphs[code] = character.isPrint() && own.size() == 1 ? own.front() : 0;
        glyphs << m_glyphs[code];
    }
    const QList<QPointF> advances = m_raw.advancesForGlyphIndexes(glyphs);
    std::ranges::transform(advances, m_advances.begin(), &QPointF::x);
}

std::optional<std::string_view> GlyphFont::plainLetters(std::string_view text, std::string& held) const {
    if (!std::ranges::all_of(text, isAscii)) {
        const QString wide = shown(text);
        if (std::ranges::any_of(wide, [](QChar letter) { return letter.unicode() >= characterCount; }))
            return std::nullopt;
        held = wide.toLatin1().toStdString();
        text = held;
    }
    if (!std::ranges::all_of(text, [&](char letter) { return glyphOf(letter) != 0; })) return std::nullopt;
    return text;
}

bool GlyphFont::append(std::string_view text, QPointF start, QList<quint32>& glyphs, QList<QPointF>& places) {
    std::string held;
    const auto letters = plainLetters(text, held);
    if (!letters || !know(*letters)) return false;
    for (std::size_t k = 0; k < letters->size(); ++k) {
        if (k > 0) start.rx() += stepBetween((*letters)[k - 1], (*letters)[k]);
        glyphs << glyphOf((*letters)[k]);
        places << start;
    }
    return true;
}

std::optional<double> GlyphFont::widthOf(std::string_view text) {
    std::string held;
    const auto letters = plainLetters(text, held);
    if (!letters || !know(*letters)) return std::nullopt;
    if (letters->empty()) return 0;
    int steps = 0;
    for (std::size_t k = 1; k < letters->size(); ++k)
        steps += stepBetween((*letters)[k - 1], (*letters)[k]);
    return steps + m_advances[static_cast<unsigned char>(letters->back())];
}

bool GlyphFont::know(std::string_view letters) {
    int news = 0;
    bool sideBySide = true;
    for (std::size_t k = 1; k < letters.size(); ++k) {
        const Step step = stepBetween(letters[k - 1], letters[k]);
        news += step == unknown;
        sideBySide &= step != none;
    }
    if (news == 0 || !sideBySide) return sideBySide;
    if (news > 1) learn(letters);
    for (std::size_t k = 1; k < letters.size(); ++k) {
        if (stepBetween(letters[k - 1], letters[k]) == unknown) learnPair(letters[k - 1], letters[k]);
        if (stepBetween(letters[k - 1], letters[k]) == none) return false;
    }
    return true;
}

// All new pairs of a text at once: shaping a text takes little longer than shaping a pair.
void GlyphFont::learn(std::string_view letters) {
    const auto places = shapedPlaces(letters);
    if (!places) return; // pair by pair
    for (qsizetype k = 1; k < places->size(); ++k)
        stepBetween(letters[static_cast<std::size_t>(k - 1)], letters[static_cast<std::size_t>(k)]) =
            static_cast<Step>(std::lround((*places)[k].x() - (*places)[k - 1].x()));
}

void GlyphFont::learnPair(char from, char to) {
    const auto places = shapedPlaces(std::string{from, to});
    stepBetween(from, to) =
        places ? static_cast<Step>(std::lround((*places)[1].x() - (*places)[0].x())) : none;
}

std::optional<QList<QPointF>> GlyphFont::shapedPlaces(std::string_view letters) const {
    QTextLayout layout(QString::fromLatin1(letters.data(), static_cast<qsizetype>(letters.size())), m_font);
    layout.beginLayout();
    layout.createLine();
    layout.endLayout();
    const QList<QGlyphRun> runs = layout.glyphRuns();
    if (runs.size() != 1) return std::nullopt;
    const QList<quint32> glyphs = runs[0].glyphIndexes();
    if (!std::ranges::equal(glyphs, letters, {}, {}, [&](char letter) { return glyphOf(letter); }))
        return std::nullopt;
    return runs[0].positions();
}

GlyphFont& GlyphFonts::of(const Font& font) {
    const std::pair key(font.name, font.bold);
    const auto found = m_fonts.find(key);
    return found != m_fonts.end() ? found->second : m_fonts.emplace(key, GlyphFont(font)).first->second;
}

} // namespace korvel
