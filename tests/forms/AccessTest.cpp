// Every form for those who use no mouse, listen to a screen reader, or see little contrast.
#include "app/frmStart.h"
#include "help/frmHelp.h"
#include "reports/frmListing.h"
#include "runs/frmEngine.h"
#include "toolkit/desktop/Theme.h"

#include "fakes/FakePlatform.h"
#include "forms/Contrast.h"
#include "forms/FormDriver.h"
#include "forms/GraphForms.h"

#include <QAccessible>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QTest>

#include <algorithm>
#include <functional>
#include <memory>
#include <utility>

namespace korvel {

namespace {

constexpr std::size_t mostStops = 60;

std::string nameOf(const QWidget& control) {
    return control.objectName().toStdString();
}

// Where Tab leads from the first stop on, once round.
std::vector<QWidget*> tabRound(QWidget& form) {
    if (QApplication::focusWidget() == nullptr || QApplication::focusWidget()->window() != &form)
        QTest::keyClick(&form, Qt::Key_Tab);
    std::vector<QWidget*> stops;
    while (stops.size() < mostStops) {
        QWidget* const stop = QApplication::focusWidget();
        if (stop == nullptr || std::ranges::count(stops, stop) > 0) break;
        stops.push_back(stop);
        QTest::keyClick(stop, Qt::Key_Tab);
        passEvents();
    }
    return stops;
}

// Never back up in a column, nor back to the left in a row.
bool followsTheEye(const QRect& from, const QRect& to) {
    const bool sameColumn = from.left() <= to.right() && to.left() <= from.right();
    const bool sameRow = from.top() <= to.bottom() && to.top() <= from.bottom();
    return !(sameColumn && to.bottom() < from.top()) && !(sameRow && to.right() < from.left());
}

bool isStop(const QWidget& control) {
    if (const auto* option = qobject_cast<const QRadioButton*>(&control))
        if (!option->isChecked()) return false; // the keys of arrows lead there
    return (control.focusPolicy() & Qt::TabFocus) != 0 && control.isVisible() && control.isEnabled() &&
           !control.objectName().isEmpty() && !control.objectName().startsWith("qt_");
}

// What a form is painted with in its lower right corner, where no control stands.
QRgb groundOf(QWidget& form) {
    const QImage image = form.grab().toImage();
    return image.pixel(image.width() - 3, image.height() - 3);
}

class Access : public CleanGlobals, public testing::WithParamInterface<const char*> {
  protected:
    Access() {
        platform.desktop = {0, 0, 1366 * 15.0, 768 * 15.0};
        platform.putFile("MISC.TXT", "C:\\OLD\r\n\r\nFalse\r\n");
        platform.putFile("A.SGR", longRiver());
        platform.putFile("A.OUT", "line 1\r\nline 2\r\n");
        platform.putFile("KORDAT4.TXT", "1\r\n2\r\n3\r\nThe data file\r\nends here\r\n");
    }

    // As its user has it in front, with results where it shows some.
    void withForm(const std::function<void(QWidget&)>& look) {
        const std::string name = GetParam();
        main = std::make_unique<frmStart>(platform);
        main->load();
        if (name == "frmEngine")
            return showOwn<frmEngine>(look, platform, StartedRun{.dataFiles = {"Z:\\RIVER.DAT"}});
        if (name == "frmHelp") return showHelp(look);
        if (name == "frmListing") return showListing(look);
        if (name == "frmBatch") choose(*main, "mnuBatch");
        QWidget& form = formNamed(name);
        if (name == "frmGraphData" || name == "frmReports") {
            platform.willChoose(platform.pathOf("A.SGR"));
            choose(form, name == "frmReports" ? "mnuOpen" : "mnuDataFile1");
        }
        showActive(form);
        look(form);
    }

    FakePlatform platform;
    std::unique_ptr<frmStart> main;

  private:
    template <typename FormType, typename... Arguments>
    void showOwn(const std::function<void(QWidget&)>& look, Arguments&&... arguments) {
        FormType form(std::forward<Arguments>(arguments)...);
        form.resize(1366, 768);
        showActive(form);
        look(form);
    }
    void showHelp(const std::function<void(QWidget&)>& look) {
        GLOBAL.helpPage = "4";
        frmHelp form(platform);
        form.load();
        showActive(form);
        look(form);
    }
    void showListing(const std::function<void(QWidget&)>& look) {
        frmListing form(platform);
        platform.willActOn("frmListing", [&](ShownForm&) {
            showActive(form);
            look(form);
        });
        form.view(platform.pathOf("A.OUT"));
    }
};

constexpr const char* forms[] = {"frmStart", "frmGraphData", "frmSimgraph", "frmReports",
                                 "frmBatch", "frmEngine",    "frmListing",  "frmHelp"};

INSTANTIATE_TEST_SUITE_P(Forms, Access, testing::ValuesIn(forms),
                         [](const auto& form) { return form.param; });

} // namespace

TEST_P(Access, TabReachesEverythingAsTheEyeGoes) {
    withForm([](QWidget& form) {
        const std::vector<QWidget*> stops = tabRound(form);
        ASSERT_FALSE(stops.empty());
        for (QWidget* control : form.findChildren<QWidget*>())
            if (isStop(*control)) {
                EXPECT_EQ(std::ranges::count(stops, control), 1)
                    << nameOf(*control) << " is out of Tab's reach";
            }
        std::string back; // once, where the round begins anew
        int jumps = 0;
        for (std::size_t k = 0; k < stops.size(); ++k) {
            const QWidget &from = *stops[k], &to = *stops[(k + 1) % stops.size()];
            if (followsTheEye(placeInWindow(from), placeInWindow(to))) continue;
            ++jumps;
            back += nameOf(from) + " leads back to " + nameOf(to) + "; ";
        }
        EXPECT_LE(jumps, 1) << back;
    });
}

TEST_P(Access, EveryStopTellsNameAndRole) {
    withForm([](QWidget& form) {
        for (QWidget* control : form.findChildren<QWidget*>()) {
            if (!isStop(*control)) continue;
            const QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(control);
            ASSERT_NE(spoken, nullptr) << nameOf(*control);
            EXPECT_FALSE(spoken->text(QAccessible::Name).trimmed().isEmpty()) << nameOf(*control);
            EXPECT_NE(spoken->role(), QAccessible::NoRole) << nameOf(*control);
        }
    });
}

TEST_P(Access, WordsStandOutFromTheirGround) {
    withForm(expectWordsStandOut);
}

TEST_P(Access, WordsStandOutOnADarkDesktop) {
    const Dark dark;
    withForm(expectWordsStandOut);
}

// The desktop changes while the form is there.
TEST_P(Access, WordsStandOutWhenTheDesktopGrowsDark) {
    withForm([](QWidget& form) {
        const QRgb before = groundOf(form);
        const Dark dark;
        passEvents();
        EXPECT_GT(qGray(before), 200);
        EXPECT_LT(qGray(groundOf(form)), 60);
        expectWordsStandOut(form);
    });
}

} // namespace korvel
