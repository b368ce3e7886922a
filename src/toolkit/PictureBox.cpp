#include "toolkit/PictureBox.h"

#include "toolkit/DrawingPainter.h"

#include <QPainter>

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
