// Light or dark as the desktop says: a portal of the test's own answers on a bus of the test's own.
#include "explore/frmExplore.h"

#include "fakes/FakePlatform.h"
#include "forms/FormDriver.h"
#include "toolkit/desktop/StartQt.h"
#include "toolkit/desktop/Theme.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QElapsedTimer>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QThread>
#include <gtest/gtest.h>

#include <atomic>

namespace korvel {

namespace {

const char* const service = "org.freedesktop.portal.Desktop";
const char* const path = "/org/freedesktop/portal/desktop";
const char* const settings = "org.freedesktop.portal.Settings";
constexpr uint noPreference = 0, prefersDark = 1, prefersLight = 2;
constexpr int ready = 10000; // milliseconds

QString busAddress;

class Settings : public QDBusVirtualObject {
  public:
    std::atomic<uint> scheme{noPreference};
    std::atomic<unsigned long> delay{0}; // milliseconds, of the first answer: it has to be started

    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override {
        if (message.interface() != settings || message.member() != "Read") return false;
        const QList<QVariant> asked{"org.freedesktop.appearance", "color-scheme"};
        if (message.arguments() != asked) return false;
        QThread::msleep(delay.exchange(0));
        const QDBusVariant inner(QVariant::fromValue(scheme.load()));
        return bus.send(message.createReply(QVariant::fromValue(QDBusVariant(QVariant::fromValue(inner)))));
    }
};

// A thread of its own, as a portal is a program of its own: the window waits for its answer.
class Portal {
  public:
    explicit Portal(uint scheme, unsigned long delay = 0) {
        m_settings.scheme = scheme;
        m_settings.delay = delay;
        m_settings.moveToThread(&m_thread);
        m_thread.start();
        EXPECT_TRUE(m_bus.registerVirtualObject(path, &m_settings));
        EXPECT_TRUE(m_bus.registerService(service));
    }
    ~Portal() {
        m_bus.unregisterService(service);
        m_bus.unregisterObject(path);
        m_thread.quit();
        m_thread.wait();
    }
    Portal(const Portal&) = delete;
    Portal& operator=(const Portal&) = delete;

    void change(uint scheme) {
        m_settings.scheme = scheme;
        QDBusMessage news = QDBusMessage::createSignal(path, settings, "SettingChanged");
        news << "org.freedesktop.appearance"
             << "color-scheme" << QVariant::fromValue(QDBusVariant(QVariant::fromValue(scheme)));
        m_bus.send(news);
    }

  private:
    QThread m_thread;
    Settings m_settings;
    QDBusConnection m_bus = QDBusConnection::connectToBus(busAddress, "portal");
};

class ThemeTest : public testing::Test {
  protected:
    void SetUp() override {
        if (busAddress.isEmpty()) GTEST_SKIP() << "there is no dbus-daemon";
        qunsetenv("KORVEL_THEME");
    }
    ~ThemeTest() override { qunsetenv("KORVEL_THEME"); }

    void show() {
        form = std::make_unique<frmExplore>(platform, memory);
        showActive(*form);
    }
    static bool isDark() {
        const QPalette palette = QApplication::palette();
        return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
    }

    QTemporaryDir folder;
    FakePlatform platform;
    ExploreMemory memory{folder.filePath("memory.ini")};
    std::unique_ptr<frmExplore> form;
};

} // namespace

TEST_F(ThemeTest, IsLightWhereNoPortalAnswers) {
    show();
    EXPECT_FALSE(isDark());
}

TEST_F(ThemeTest, TakesTheDesktopsSchemeAtStartAndFollowsIt) {
    Portal portal(prefersDark);
    show();
    EXPECT_TRUE(isDark());
    portal.change(prefersLight);
    EXPECT_TRUE(waitFor([] { return !isDark(); }));
    portal.change(prefersDark);
    EXPECT_TRUE(waitFor([] { return isDark(); }));
    portal.change(noPreference);
    EXPECT_TRUE(waitFor([] { return !isDark(); }));
}

TEST_F(ThemeTest, LetsTheEnvironmentOverride) {
    Portal portal(prefersDark);
    qputenv("KORVEL_THEME", "light");
    EXPECT_EQ(desktopTheme(), Theme::light);
    qputenv("KORVEL_THEME", "dark");
    portal.change(prefersLight);
    EXPECT_EQ(desktopTheme(), Theme::dark);
}

TEST_F(ThemeTest, OpensWithoutWaitingForASlowPortalAndTakesItsAnswerLater) {
    Portal portal(prefersDark, 700);
    QElapsedTimer clock;
    clock.start();
    show();
    EXPECT_FALSE(isDark());
    EXPECT_TRUE(waitFor([] { return isDark(); }));
}

// The given forms are shown before the portal has answered.
TEST_F(ThemeTest, LetsTheGivenFormsFollowWithoutWaiting) {
    QApplication::setPalette(paletteOf(Theme::light));
    Portal portal(prefersDark, 700);
    const ThemeFollower follower;
    EXPECT_FALSE(isDark());
    EXPECT_TRUE(waitFor([] { return isDark(); }));
    portal.change(prefersLight);
    EXPECT_TRUE(waitFor([] { return !isDark(); }));
}

} // namespace korvel

using namespace korvel;

int main(int argc, char** argv) {
    QProcess daemon;
    const QString program = QStandardPaths::findExecutable("dbus-daemon");
    if (!program.isEmpty()) {
        daemon.start(program, {"--session", "--print-address", "--nofork"});
        if (daemon.waitForReadyRead(ready)) busAddress = daemon.readLine().trimmed();
    }
    qputenv("DBUS_SESSION_BUS_ADDRESS", busAddress.toLocal8Bit());
    settleForNoDisplay();
    int result = 1;
    {
        QApplication application(argc, argv);
        settleExplorerLook();
        testing::InitGoogleTest(&argc, argv);
        result = RUN_ALL_TESTS();
    }
    daemon.terminate();
    daemon.waitForFinished();
    return result;
}
