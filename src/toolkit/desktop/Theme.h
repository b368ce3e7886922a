// Light or dark, as the desktop is set: Qt 6.4 does not follow it by itself. The colours of both are one
// small table, for the forms and the Explorer alike.
#pragma once

#include "drawing/Theme.h"

#include <QPalette>
#include <QTimer>

#include <functional>
#include <optional>

namespace korvel {

// What $KORVEL_THEME says ("light", "dark"); none: the desktop's setting counts.
std::optional<Theme> namedTheme();
// What is named, else the desktop's setting, for which it waits a moment, else light.
Theme desktopTheme();

QPalette paletteOf(Theme theme);
QColor accentOf(Theme theme);
// Of lists in which what is current must not cover the colours that its lines show.
QPalette listPaletteOf(Theme theme);
// What a window with this palette follows: dark where its ground is.
Theme themeOf(const QPalette& palette);

// Tells when the desktop's setting has changed, and once when it is known.
class ThemeWatch {
  public:
    explicit ThemeWatch(std::function<void()> onChange);

  private:
    QTimer m_settled; // a change comes as several signals
};

// Gives the application the desktop's colours and follows it. The start does not wait for the answer: until
// it has come the windows are light.
class ThemeFollower {
  public:
    ThemeFollower();

  private:
    std::optional<ThemeWatch> m_watch;
};

} // namespace korvel
