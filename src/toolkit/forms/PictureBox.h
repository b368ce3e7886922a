// Shows a Drawing; what is drawn belongs to the form. A line may lie over it, which is no part of the
// drawing.
#pragma once

#include "drawing/Drawing.h"

#include <QImage>
#include <QLine>
#include <QWidget>

#include <functional>

namespace korvel {

class PictureBox : public QWidget {
  public:
    PictureBox(const char* name, const Drawing& drawing, QWidget* parent);

    // Ctrl and the wheel: 1 for a step up, -1 for one down.
    std::function<void(int)> onControlWheel;
    // The wheel by itself: whole steps, to the right and up.
    std::function<void(QPoint)> onWheel;
    // The pointer moves over the picture.
    std::function<void(QPoint)> onPointer;
    // The left button takes the picture, and moves it: how far since it was taken.
    std::function<void()> onTake;
    std::function<void(QPoint)> onDrag;

    // Shows the drawing as it is now.
    void showAnew();
    // A null line is none.
    void lay(const QLine& line);
    const QLine& line() const { return m_line; }

  protected:
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

  private:
    const QImage& picture();
    void paintDrawing(QPainter& painter) const;
    void zoom(int turned);
    void turn(QPoint turned);

    const Drawing& m_drawing;
    QImage m_picture; // as painted, kept while a line moves over it
    QLine m_line;
    QPoint m_taken;
    QPoint m_turned; // of the wheel, less than a step
    int m_zoomTurned = 0;
};

} // namespace korvel
