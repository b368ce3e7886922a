// The texts of a page in as few pieces as possible: neighbours of one font, size and colour become one.
#pragma once

#include "drawing/Drawing.h"
#include "drawing/paint/GlyphFonts.h"

class QPainter;

namespace korvel {

class PageTexts {
  public:
    // `dotsPerPoint` of the texts' sizes.
    PageTexts(QPainter& painter, GlyphFonts& fonts, double dotsPerPoint)
        : m_painter(painter), m_fonts(fonts), m_dotsPerPoint(dotsPerPoint) {}

    // Takes the text, its top left corner at `corner` (dots), or says false and leaves it to the painter.
    bool add(const DrawnText& text, QPointF corner);
    // Paints what was added.
    void flush();

  private:
    void use(const DrawnText& text);

    QPainter& m_painter;
    GlyphFonts& m_fonts;
    double m_dotsPerPoint;
    GlyphFont* m_glyphFont = nullptr;
    Font m_font;
    Rgb m_colour;
    double m_dotsPerUnit = 1; // vertical; horizontal ones are narrowed
    double m_narrowing = 1;
    QList<quint32> m_glyphs;
    QList<QPointF> m_places; // units
};

} // namespace korvel
