// Every form on four desktops: nothing is cut, covered or out of reach.
#include "app/frmStart.h"
#include "help/frmHelp.h"
#include "reports/frmListing.h"
#include "results/LoadResultsFile.h"
#include "runs/frmEngine.h"

#include "fakes/FakePlatform.h"
#include "forms/FormDriver.h"
#include "forms/GraphForms.h"

#include <QAccessible>
#include <QStyle>
#include <QStyleOptionButton>
#include <QTest>

#include <set>

namespace korvel {

namespace {

constexpr int titleBarHeight = 30; // pixels that a window manager takes off a form's outer frame

struct Desktop {
    const char* name;
    int width, height; // pixels
};

std::string nameOf(const QWidget& control) {
    const QString form = control.window()->objectName();
    return (form + "." + control.objectName()).toStdString();
}

// The controls that the form made; what Qt makes inside them bears no name or Qt's own.
std::vector<QWidget*> controlsOf(const QWidget& parent) {
    std::vector<QWidget*> controls;
    for (QWidget* control : parent.findChildren<QWidget*>())
        if (!control->objectName().isEmpty() && !control->objectName().startsWith("qt_") &&
            !control->isWindow() && qobject_cast<QMenuBar*>(control) == nullptr)
            controls.push_back(control);
    return controls;
}

QSize roomOf(const QLabel& label) {
    const int border = 2 * label.margin();
    return label.contentsRect().size() - QSize(border, border);
}

// Where a button's style puts its text.
QSize roomOf(const QAbstractButton& button, QStyle::SubElement element) {
    QStyleOptionButton option;
    option.initFrom(&button);
    option.text = button.text();
    return button.style()->subElementRect(element, &option, &button).size();
}

void expectFits(const QWidget& control, QSize needed, QSize room) {
    EXPECT_LE(needed.width(), room.width()) << nameOf(control) << " is cut";
    EXPECT_LE(needed.height(), room.height()) << nameOf(control) << " is cut";
}

void expectCaptionFits(const QWidget& control) {
    const auto textSize = [&](const QString& text) {
        return control.fontMetrics().size(Qt::TextShowMnemonic, text);
    };
    if (const auto* label = qobject_cast<const QLabel*>(&control)) {
        const QSize room = roomOf(*label);
        const int mnemonic = label->buddy() != nullptr ? Qt::TextShowMnemonic : 0;
        const int flags = mnemonic | (label->wordWrap() ? Qt::TextWordWrap : 0);
        const QRect wrapped =
            label->fontMetrics().boundingRect(QRect(0, 0, room.width(), 10000), flags, label->text());
        expectFits(control, wrapped.size(), room);
    } else if (const auto* check = qobject_cast<const QCheckBox*>(&control)) {
        expectFits(control, textSize(check->text()), roomOf(*check, QStyle::SE_CheckBoxContents));
    } else if (const auto* radio = qobject_cast<const QRadioButton*>(&control)) {
        expectFits(control, textSize(radio->text()), roomOf(*radio, QStyle::SE_RadioButtonContents));
    } else if (const auto* button = qobject_cast<const QPushButton*>(&control)) {
        expectFits(control, textSize(button->text()), roomOf(*button, QStyle::SE_PushButtonContents));
    }
}

void expectWholeLines(const QListWidget& list) {
    if (list.count() == 0) return;
    const int inside = list.height() - 2 * list.frameWidth();
    EXPECT_EQ(inside % list.sizeHintForRow(0), 0)
        << nameOf(list) << ": lines of " << list.sizeHintForRow(0) << " in " << inside;
    EXPECT_GE(inside, 3 * list.sizeHintForRow(0)) << nameOf(list);
}

int linesOf(const QListWidget& list) {
    return (list.height() - 2 * list.frameWidth()) / list.sizeHintForRow(0);
}

bool isTitle(const QWidget& control) {
    return control.objectName().startsWith("lblKorvel");
}

void expectInsideItsParent(const QWidget& control) {
    if (isTitle(control)) return; // its size is given; where its text stands is looked at apart
    const QRect room = control.parentWidget()->rect();
    const QRect place = control.geometry();
    EXPECT_TRUE(room.contains(place))
        << nameOf(control) << " at " << place.x() << "," << place.y() << " size " << place.width() << "x"
        << place.height() << " in " << room.width() << "x" << room.height();
}

// The name on the main form stands on its own shadow.
bool mayOverlap(const QWidget& a, const QWidget& b) {
    return isTitle(a) && isTitle(b);
}

// In a frame that is hidden nothing is laid out.
bool hasAPlace(const QWidget& control) {
    return control.parentWidget()->isVisibleTo(control.window());
}

void expectNoOverlaps(const std::vector<QWidget*>& controls) {
    for (std::size_t i = 0; i < controls.size(); ++i)
        for (std::size_t k = i + 1; k < controls.size(); ++k) {
            const QWidget &a = *controls[i], &b = *controls[k];
            if (a.parentWidget() != b.parentWidget() || a.isHidden() || b.isHidden() || mayOverlap(a, b) ||
                !hasAPlace(a))
                continue;
            EXPECT_FALSE(a.geometry().intersects(b.geometry())) << nameOf(a) << " and " << nameOf(b);
        }
}

void expectAccessible(QWidget& control) {
    if (control.focusPolicy() == Qt::NoFocus && qobject_cast<QProgressBar*>(&control) == nullptr) return;
    const QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(&control);
    ASSERT_NE(spoken, nullptr) << nameOf(control);
    EXPECT_FALSE(spoken->text(QAccessible::Name).isEmpty()) << nameOf(control) << " has no accessible name";
}

void expectLaidOut(QWidget& form, std::size_t leastControls = 5) {
    const std::vector<QWidget*> controls = controlsOf(form);
    EXPECT_GE(controls.size(), leastControls);
    for (QWidget* control : controls) {
        if (hasAPlace(*control)) expectCaptionFits(*control);
        if (const auto* list = qobject_cast<QListWidget*>(control)) expectWholeLines(*list);
        if (!control->isHidden()) expectInsideItsParent(*control);
        expectAccessible(*control);
    }
    expectNoOverlaps(controls);
}

// Made as small as it can be, a form still shows everything, and a desktop holds it.
void expectLaidOutWhenSmall(QWidget& form, const Desktop& desktop, std::size_t leastControls = 5) {
    const QSize least = form.minimumSizeHint().expandedTo(form.minimumSize());
    EXPECT_LE(least.width(), desktop.width) << nameOf(form);
    EXPECT_LE(least.height() + titleBarHeight, desktop.height) << nameOf(form);
    form.resize(1, 1);
    passEvents();
    expectLaidOut(form, leastControls);
}

// What is shown of a label's text lies on the form.
void expectTextOnTheForm(const QLabel& label) {
    const QRect text = label.style()->itemTextRect(label.fontMetrics(), label.contentsRect(),
                                                   static_cast<int>(label.alignment()), true, label.text());
    const QRect place = text.translated(label.mapTo(label.window(), QPoint(0, 0)));
    EXPECT_TRUE(label.window()->rect().contains(place))
        << nameOf(label) << " from " << place.left() << " to " << place.right();
}

// Of a group of option buttons, only the chosen one is a stop.
bool isTabStop(const QWidget& control) {
    const auto* option = qobject_cast<const QRadioButton*>(&control);
    if (option != nullptr && !option->isChecked()) return false;
    return (control.focusPolicy() & Qt::TabFocus) != 0 && control.isVisible() && control.isEnabled();
}

std::set<std::string> tabStops(const QWidget& form) {
    std::set<std::string> stops;
    for (const QWidget* control : controlsOf(form))
        if (isTabStop(*control)) stops.insert(nameOf(*control));
    return stops;
}

// Where the key leads, round by round.
std::vector<std::string> walk(Qt::Key key, std::size_t steps) {
    std::vector<std::string> visited;
    for (std::size_t i = 0; i < steps; ++i) {
        QTest::keyClick(QApplication::focusWidget(), key);
        passEvents();
        visited.push_back(nameOf(*QApplication::focusWidget()));
    }
    return visited;
}

void expectTabReachesEverything(QWidget& form, QWidget& first) {
    first.setFocus();
    passEvents();
    const std::set<std::string> stops = tabStops(form);
    const std::vector<std::string> forward = walk(Qt::Key_Tab, stops.size());
    EXPECT_EQ(std::set<std::string>(forward.begin(), forward.end()), stops);
    EXPECT_EQ(forward.back(), nameOf(first)) << "back where it began";
    std::vector<std::string> backward = walk(Qt::Key_Backtab, stops.size());
    std::reverse(backward.begin(), backward.end() - 1);
    EXPECT_EQ(backward, forward);
}

class FormLayout : public CleanGlobals, public testing::WithParamInterface<Desktop> {
  protected:
    FormLayout() {
        platform.desktop = {0, 0, GetParam().width * 15.0, GetParam().height * 15.0};
        platform.putFile("MISC.TXT", "C:\\OLD\r\n\r\nFalse\r\n");
        platform.putFile("A.SGR", longRiver());
    }
    // As a window manager shows it.
    void showFramed(QWidget& form) {
        form.resize(form.width(), form.height() - titleBarHeight);
        showActive(form);
    }
    void startMainForm() {
        start = std::make_unique<frmStart>(platform);
        start->load();
    }
    void loadResults(QWidget& setUp) {
        platform.willChoose(platform.pathOf("A.SGR"));
        choose(setUp, "mnuDataFile1");
    }

