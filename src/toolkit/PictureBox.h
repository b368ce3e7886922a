// Shows a Drawing; what is drawn belongs to the form.
#pragma once

#include "graphs/draw/Drawing.h"

#include <QWidget>

class PictureBox : public QWidget {
  public:
    PictureBox(const char* name, const Drawing& drawing, QWidget* parent);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    const Drawing& m_drawing;
};
