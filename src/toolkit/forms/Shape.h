// A plain coloured shape on a form.
#pragma once

#include "basic/Palette.h"

#include <QWidget>

namespace korvel {

class Shape : public QWidget {
  public:
    enum class Kind { rectangle, rounded, ellipse };

    Shape(Kind kind, Rgb fill, QWidget* parent);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    Kind m_kind;
    Rgb m_fill;
};

} // namespace korvel
