// What screen readers are told of the Explorer's controls, and where Tab goes.
#include "explore_forms/ExploreWindow.h"

#include <QAccessible>
#include <QMenu>
#include <QTabWidget>
#include <QToolButton>

namespace korvel {

namespace {

class FrmExploreAccess : public FrmExploreWindow {
  protected:
    void showTab(int tab) {
        control<QTabWidget>(*form, "tabTables").setCurrentIndex(tab);
        passEvents();
    }
    static std::string labelOf(QWidget& control) {
        const auto relations = QAccessible::queryAccessibleInterface(&control)->relations(QAccessible::Label);
        return relations.isEmpty() ? "" : relations.front().first->text(QAccessible::Name).toStdString();
    }
};

} // namespace

// Of a box of choices the choice itself is told as the name.
TEST_F(FrmExploreAccess, TellsByALabelWhatABoxOfChoicesIsFor) {
    show({"a.sgr"});
    const std::pair<const char*, const char*> labels[] = {{"cboFrom", "From"},
                                                          {"cboTo", "to"},
                                                          {"cboView", "View"},
                                                          {"cboStatistic", "of the"},
                                                          {"cboColouring", "Rivers by"},
                                                          {"cboFitBy", "Fit over"},
                                                          {"cboSourcesOf", "Sources of"},
                                                          {"cboSourcesAt", "Place"},
                                                          {"cboSourcesBy", "Listed"}};
    EXPECT_EQ(form->findChildren<QComboBox*>().size(), static_cast<qsizetype>(std::size(labels)));
    for (const auto& [name, label] : labels)
        EXPECT_EQ(labelOf(combo(name)), label) << name;
}

TEST_F(FrmExploreAccess, TellsPicturesAsCharts) {
    show({"a.sgr"});
    for (const char* name : {"picProfile", "picNetwork", "picFit"}) {
        const QAccessibleInterface* spoken =
            QAccessible::queryAccessibleInterface(&control<QWidget>(*form, name));
        EXPECT_EQ(spoken->role(), QAccessible::Chart) << name;
        EXPECT_NE(spoken->text(QAccessible::Name), "") << name;
    }
}

TEST_F(FrmExploreAccess, GoesThroughTheSideAsTheEyeDoes) {
    show({"a.sgr"});
    runs().setFocus();
    std::vector<std::string> visited;
    for (int step = 0; step < 8; ++step) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        visited.push_back(QApplication::focusWidget()->objectName().toStdString());
    }
    EXPECT_EQ(visited,
              (std::vector<std::string>{"cmdArrange", "cmdAddRun", "lstSeries", "chkLimits", "chkTargets",
                                        "chkObserved", "chkInterpolated", "cboColouring"}));
}

TEST_F(FrmExploreAccess, GoesFromTheSideThroughThePictureToTheTables) {
    show({"a.sgr"});
    combo("cboColouring").setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), &profile());
    QTest::keyClick(&profile(), Qt::Key_Tab);
    EXPECT_TRUE(control<QTabWidget>(*form, "tabTables").isAncestorOf(QApplication::focusWidget()));
}

TEST_F(FrmExploreAccess, GivesThePathASecondEndByAClickWithCtrl) {
    show({"a.sgr"});
    auto& network = control<QWidget>(*form, "picNetwork");
    QPoint side;
    for (int y = 4; y < network.height() && form->state().from != 2; y += 4)
        for (int x = 4; x < network.width() && form->state().from != 2; x += 8) {
            side = {x, y};
            QTest::mouseClick(&network, Qt::LeftButton, {}, side);
        }
    ASSERT_EQ(form->state().from, 2);
    choose("cboFrom", "Upper  (1)");
    choose("cboTo", "Lower  (3)");
    QTest::mouseClick(&network, Qt::LeftButton, Qt::ControlModifier, side);
    EXPECT_EQ(form->state().from, 2);
    EXPECT_EQ(form->state().to, 3);
}

TEST_F(FrmExploreAccess, SaysBesideTheGridWhatIsBadWhenLowAndLetsItBeChosen) {
    show({"a.sgr"});
    showTab(2);
    auto& button = control<QToolButton>(*form, "cmdLowIsBad");
    EXPECT_TRUE(button.isVisible());
    EXPECT_EQ(button.text(), "Bad when low: none");
    emit button.menu()->aboutToShow();
    ASSERT_EQ(button.menu()->actions().size(), 2);
    EXPECT_EQ(button.menu()->actions().front()->text(), "BOD");
    button.menu()->actions().front()->setChecked(true);
    EXPECT_EQ(form->state().lowIsBad, (std::set<int>{1}));
    EXPECT_EQ(button.text(), "Bad when low: BOD");
    EXPECT_EQ(memory.lowIsBad(), (std::vector<std::string>{"BOD"}));
    emit button.menu()->aboutToShow();
    EXPECT_TRUE(button.menu()->actions().front()->isChecked());
    button.menu()->actions().front()->setChecked(false);
    EXPECT_EQ(button.text(), "Bad when low: none");
}

} // namespace korvel
