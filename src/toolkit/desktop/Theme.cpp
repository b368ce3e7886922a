#include "toolkit/desktop/Theme.h"

#include <QApplication>
#include <QColor>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
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

QDBusMessage schemeQuestion() {
    QDBusMessage question = QDBusMessage::createMethodCall(service, path, settings, "Read");
    question << QString("org.freedesktop.appearance") << QString("color-scheme");
    return question;
}

bool desktopIsDark() {
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) return false;
    const QDBusMessage answer = bus.call(schemeQuestion(), QDBus::Block, patience);
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
constexpr int darkest = 127; // lightness, of a ground that counts as dark

void showAll(Theme theme) {
    if (themeOf(QApplication::palette()) != theme) QApplication::setPalette(paletteOf(theme));
}

} // namespace

std::optional<Theme> namedTheme() {
    const QByteArray wanted = qgetenv("KORVEL_THEME").toLower();
    if (wanted == "dark") return Theme::dark;
    if (wanted == "light") return Theme::light;
    return std::nullopt;
}

Theme desktopTheme() {
    if (const std::optional<Theme> named = namedTheme()) return *named;
    return desktopIsDark() ? Theme::dark : Theme::light;
}

Theme themeOf(const QPalette& palette) {
    return palette.color(QPalette::Window).lightness() > darkest ? Theme::light : Theme::dark;
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

QPalette listPaletteOf(Theme theme) {
    constexpr double share = 0.25; // of the accent
    QPalette palette = paletteOf(theme);
    const QColor accent = accentOf(theme), ground = palette.color(QPalette::Window);
    const auto mixed = [&](int above, int below) { return qRound(share * above + (1 - share) * below); };
    palette.setColor(QPalette::Highlight,
                     QColor(mixed(accent.red(), ground.red()), mixed(accent.green(), ground.green()),
                            mixed(accent.blue(), ground.blue())));
    palette.setColor(QPalette::HighlightedText, palette.color(QPalette::Text));
    return palette;
}

ThemeWatch::ThemeWatch(std::function<void()> onChange) {
    m_settled.setSingleShot(true);
    m_settled.setInterval(0);
    QObject::connect(&m_settled, &QTimer::timeout, std::move(onChange));
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) return;
    bus.connect(service, path, settings, "SettingChanged", &m_settled, SLOT(start()));
    // A portal that had to be started first may have kept the window waiting too long.
    auto* late = new QDBusPendingCallWatcher(bus.asyncCall(schemeQuestion()), &m_settled);
    QObject::connect(late, &QDBusPendingCallWatcher::finished, &m_settled, [this, late] {
        if (!late->isError()) m_settled.start();
        late->deleteLater();
    });
}

ThemeFollower::ThemeFollower() {
    if (!namedTheme()) m_watch.emplace([] { showAll(desktopTheme()); });
}

} // namespace korvel
