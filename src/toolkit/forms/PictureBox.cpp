#include "toolkit/forms/PictureBox.h"

#include "drawing/paint/DrawingPainter.h"

#include <QPainter>
#include <QWheelEvent>

namespace korvel {

PictureBox::PictureBox(const char* name, const Drawing& drawing, QWidget* parent)
    : QWidget(parent), m_drawing(drawing) {
    setObjectName(name);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void PictureBox::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    paintOnScreen(m_drawing, painter);
}

void PictureBox::wheelEvent(QWheelEvent* event) {
    const int turned = event->angleDelta().y();
    const bool zooms = event->modifiers().testFlag(Qt::ControlModifier) && turned != 0 && onControlWheel;
    event->setAccepted(zooms);
    if (zooms) onControlWheel(turned > 0 ? 1 : -1);
}

} // namespace korvel
