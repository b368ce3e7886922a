// The base of all forms, by a small form of its own.
#include "toolkit/forms/Form.h"

#include "fakes/FakePlatform.h"
#include "forms/FormDriver.h"

#include <QAccessible>
#include <QTest>

namespace korvel {

namespace {

class SampleForm : public Form {
  public:
    explicit SampleForm(Platform& services) : Form(services, "frmSample", "Sample") {
        onClick(mnuFail, [] { throw RunTimeError(errors::fileNotFound); });
        on(cmdGo, &QPushButton::clicked, [this] { happened += "go "; });
    }
    using Form::clearBackground;
    using Form::controlPlace;
    using Form::ScaleFormControls;
    using Form::setBackground;
    using Form::setControlPlace;

    std::string happened;
    bool closes = true;
    std::function<void()> whenActivated;

  protected:
    void onActivate() override {
        happened += "activated ";
        if (whenActivated) whenActivated();
    }
    bool onClose() override {
        happened += "closing ";
        return closes;
    }
    void onResize() override { happened += "resized "; }
    bool onKey(int key, Qt::KeyboardModifiers) override {
        if (key == Qt::Key_F1) happened += "F1 ";
        return key == Qt::Key_F1;
    }

  private:
    QMenu& mnuFile = submenu("mnuFile", "     &File");
    QAction& mnuFail = menuItem("mnuFail", "F&ail", &mnuFile);
    QAction& mnuExit = menuItem("mnuExit", "&Exit");
    QLabel& lblName = label("lblName", "Name", at(150, 300, 1500, 240));
    QPushButton& cmdGo = button("cmdGo", "&Go  there", at(150, 600, 1500, 360), {.fontSize = 10});
    QListWidget& lstReaches = listBox("lstReaches", "Reaches", at(3000, 300, 3000, 1700));
    QComboBox& Combo_1 = comboBox("Combo_1", "Reach", at(150, 1200, 1500, 315));
    QFrame& frameInner = frame("frameInner", at(150, 1800, 2250, 900));
    QCheckBox& Check_0 = checkBox("Check_0", "Plot", at(75, 75, 1500, 240), {.in = &frameInner});
};

class FormTest : public testing::Test {
  protected:
    QRect placeOf(const char* name) { return control<QWidget>(form, name).geometry(); }
    double fontOf(const char* name) { return control<QWidget>(form, name).font().pointSizeF(); }

    FakePlatform platform;
    SampleForm form{platform};
};

} // namespace

TEST_F(FormTest, BearsItsNameAndCaption) {
    EXPECT_EQ(form.formName(), "frmSample");
    EXPECT_EQ(form.caption(), "Sample");
}

TEST_F(FormTest, PlacesItsControlsInTwips) {
    EXPECT_EQ(placeOf("lblName"), QRect(10, 20, 100, 16));
    EXPECT_EQ(placeOf("cmdGo"), QRect(10, 40, 100, 24));
    EXPECT_EQ(placeOf("Check_0"), QRect(5, 5, 100, 16)) << "within its frame";
    EXPECT_EQ(fontOf("lblName"), 8);
    EXPECT_EQ(fontOf("cmdGo"), 10);
    EXPECT_EQ(control<QLabel>(form, "lblName").font().family(), "Arial");
}

TEST_F(FormTest, KeepsItsMenusInsideTheWindowAndTheirBlanks) {
    EXPECT_FALSE(form.menuBar()->isNativeMenuBar());
    EXPECT_EQ(menuListing(*form.menuBar()), "mnuFile|     &File\n  mnuFail|F&ail\nmnuExit|&Exit\n");
}

TEST_F(FormTest, NamesItsControlsForThoseWhoCannotSeeThem) {
    EXPECT_EQ(control<QPushButton>(form, "cmdGo").accessibleName(), "Go  there");
    EXPECT_EQ(control<QListWidget>(form, "lstReaches").accessibleName(), "Reaches");
}

TEST_F(FormTest, HasItsLabelsReadAsTheyAreNow) {
    auto& label = control<QLabel>(form, "lblName");
    label.setText("Finished");
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&label)->text(QAccessible::Name), "Finished");
}

TEST_F(FormTest, ScalesPlacesAndTruncatesFonts) {
    form.ScaleFormControls(2, 1.5);
    EXPECT_EQ(placeOf("lblName"), QRect(20, 30, 200, 24));
    EXPECT_EQ(placeOf("frameInner"), QRect(20, 180, 300, 90));
    EXPECT_EQ(fontOf("lblName"), 12);
    EXPECT_EQ(fontOf("cmdGo"), 15);
    EXPECT_EQ(placeOf("Combo_1").topLeft(), QPoint(20, 120));
    EXPECT_EQ(placeOf("Combo_1").height(), control<QComboBox>(form, "Combo_1").sizeHint().height());
}

