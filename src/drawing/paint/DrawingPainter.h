// Plays a Drawing to a paint device: a window, an image, an SVG, a page.
#pragma once

#include "drawing/Drawing.h"

#include <QRectF>

class QPainter;

namespace korvel {

class GlyphFonts;

// On a screen or a picture of one: 15 twips are a logical pixel, pens are that many logical pixels wide.
void paintOnScreen(const Drawing& drawing, QPainter& painter);

// On a page: the drawing fills `area` (device dots); pens are that many 1/300 inch wide. `fonts` are the
// document's, kept from page to page.
void paintOnPage(const Drawing& drawing, QPainter& painter, const QRectF& area, GlyphFonts& fonts);

} // namespace korvel
