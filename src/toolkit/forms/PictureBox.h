// Shows a Drawing; what is drawn belongs to the form.
#pragma once

#include "drawing/Drawing.h"

#include <QWidget>

#include <functional>

namespace korvel {

class PictureBox : public QWidget {
  public:
    PictureBox(const char* name, const Drawing& drawing, QWidget* parent);

    // Ctrl and the wheel: 1 for a step up, -1 for one down.
    std::function<void(int)> onControlWheel;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

  private:
    const Drawing& m_drawing;
};

} // namespace korvel
