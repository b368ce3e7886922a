// Forms shown as windows: which is activated when, and what a modal one waits for.
#include "toolkit/desktop/QtWindows.h"

#include "fakes/FakePlatform.h"
#include "forms/FormDriver.h"
#include "toolkit/forms/Form.h"

#include <QTimer>

#include <utility>

namespace korvel {

namespace {

class PlainForm : public Form {
  public:
    PlainForm(Platform& services, const char* name, std::string& happened)
        : Form(services, name, name), m_happened(happened) {}

  protected:
    void onActivate() override { m_happened += formName() + " activated\n"; }
    bool onClose() override {
        m_happened += formName() + " closing\n";
        return true;
    }

  private:
    std::string& m_happened;
};

class QtWindowsTest : public testing::Test {
  protected:
    void SetUp() override {
        windows.showModeless(mainForm);
        passEvents();
    }
    std::string takeHappened() { return std::exchange(happened, {}); }

    std::string happened;
    FakePlatform platform;
    PlainForm mainForm{platform, "frmMain", happened};
    PlainForm upper{platform, "frmUpper", happened};
    QtWindows windows{platform.platform().dialogs};
};

} // namespace

TEST_F(QtWindowsTest, ActivatesAFormThatItShows) {
    EXPECT_TRUE(mainForm.isVisible());
    EXPECT_EQ(takeHappened(), "frmMain activated\n");
    EXPECT_FALSE(mainForm.isModal());
}

TEST_F(QtWindowsTest, ReturnsFromAModalFormOnceItIsClosedAndActivatesTheOneBelow) {
    takeHappened();
    QTimer::singleShot(20, &upper, [&] {
        happened += "still open\n";
        EXPECT_TRUE(upper.isModal());
        windows.close(upper);
    });
    windows.showModal(upper);
    EXPECT_FALSE(upper.isVisible());
    EXPECT_EQ(takeHappened(), "frmUpper activated\nstill open\nfrmUpper closing\nfrmMain activated\n");
}

TEST_F(QtWindowsTest, LetsWhatIsQueuedPass) {
    int ran = 0;
    QTimer::singleShot(0, qApp, [&] { ++ran; });
    windows.updateScreen();
    QTimer::singleShot(0, qApp, [&] { ++ran; });
    windows.passEvents();
    EXPECT_EQ(ran, 2);
}

} // namespace korvel
