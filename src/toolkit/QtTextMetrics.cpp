#include "toolkit/QtTextMetrics.h"

#include "toolkit/Shown.h"
#include "toolkit/Twips.h"

#include <QFontMetricsF>

QFont qtFont(const Font& font) {
    QFont qt(shown(font.name));
    qt.setPointSizeF(font.size > 0 ? font.size : 1);
    qt.setBold(font.bold);
    return qt;
}

TextSize QtTextMetrics::measure(std::string_view text, const Font& font) const {
    const QFontMetricsF metrics(qtFont(font));
    return {metrics.horizontalAdvance(shown(text)) * twipsPerPixel, metrics.height() * twipsPerPixel};
}