TEST_F(FormTest, ShowsWholeLinesInAList) {
    auto& list = control<QListWidget>(form, "lstReaches");
    for (double scale : {1.0, 1.3, 1.7}) {
        form.ScaleFormControls(scale, scale);
        for (int i = list.count(); i < 30; ++i)
            list.addItem("line");
        EXPECT_EQ((list.height() - 2 * list.frameWidth()) % list.sizeHintForRow(0), 0) << scale;
    }
}

TEST_F(FormTest, MovesAControl) {
    auto& name = control<QLabel>(form, "lblName");
    form.setControlPlace(name, {300, 450, 600, 750});
    EXPECT_EQ(name.geometry(), QRect(20, 30, 40, 50));
    EXPECT_EQ(form.controlPlace(name), (Place{300, 450, 600, 750}));
}

TEST_F(FormTest, ColoursABackground) {
    auto& inner = control<QFrame>(form, "frameInner");
    SampleForm::setBackground(inner, Rgb{255, 255, 0});
    form.show();
    EXPECT_EQ(inner.grab().toImage().pixelColor(inner.rect().center()), QColor(255, 255, 0));
}

// Words are read on the colours that columns, modes and progress have, whatever the desktop's.
TEST_F(FormTest, WritesReadablyOnAGivenGround) {
    auto& inner = control<QFrame>(form, "frameInner");
    using Given = std::pair<Rgb, Qt::GlobalColor>;
    for (const auto& [ground, words] :
         {Given({255, 255, 0}, Qt::black), Given({255, 0, 0}, Qt::black), Given({0, 255, 0}, Qt::black),
          Given({255, 255, 255}, Qt::black), Given({0, 0, 128}, Qt::white)}) {
        SampleForm::setBackground(inner, ground);
        EXPECT_EQ(inner.palette().color(QPalette::WindowText), QColor(words));
    }
    SampleForm::clearBackground(inner);
    EXPECT_EQ(inner.palette().color(QPalette::WindowText), form.palette().color(QPalette::WindowText));
    EXPECT_EQ(inner.palette().color(QPalette::Window), form.palette().color(QPalette::Window));
}

TEST_F(FormTest, TakesItsOuterPlace) {
    form.setOuterPlace({150, 300, 9600, 6780});
    EXPECT_EQ(form.geometry(), QRect(10, 20, 640, 452));
    EXPECT_EQ(form.outerPlace(), (Place{150, 300, 9600, 6780}));
}

TEST_F(FormTest, IsActivatedByTheProgramAlone) {
    EXPECT_FALSE(form.wasActivated());
    showActive(form);
    EXPECT_FALSE(form.wasActivated());
    form.activate();
    EXPECT_TRUE(form.wasActivated());
    EXPECT_TRUE(form.happened.ends_with("activated "));
}

TEST_F(FormTest, EndsTheProgramOnAFailureOfAnyHandler) {
    const std::string failed = "fail program: Run-time error '53': File not found\n";
    choose(form, "mnuFail");
    EXPECT_EQ(platform.takeTranscript(), failed);
    form.whenActivated = [] { throw RunTimeError(errors::fileNotFound); };
    form.activate();
    EXPECT_EQ(platform.takeTranscript(), failed);
}

TEST_F(FormTest, StaysOpenWhereItDoesNotWantToClose) {
    int closed = 0;
    form.closed = [&] { ++closed; };
    form.show();
    form.closes = false;
    EXPECT_FALSE(form.close());
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(closed, 0);
    form.closes = true;
    EXPECT_TRUE(form.close());
    EXPECT_EQ(closed, 1);
}

TEST_F(FormTest, TellsOfKeysThatNoControlTook) {
    showActive(form);
    form.happened.clear();
    QTest::keyClick(&form, Qt::Key_F1);
    QTest::keyClick(&form, Qt::Key_F2);
    EXPECT_EQ(form.happened, "F1 ");
}

TEST_F(FormTest, TellsOfItsResizing) {
    showActive(form);
    form.happened.clear();
    form.resize(form.width() + 10, form.height());
    passEvents();
    EXPECT_EQ(form.happened, "resized ");
}

TEST_F(FormTest, RunsTheActionOfAButton) {
    showActive(form);
    form.happened.clear();
    click(control<QPushButton>(form, "cmdGo"));
    EXPECT_EQ(form.happened, "go ");
}

} // namespace korvel
