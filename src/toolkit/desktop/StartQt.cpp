#include "toolkit/desktop/StartQt.h"

#include "toolkit/desktop/Theme.h"
#include "toolkit/forms/Looks.h"
#include "toolkit/forms/PlainStyle.h"

#include <QApplication>
#include <QFont>
#include <QFontDatabase>
#include <QLocale>

#include <optional>

namespace korvel {

namespace {

constexpr const char* fontDpi = "QT_FONT_DPI";
constexpr double usualDpi = 96;

// What the desktop asks for; nothing before it was settled otherwise.
std::optional<QString>& desktopsFontDpi() {
    static std::optional<QString> dpi;
    return dpi;
}

// Numbers have a decimal point, whatever the country.
void settleNumbers() {
    QLocale::setDefault(QLocale::c());
}

} // namespace

void settleBeforeQt() {
    if (!desktopsFontDpi()) desktopsFontDpi() = qEnvironmentVariable(fontDpi);
    qputenv(fontDpi, "96");
}

QProcessEnvironment desktopsEnvironment() {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    if (!desktopsFontDpi()) return environment;
    environment.remove(fontDpi);
    if (!desktopsFontDpi()->isEmpty()) environment.insert(fontDpi, *desktopsFontDpi());
    return environment;
}

double desktopsTextFactor() {
    const double dpi = desktopsFontDpi().value_or("").toDouble();
    return dpi > 0 ? dpi / usualDpi : 1;
}

void settleForNoDisplay() {
    settleBeforeQt();
    qputenv("QT_QPA_PLATFORM", "offscreen");
}

void settleExplorerLook() {
    settleNumbers();
    QApplication::setStyle(new PlainStyle);
    QApplication::setFont(QFontDatabase::systemFont(QFontDatabase::GeneralFont));
}

void settleLook() {
    settleNumbers();
    QApplication::setStyle(new PlainStyle); // Qt deletes it
    QApplication::setPalette(paletteOf(namedTheme().value_or(Theme::light)));
    QApplication::setFont(looks::windowFont());
}

} // namespace korvel
