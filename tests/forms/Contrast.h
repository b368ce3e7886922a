// Whether words can be read: how far their colour stands out from their ground, measured on what is painted.
#pragma once

#include "toolkit/desktop/Theme.h"

#include <QApplication>
#include <QPalette>
#include <QRect>
#include <QWidget>

namespace korvel {

// For a while the desktop is dark.
struct Dark {
    Dark() { QApplication::setPalette(paletteOf(Theme::dark)); }
    ~Dark() { QApplication::setPalette(paletteOf(Theme::light)); }
    Dark(const Dark&) = delete;
    Dark& operator=(const Dark&) = delete;
};

QRect placeInWindow(const QWidget& control);

// Of all that has words in the window and can be used: 4.5 at least.
void expectWordsStandOut(QWidget& window);

// No words are cut, and all that has words lies in the window.
void expectWordsFit(QWidget& window);

} // namespace korvel
