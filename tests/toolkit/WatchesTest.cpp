// With real focus: two boxes and a button in one window.
#include "toolkit/forms/Watches.h"

#include "forms/FormDriver.h"

#include <QHelpEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

namespace korvel {

namespace {

class Watches : public testing::Test {
  protected:
    Watches() {
        auto* column = new QVBoxLayout(&window);
        for (QWidget* control : std::initializer_list<QWidget*>{&first, &second, &button})
            column->addWidget(control);
        second.setFocus();
        showActive(window);
    }
    void enter(QWidget& control, Qt::FocusReason reason = Qt::OtherFocusReason) {
        control.setFocus(reason);
        passEvents();
    }

    QWidget window;
    QLineEdit& first = *new QLineEdit;
    QLineEdit& second = *new QLineEdit;
    QPushButton& button = *new QPushButton("Go");
    int calls = 0;
};

} // namespace

TEST_F(Watches, EnteringIsToldOnce) {
    new EnterWatch(first, [this] { ++calls; });
    enter(first);
    EXPECT_EQ(calls, 1);
    enter(second);
    EXPECT_EQ(calls, 1);
    enter(first, Qt::TabFocusReason);
    EXPECT_EQ(calls, 2);
}

TEST_F(Watches, AFocusThatComesBackIsNoEntering) {
    new EnterWatch(first, [this] { ++calls; });
    for (Qt::FocusReason reason :
         {Qt::ActiveWindowFocusReason, Qt::PopupFocusReason, Qt::MenuBarFocusReason}) {
        enter(second);
        enter(first, reason);
    }
    EXPECT_EQ(calls, 0);
}

TEST_F(Watches, LeavingIsToldOnceAndAfterTheEvent) {
    new LeaveWatch(second, [this] { ++calls; });
    first.setFocus();
    EXPECT_EQ(calls, 0) << "queued";
    passEvents();
    EXPECT_EQ(calls, 1);
}

TEST_F(Watches, AFocusThatAMenuAPopUpOrAWindowTookIsNoLeaving) {
    new LeaveWatch(second, [this] { ++calls; });
    for (Qt::FocusReason reason :
         {Qt::ActiveWindowFocusReason, Qt::PopupFocusReason, Qt::MenuBarFocusReason}) {
        enter(second, reason);
        enter(first, reason);
    }
    EXPECT_EQ(calls, 0);
}

TEST_F(Watches, LeavingIsToldOnceWhereTheCallMovesTheFocusBack) {
    new LeaveWatch(second, [this] {
        ++calls;
        second.setFocus();
    });
    enter(first);
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(QApplication::focusWidget(), &second);
}

TEST_F(Watches, APendingCallCanBeRunAtOnce) {
    auto* watch = new LeaveWatch(second, [this] { ++calls; });
    watch->runPending();
    EXPECT_EQ(calls, 0) << "nothing is pending";
    first.setFocus();
    watch->runPending();
    EXPECT_EQ(calls, 1);
    passEvents();
    EXPECT_EQ(calls, 1) << "not a second time";
}

TEST_F(Watches, LeavingComesBeforeTheClickOfTheButtonThatTookTheFocus) {
    std::string order;
    new LeaveWatch(second, [&] { order += "left "; });
    QObject::connect(&button, &QPushButton::clicked, [&] { order += "clicked "; });
    QTest::mousePress(&button, Qt::LeftButton);
    passEvents();
    EXPECT_EQ(order, "") << "not while the mouse holds the button";
    QTest::mouseRelease(&button, Qt::LeftButton);
    passEvents();
    EXPECT_EQ(order, "left clicked ");
}

TEST_F(Watches, ATipIsMadeAnewUnderThePointer) {
    std::string level = "95";
    new HoverTip(button, [&] { return "Level " + level; });
    EXPECT_EQ(button.toolTip(), "Level 95");
    level = "90";
    QHelpEvent ask(QEvent::ToolTip, QPoint(1, 1), QPoint(1, 1));
    QApplication::sendEvent(&button, &ask);
    EXPECT_EQ(button.toolTip(), "Level 90");
}

} // namespace korvel
