#include "explore/window/Theme.h"

#include <QColor>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QVariant>

namespace korvel {

namespace {

const char* const service = "org.freedesktop.portal.Desktop";
const char* const path = "/org/freedesktop/portal/desktop";
const char* const settings = "org.freedesktop.portal.Settings";
constexpr int patience = 250; // milliseconds, of a window that opens
constexpr uint prefersDark = 1;

// The answer is wrapped once or twice.
uint numberIn(QVariant value) {
    while (value.canConvert<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value.toUInt();
}

bool desktopIsDark() {
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) return false;
    QDBusMessage question = QDBusMessage::createMethodCall(service, path, settings, "Read");
    question << QString("org.freedesktop.appearance") << QString("color-scheme");
    const QDBusMessage answer = bus.call(question, QDBus::Block, patience);
    return answer.type() == QDBusMessage::ReplyMessage && !answer.arguments().isEmpty() &&
           numberIn(answer.arguments().first()) == prefersDark;
}

struct Colours {
    QRgb window, base, alternate, text, quiet, button, accent, accentText, mid;
};
constexpr Colours light = {0xfff7f8f9, 0xffffffff, 0xfff4f6f7, 0xff1c2529, 0xff8a9398,
                           0xffeef1f2, 0xff1d6f91, 0xffffffff, 0xffd5dbde};
constexpr Colours dark = {0xff22272a, 0xff191d20, 0xff1f2427, 0xffe4e9eb, 0xff7d888d,
                          0xff2d3438, 0xff3d9cc4, 0xff0d1214, 0xff3c454a};

} // namespace

Theme desktopTheme() {
    const QByteArray wanted = qgetenv("KORVEL_THEME").toLower();
    if (wanted == "dark") return Theme::dark;
    if (wanted == "light") return Theme::light;
    return desktopIsDark() ? Theme::dark : Theme::light;
}

QColor accentOf(Theme theme) {
    return QColor::fromRgb((theme == Theme::dark ? dark : light).accent);
}

QPalette paletteOf(Theme theme) {
    const Colours& colours = theme == Theme::dark ? dark : light;
    const auto colour = [](QRgb rgb) { return QColor::fromRgb(rgb); };
    QPalette palette(colour(colours.button), colour(colours.window));
    palette.setColor(QPalette::Base, colour(colours.base));
    palette.setColor(QPalette::AlternateBase, colour(colours.alternate));
    palette.setColor(QPalette::Highlight, colour(colours.accent));
    palette.setColor(QPalette::HighlightedText, colour(colours.accentText));
    palette.setColor(QPalette::Link, colour(colours.accent));
    palette.setColor(QPalette::Mid, colour(colours.mid));
    palette.setColor(QPalette::ToolTipBase, colour(colours.base));
    palette.setColor(QPalette::PlaceholderText, colour(colours.quiet));
    for (const auto role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
        palette.setColor(role, colour(colours.text));
        palette.setColor(QPalette::Disabled, role, colour(colours.quiet));
    }
    return palette;
}

ThemeWatch::ThemeWatch(std::function<void()> onChange) {
    m_settled.setSingleShot(true);
    m_settled.setInterval(0);
    QObject::connect(&m_settled, &QTimer::timeout, std::move(onChange));
    QDBusConnection::sessionBus().connect(service, path, settings, "SettingChanged", &m_settled,
                                          SLOT(start()));
}

} // namespace korvel
