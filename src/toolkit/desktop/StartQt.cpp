#include "toolkit/desktop/StartQt.h"

#include "toolkit/desktop/Theme.h"
#include "toolkit/forms/Looks.h"
#include "toolkit/forms/PlainStyle.h"

#include <QApplication>
#include <QFont>
#include <QFontDatabase>

namespace korvel {

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
    QApplication::setPalette(paletteOf(namedTheme().value_or(Theme::light)));
    QApplication::setFont(looks::windowFont());
}

} // namespace korvel