    FakePlatform platform;
    std::unique_ptr<frmStart> start;
};

constexpr Desktop desktops[] = {
    {"Design640x452", 640, 452}, {"Laptop", 1366, 768},       {"FullHd", 1920, 1080}, {"Small", 960, 540},
    {"Portrait", 1080, 1920},    {"SmallPortrait", 540, 960}, {"FourK", 3840, 2160}};

INSTANTIATE_TEST_SUITE_P(Desktops, FormLayout, testing::ValuesIn(desktops),
                         [](const auto& desktop) { return desktop.param.name; });

} // namespace

TEST_P(FormLayout, MainForm) {
    startMainForm();
    showFramed(*start);
    for (const char* const name : {"lblKorvel_0", "lblKorvel_1"})
        expectTextOnTheForm(control<QLabel>(*start, name));
    expectLaidOut(*start);
    expectLaidOutWhenSmall(*start, GetParam());
}

TEST_P(FormLayout, MainFormShowingProgress) {
    startMainForm();
    HideEditWarningMessage(GLOBAL.mainForm);
    GLOBAL.mainForm.progressFrameVisible = true;
    static_cast<ShownForm&>(*start).activate();
    showFramed(*start);
    for (const char* name : {"Progress", "lblProgress", "lblProgress2"})
        expectInsideItsParent(control<QWidget>(*start, name));
}

TEST_P(FormLayout, SetUpForm) {
    startMainForm();
    QWidget& form = formNamed("frmGraphData");
    showFramed(form);
    expectLaidOut(form);
    loadResults(form);
    expectLaidOut(form);
    expectLaidOutWhenSmall(form, GetParam());
}

TEST_P(FormLayout, SetUpFormWhileItWaits) {
    startMainForm();
    QWidget& form = formNamed("frmGraphData");
    showFramed(form);
    control<QLabel>(form, "Label_2").show();
    control<QProgressBar>(form, "Progress").show();
    expectLaidOut(form);
    expectLaidOutWhenSmall(form, GetParam());
}

// Line by line: what a taller form has more is the lists'.
TEST_P(FormLayout, SetUpFormGivesItsHeightToTheLists) {
    startMainForm();
    QWidget& form = formNamed("frmGraphData");
    showFramed(form);
    loadResults(form);
    auto& features = control<QListWidget>(form, "lstFeatures");
    EXPECT_EQ(linesOf(features), features.count()) << "no empty line, none hidden";
    for (const char* const name : {"lstDets", "lstSites"}) {
        auto& list = control<QListWidget>(form, name);
        const int before = linesOf(list);
        form.resize(form.width(), form.height() + 8 * features.sizeHintForRow(0));
        passEvents();
        EXPECT_GE(linesOf(list), before + 3) << name;
        EXPECT_LT(list.parentWidget()->height() - list.geometry().bottom(), 4 * features.sizeHintForRow(0));
        form.resize(form.width(), form.height() - 8 * features.sizeHintForRow(0));
        passEvents();
    }
    expectLaidOut(form);
    EXPECT_EQ(control<QWidget>(form, "txtTitle_1").height(), control<QWidget>(form, "Combo_1").height());
}

TEST_P(FormLayout, SetUpFormTabOrder) {
    startMainForm();
    QWidget& form = formNamed("frmGraphData");
    loadResults(form);
    showFramed(form);
    expectTabReachesEverything(form, control<QWidget>(form, "Combo_1"));
}

TEST_P(FormLayout, GraphForm) {
    startMainForm();
    QWidget& form = formNamed("frmSimgraph");
    showFramed(form);
    expectLaidOut(form);
    expectTabReachesEverything(form, control<QWidget>(form, "Cmd_1"));
    expectLaidOutWhenSmall(form, GetParam());
}

TEST_P(FormLayout, GraphFormWhileTwoAreCompared) {
    startMainForm();
    QWidget& form = formNamed("frmSimgraph");
    for (const int slot : {0, 1}) {
        GLOBAL.fileNames[slot] = platform.pathOf("A.SGR");
        GLOBAL.currentSlot = slot;
        LoadResultsFile(platform, true, {});
    }
    GLOBAL.plotType = PlotType::comparison;
    showFramed(form);
    dynamic_cast<ShownForm&>(form).activate();
    passEvents();
    EXPECT_TRUE(control<QLabel>(form, "lblSets").isVisible());
    expectLaidOut(form);
}

TEST_P(FormLayout, EngineWindow) {
    frmEngine form(platform, {.dataFiles = {"Z:\\DATA\\RIVER.DAT"}});
    form.resize(GetParam().width, GetParam().height);
    showFramed(form);
    expectLaidOut(form);
    expectLaidOutWhenSmall(form, GetParam());
}

TEST_P(FormLayout, ReportForm) {
    startMainForm();
    QWidget& form = formNamed("frmReports");
    showFramed(form);
    expectLaidOut(form);
    expectLaidOutWhenSmall(form, GetParam());
}

TEST_P(FormLayout, BatchForm) {
    startMainForm();
    choose(*start, "mnuBatch");
    QWidget& form = formNamed("frmBatch");
    showFramed(form);
    expectLaidOut(form);
    expectLaidOutWhenSmall(form, GetParam());
}

TEST_P(FormLayout, HelpForm) {
    platform.putFile("KORDAT4.TXT", "1\r\n2\r\n3\r\nThe data file\r\nends here\r\n");
    GLOBAL.helpPage = "4";
    frmHelp form(platform);
    form.load();
    showFramed(form);
    expectLaidOut(form, 2);
    expectLaidOutWhenSmall(form, GetParam(), 2);
}

TEST_P(FormLayout, ListingForm) {
    platform.putFile("A.OUT", "line 1\r\nline 2\r\n");
    frmListing form(platform);
    platform.willActOn("frmListing", [&](ShownForm&) {
        showFramed(form);
        expectLaidOut(form);
        expectTabReachesEverything(form, control<QWidget>(form, "txtFind"));
        expectLaidOutWhenSmall(form, GetParam());
    });
    form.view(platform.pathOf("A.OUT"));
}

// It holds the picture alone, which is as large as the graph form's.
TEST_P(FormLayout, CaptureForm) {
    startMainForm();
    QWidget& form = formNamed("frmSimgraph");
    showFramed(form);
    platform.willActOn("frmSimgraphSD", {});
    platform.willCancel();
    choose(form, "mnuSaveImage");
    QWidget& capture = formNamed("frmSimgraphSD");
    const auto& picture = control<QWidget>(capture, "ScreenCapture");
    EXPECT_EQ(picture.size(), control<QWidget>(form, "picGraph").size());
    showFramed(capture);
    expectInsideItsParent(picture);
}

} // namespace korvel
