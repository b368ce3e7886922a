#include "toolkit/forms/PictureBox.h"

#include "drawing/paint/DrawingPainter.h"

#include <QPainter>
#include <QWheelEvent>

namespace korvel {

namespace {

constexpr int wheelStep = 120; // of QWheelEvent's turned angle
const QColor lineColour(0x40, 0x40, 0x40);

QRect around(const QLine& line) {
    return QRect(line.p1(), line.p2()).normalized().adjusted(-1, -1, 1, 1);
}

// Whole steps of what was turned; the rest stays, since a touch pad sends small parts of a step.
int takeSteps(int& turned) {
    const int steps = turned / wheelStep;
    turned -= steps * wheelStep;
    return steps;
}

} // namespace

PictureBox::PictureBox(const char* name, const Drawing& drawing, QWidget* parent)
    : QWidget(parent), m_drawing(drawing) {
    setObjectName(name);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void PictureBox::showAnew() {
    m_picture = {};
    update();
}

void PictureBox::lay(const QLine& line) {
    if (line == m_line) return;
    for (const QLine& changed : {m_line, line})
        if (!changed.isNull()) update(around(changed));
    m_line = line;
}

// A long river takes a while to paint: a line that moves over it must not wait for that each time. Without
// the memory for it the picture is null.
const QImage& PictureBox::picture() {
    const double ratio = devicePixelRatioF();
    const QSize pixels = (QSizeF(size()) * ratio).toSize();
    if (m_picture.size() == pixels && m_picture.devicePixelRatio() == ratio) return m_picture;
    m_picture = QImage(pixels, QImage::Format_RGB32);
    m_picture.setDevicePixelRatio(ratio);
    if (m_picture.isNull()) return m_picture;
    QPainter painter(&m_picture);
    paintDrawing(painter);
    return m_picture;
}

void PictureBox::paintDrawing(QPainter& painter) const {
    painter.fillRect(rect(), Qt::white);
    paintOnScreen(m_drawing, painter);
}

void PictureBox::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (m_line.isNull() || picture().isNull()) {
        paintDrawing(painter);
    } else {
        painter.drawImage(QPoint(0, 0), m_picture);
    }
    if (m_line.isNull()) return;
    painter.setPen(lineColour);
    painter.drawLine(m_line);
}

void PictureBox::wheelEvent(QWheelEvent* event) {
    const QPoint turned = event->angleDelta();
    const bool zooms = event->modifiers().testFlag(Qt::ControlModifier);
    const bool used = zooms ? turned.y() != 0 && onControlWheel : !turned.isNull() && onWheel;
    event->setAccepted(used);
    if (!used) return;
    if (zooms)
        zoom(turned.y());
    else
        turn(event->modifiers().testFlag(Qt::ShiftModifier) ? turned.transposed() : turned);
}

void PictureBox::zoom(int turned) {
    m_zoomTurned += turned;
    if (const int steps = takeSteps(m_zoomTurned); steps != 0) onControlWheel(steps > 0 ? 1 : -1);
}

void PictureBox::turn(QPoint turned) {
    m_turned += turned;
    const int left = takeSteps(m_turned.rx());
    const int up = takeSteps(m_turned.ry());
    if (left != 0 || up != 0) onWheel({-left, up});
}

void PictureBox::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !onDrag) return QWidget::mousePressEvent(event);
    m_taken = event->pos();
    if (onTake) onTake();
}

void PictureBox::mouseMoveEvent(QMouseEvent* event) {
    const bool drags = event->buttons().testFlag(Qt::LeftButton) && onDrag;
    if (drags) {
        setCursor(Qt::ClosedHandCursor);
        onDrag(event->pos() - m_taken);
    } else if (onPointer) {
        onPointer(event->pos());
    }
}

void PictureBox::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) unsetCursor();
    QWidget::mouseReleaseEvent(event);
}

} // namespace korvel
