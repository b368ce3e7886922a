#include "toolkit/desktop/StartQt.h"

#include "toolkit/forms/PlainStyle.h"

#include <QApplication>
#include <QFont>
#include <QFontDatabase>
#include <QPalette>

namespace korvel {

namespace {

QPalette lightPalette() {
    QPalette palette(QColor(0xf4, 0xf6, 0xf7));
    palette.setColor(QPalette::Window, QColor(0xf4, 0xf6, 0xf7));
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::Button, QColor(0xe6, 0xea, 0xec));
    palette.setColor(QPalette::Highlight, QColor(0x1d, 0x6f, 0x91));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(0x8a, 0x93, 0x98));
    return palette;
}

} // namespace

void settleBeforeQt() {
    qputenv("QT_FONT_DPI", "96");
}

void settleForNoDisplay() {
    settleBeforeQt();
    qputenv("QT_QPA_PLATFORM", "offscreen");
}

void settleExplorerLook() {
    QApplication::setStyle(new PlainStyle);
    QApplication::setFont(QFontDatabase::systemFont(QFontDatabase::GeneralFont));
}

void settleLook() {
    QApplication::setStyle(new PlainStyle); // Qt deletes it
    QApplication::setPalette(lightPalette());
    QApplication::setFont(QFont("Arial", 10));
}

} // namespace korvel
