// Light or dark, as the desktop is set: Qt 6.4 does not follow it by itself.
#pragma once

#include "panels/RunStyle.h"

#include <QPalette>
#include <QTimer>

#include <functional>

namespace korvel {

// What $KORVEL_THEME says ("light", "dark"), else the desktop's setting, else light.
Theme desktopTheme();

QPalette paletteOf(Theme theme);
QColor accentOf(Theme theme);

// Tells when the desktop's setting has changed.
class ThemeWatch {
  public:
    explicit ThemeWatch(std::function<void()> onChange);

  private:
    QTimer m_settled; // a change comes as several signals
};

} // namespace korvel
