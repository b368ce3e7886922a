#include "toolkit/forms/PlainStyle.h"

#include <QPainter>
#include <QPixmap>
#include <QStyleOption>
#include <QWidget>

namespace korvel {

namespace {

// Two angles that point to what lies further on.
QIcon furtherOn() {
    constexpr int size = 32;
    QPixmap picture(size, size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(0x40, 0x40, 0x40), 3));
    for (const int x : {8, 17})
        painter.drawPolyline(QPolygon({{x, 8}, {x + 7, 16}, {x, 24}}));
    return picture;
}

bool isMark(QStyle::PixelMetric which) {
    return which == QStyle::PM_IndicatorWidth || which == QStyle::PM_IndicatorHeight ||
           which == QStyle::PM_ExclusiveIndicatorWidth || which == QStyle::PM_ExclusiveIndicatorHeight;
}

constexpr int darkest = 127;         // lightness, of a ground that counts as dark
constexpr double shareOfLine = 0.65; // a mark's, of the height of a line beside it

} // namespace

QIcon PlainStyle::standardIcon(StandardPixmap which, const QStyleOption* option,
                               const QWidget* widget) const {
    if (which == SP_ToolBarHorizontalExtensionButton) return furtherOn();
    return QProxyStyle::standardIcon(which, option, widget);
}

// Fusion's outlines are darker than the ground: on a dark one an empty box could not be seen.
void PlainStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    const bool isBox = element == PE_IndicatorCheckBox || element == PE_FrameLineEdit;
    if (!isBox || option->palette.color(QPalette::Window).lightness() > darkest) return;
    painter->save();
    painter->setPen(option->palette.color(QPalette::PlaceholderText));
    painter->setBrush(Qt::NoBrush);
    painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
    painter->restore();
}

int PlainStyle::pixelMetric(PixelMetric which, const QStyleOption* option, const QWidget* widget) const {
    const int size = QProxyStyle::pixelMetric(which, option, widget);
    if (!isMark(which) || widget == nullptr) return size;
    return qMax(size, qRound(widget->fontMetrics().height() * shareOfLine));
}

} // namespace korvel
