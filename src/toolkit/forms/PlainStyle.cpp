#include "toolkit/forms/PlainStyle.h"

#include <QPainter>
#include <QPixmap>

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

} // namespace

QIcon PlainStyle::standardIcon(StandardPixmap which, const QStyleOption* option,
                               const QWidget* widget) const {
    if (which == SP_ToolBarHorizontalExtensionButton) return furtherOn();
    return QProxyStyle::standardIcon(which, option, widget);
}

} // namespace korvel
