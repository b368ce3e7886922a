#include "toolkit/forms/Shape.h"

#include <QPainter>

namespace korvel {

Shape::Shape(Kind kind, Rgb fill, QWidget* parent) : QWidget(parent), m_kind(kind), m_fill(fill) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void Shape::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(m_fill.red, m_fill.green, m_fill.blue));
    const QRectF area(rect());
    const double radius = qMin(area.width(), area.height()) / 2;
    switch (m_kind) {
    case Kind::rectangle: painter.drawRect(area); break;
    case Kind::rounded: painter.drawRoundedRect(area, radius, radius); break;
    case Kind::ellipse: painter.drawEllipse(area); break;
    }
}

} // namespace korvel
