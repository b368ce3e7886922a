#include "toolkit/desktop/ProductIcon.h"

#include <QApplication>
#include <QIcon>
#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>

namespace korvel {

// Painted here, not by Qt's reader of icons, which would load the libraries of all picture formats first.
void showProductIcon() {
    QSvgRenderer picture(QString(":/korvel/korvel.svg"));
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64, 128}) {
        QPixmap pixmap(size, size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        picture.render(&painter);
        painter.end();
        icon.addPixmap(pixmap);
    }
    QApplication::setWindowIcon(icon);
}

} // namespace korvel
