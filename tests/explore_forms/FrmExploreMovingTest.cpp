// The cursor and moving about, by the real controls: what a user does with pointer, wheel and keys.
#include "explore_forms/ExploreWindow.h"

#include <set>

namespace korvel {

namespace {

using FrmExploreMoving = FrmExploreWindow;

} // namespace

TEST_F(FrmExploreMoving, ReadsValuesUnderTheCursorByKeys) {
    show({"a.sgr", "b.sgr"});
    press(Qt::Key_Home);
    EXPECT_EQ(form->state().cursor, (ExplorePlace{1, 0, ""}));
    press(Qt::Key_Right);
    press(Qt::Key_Right);
    EXPECT_EQ(form->state().cursor, (ExplorePlace{1, 4, ""}));
    EXPECT_EQ(readout(), expectedReadout());
    EXPECT_NE(readout().find("Mill works"), std::string::npos) << readout();
    press(Qt::Key_PageDown);
    EXPECT_NE(readout().find("BOD (Conc) mean 9"), std::string::npos) << readout();
    EXPECT_NE(readout().find("b.sgr 6"), std::string::npos) << readout();
    press(Qt::Key_End);
    EXPECT_EQ(form->state().cursor, (ExplorePlace{3, 8, ""}));
    press(Qt::Key_Escape);
    EXPECT_EQ(readout(), "");
}

TEST_F(FrmExploreMoving, HoldsTheCursorWhereItIsClicked) {
    show({"a.sgr"});
    QTest::mouseMove(&profile(), profile().rect().center() + QPoint(30, 0));
    passEvents();
    QTest::mouseClick(&profile(), Qt::LeftButton, {}, profile().rect().center());
    ASSERT_TRUE(form->state().cursor);
    EXPECT_TRUE(form->state().cursorPinned);
    const std::string held = readout();
    QTest::mouseMove(&profile(), profile().rect().center() + QPoint(200, 0));
    EXPECT_EQ(readout(), held);
}

TEST_F(FrmExploreMoving, ChoosesAnotherWay) {
    show({"a.sgr"});
    EXPECT_EQ(choices("cboTo"), (std::vector<std::string>{"Upper  (1)", "Lower  (3)"}));
    choose("cboFrom", "Side  (2)");
    EXPECT_EQ(form->state().from, 2);
    EXPECT_EQ(form->state().to, 3);
    EXPECT_EQ(choices("cboTo"), (std::vector<std::string>{"Side  (2)", "Lower  (3)"}));
    choose("cboTo", "Side  (2)");
    EXPECT_EQ(form->state().to, 2);
}

TEST_F(FrmExploreMoving, MovesAboutWithTheWheelAndGoesBack) {
    show({"a.sgr"});
    const auto turn = [&](int angle, Qt::KeyboardModifiers keys = Qt::NoModifier) {
        const QPointF at = profile().rect().center();
        QWheelEvent event(at, profile().mapToGlobal(at), {}, {0, angle}, Qt::NoButton, keys,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&profile(), &event);
    };
    turn(120);
    const auto zoomed = form->state().visible;
    ASSERT_TRUE(zoomed);
    EXPECT_NEAR(zoomed->to - zoomed->from, 18 / 1.25, 1e-9);
    turn(-120, Qt::ShiftModifier);
    ASSERT_TRUE(form->state().visible);
    EXPECT_GT(form->state().visible->from, zoomed->from);
    EXPECT_NEAR(form->state().visible->to - form->state().visible->from, 18 / 1.25, 1e-9);
    control<QAction>(*form, "actGoBack").trigger();
    EXPECT_EQ(form->state().visible, std::nullopt);
    control<QAction>(*form, "actZoomIn").trigger();
    EXPECT_TRUE(form->state().visible);
    QTest::mouseDClick(&profile(), Qt::LeftButton, {}, profile().rect().center());
    EXPECT_EQ(form->state().visible, std::nullopt);
}

TEST_F(FrmExploreMoving, HoldsTheCursorByNoDoubleClick) {
    show({"a.sgr"});
    const QPoint middle = profile().rect().center();
    const auto doubleClick = [&](QPoint at) { // as a mouse does it: one click, then the other
        QTest::mouseClick(&profile(), Qt::LeftButton, {}, at);
        QTest::mouseDClick(&profile(), Qt::LeftButton, {}, at);
        QTest::mouseRelease(&profile(), Qt::LeftButton, {}, at);
    };
    doubleClick(middle);
    EXPECT_FALSE(form->state().cursorPinned);
    QTest::mouseClick(&profile(), Qt::LeftButton, {}, middle);
    ASSERT_TRUE(form->state().cursorPinned);
    const auto held = form->state().cursor;
    doubleClick(middle + QPoint(300, 0));
    EXPECT_TRUE(form->state().cursorPinned);
    EXPECT_EQ(form->state().cursor, held) << "one that was held stays where it was";
}

TEST_F(FrmExploreMoving, SaysWhatThePointerDoesWhileThereAreNoValues) {
    show({"a.sgr"});
    auto& label = control<QLabel>(*form, "lblReadout");
    EXPECT_EQ(
        label.accessibleDescription(),
        "Point at the panels for values. A click holds them, the wheel zooms, dragging moves, Shift and "
        "dragging zooms to a box.");
    EXPECT_EQ(readout(), "");
    const QImage painted = label.grab().toImage();
    std::set<QRgb> colours;
    for (int x = 0; x < painted.width(); ++x)
        for (int y = 0; y < painted.height(); ++y)
            colours.insert(painted.pixel(x, y));
    EXPECT_GT(colours.size(), 2u) << "words, not only the ground";
}

TEST_F(FrmExploreMoving, ZoomsToABoxThatIsDrawnWithShift) {
    show({"a.sgr"});
    const QPoint middle = profile().rect().center();
    QTest::mousePress(&profile(), Qt::LeftButton, Qt::ShiftModifier, middle);
    QTest::mouseMove(&profile(), middle + QPoint(150, 0));
    QTest::mouseRelease(&profile(), Qt::LeftButton, Qt::ShiftModifier, middle + QPoint(150, 0));
    ASSERT_TRUE(form->state().visible);
    EXPECT_GT(form->state().visible->from, 7);
    EXPECT_LT(form->state().visible->to, 14);
}

TEST_F(FrmExploreMoving, GoesFromARowOfATableToItsPlace) {
    show({"a.sgr"});
    auto& table = control<QTableView>(*form, "tblValues");
    ASSERT_TRUE(waitFor([&] { return table.model()->rowCount() > 3; }));
    table.setCurrentIndex(table.model()->index(2, 0));
    ASSERT_TRUE(form->state().cursor);
    EXPECT_TRUE(form->state().cursorPinned);
    EXPECT_EQ(form->state().cursor->distance, 4);
}

TEST_F(FrmExploreMoving, LooksDownTheRiverThatIsClickedInTheNetwork) {
    show({"a.sgr"});
    auto& network = control<QWidget>(*form, "picNetwork");
    ASSERT_TRUE(network.isVisible());
    bool sideWasChosen = false;
    for (int y = 4; y < network.height() && !sideWasChosen; y += 4)
        for (int x = 4; x < network.width() && !sideWasChosen; x += 8) {
            QTest::mouseClick(&network, Qt::LeftButton, {}, {x, y});
            sideWasChosen = form->state().from == 2;
        }
    ASSERT_TRUE(sideWasChosen);
    EXPECT_EQ(form->state().to, 2);
    EXPECT_EQ(combo("cboFrom").currentText(), "Side  (2)");
}

TEST_F(FrmExploreMoving, KeepsItsWidthWhateverTheReadoutSays) {
    std::vector<std::string> files;
    for (char letter = 'a'; letter <= 'l'; ++letter) {
        files.push_back(std::string(40, letter) + ".sgr");
        platform.putFile(files.back(), river(letter));
    }
    show(files);
    form->resize(1000, 700);
    press(Qt::Key_Home);
    press(Qt::Key_PageDown);
    passEvents();
    EXPECT_NE(readout().find("llllllll\u2026lll.sgr 108"), std::string::npos) << readout();
    const std::string whole = control<QLabel>(*form, "lblReadout").accessibleName().toStdString();
    EXPECT_NE(whole.find(files.back() + " 108"), std::string::npos) << "readers of the screen hear all of it";
    EXPECT_EQ(control<QLabel>(*form, "lblReadout").toolTip().toStdString(), whole);
    EXPECT_LE(form->minimumSizeHint().width(), 1000);
    EXPECT_EQ(form->width(), 1000);
}

TEST_F(FrmExploreMoving, LeavesTheCursorToThePointerAfterOpening) {
    show({"a.sgr"});
    EXPECT_FALSE(form->state().cursorPinned);
    EXPECT_EQ(form->state().cursor, std::nullopt);
    QTest::mouseMove(&profile(), profile().rect().center());
    QTest::mouseMove(&profile(), profile().rect().center() + QPoint(60, 0));
    EXPECT_TRUE(form->state().cursor);
    EXPECT_FALSE(form->state().cursorPinned);
}

TEST_F(FrmExploreMoving, ScrollsToThePanelThatKeysComeToWhereThereIsLittleRoom) {
    show({"a.sgr"});
    auto& series = control<QListWidget>(*form, "lstSeries");
    for (int row = 0; row < series.count(); ++row)
        series.item(row)->setCheckState(Qt::Checked);
    control<QSplitter>(*form, "splitPictures").setSizes({100, 150, 450});
    passEvents();
    const QWidget& view = *profile().parentWidget();
    EXPECT_GT(profile().height(), view.height()) << "five panels need more than there is";
    for (int panel = 1; panel < series.count(); ++panel)
        press(Qt::Key_PageDown);
    EXPECT_LE(profile().height() - view.height() + profile().y(), 80) << "the last panel is in view";
    for (int panel = 1; panel < series.count(); ++panel)
        press(Qt::Key_PageUp);
    EXPECT_GT(profile().y(), -60) << "the first one is again";
}

} // namespace korvel
