// Runs opened, put in order and taken away, by the real controls.
#include "explore_forms/ExploreWindow.h"

#include <QMenu>
#include <QSplitter>
#include <QTabWidget>
#include <QToolButton>

#include <filesystem>
#include <fstream>

namespace korvel {

namespace {

using FrmExploreRuns = FrmExploreWindow;

} // namespace

TEST_F(FrmExploreRuns, OpensSeveralFilesOfOneDialogAsOneStudy) {
    show({});
    platform.willChooseFiles({platform.pathOf("a.sgr"), platform.pathOf("b.sgr")});
    control<QPushButton>(*form, "cmdOpenFirst").click();
    ASSERT_TRUE(waitFor([&] { return runCount() == 2; }));
    EXPECT_EQ(runText(0), "a.sgr  (base)");
    EXPECT_EQ(runText(1), "b.sgr");
    platform.willCancel();
    control<QToolButton>(*form, "cmdAddRun").click();
    EXPECT_EQ(runCount(), 2);
    platform.expectDone();
}

TEST_F(FrmExploreRuns, OffersWhatCanBeDoneWithARunBesideTheList) {
    show({"a.sgr", "b.sgr"});
    runs().setCurrentRow(1);
    QMenu& menu = *control<QToolButton>(*form, "cmdArrange").menu();
    const auto take = [&](int item) {
        emit menu.aboutToShow();
        ASSERT_TRUE(menu.actions().at(item)->isEnabled()) << item;
        menu.actions().at(item)->trigger();
    };
    take(0);
    EXPECT_EQ(runText(0), "b.sgr  (base)");
    emit menu.aboutToShow();
    EXPECT_FALSE(menu.actions().at(0)->isEnabled()) << "it is the base already";
    take(2);
    EXPECT_EQ(runText(0), "a.sgr  (base)");
    EXPECT_EQ(runs().currentRow(), 1);
    take(3);
    EXPECT_EQ(runCount(), 1);
}

TEST_F(FrmExploreRuns, LetsEscCancelReadingAndKeepsWhatIsThere) {
    show({"a.sgr"});
    platform.willChooseFiles({platform.pathOf("b.sgr")});
    control<QToolButton>(*form, "cmdAddRun").click();
    EXPECT_TRUE(control<QWidget>(*form, "Progress").isVisible());
    press(Qt::Key_Escape);
    EXPECT_FALSE(control<QWidget>(*form, "Progress").isVisible());
    QTest::qWait(300);
    EXPECT_EQ(runCount(), 1);
    platform.willChooseFiles({platform.pathOf("b.sgr")});
    control<QToolButton>(*form, "cmdAddRun").click();
    EXPECT_TRUE(waitFor([&] { return runCount() == 2; })) << "another time it is read";
}

TEST_F(FrmExploreRuns, GoesOnWatchingAFileThatCameBack) {
    show({"a.sgr"});
    const std::string file = hostPathOf(platform.pathOf("a.sgr"));
    std::filesystem::rename(file, file + ".away");
    ASSERT_TRUE(waitFor([&] { return runText(0).find("gone") != std::string::npos; }));
    std::filesystem::rename(file + ".away", file);
    ASSERT_TRUE(waitFor([&] { return runText(0).find("gone") == std::string::npos; }));
    std::ofstream(file, std::ios::binary) << river(8); // the same file, written over
    ASSERT_TRUE(waitFor([&] { return runText(0).find("read again at") != std::string::npos; })) << runText(0);
}

TEST_F(FrmExploreRuns, IsAsItWasLeftTheNextTime) {
    show({"a.sgr"});
    form->resize(1000, 640);
    auto& parts = control<QSplitter>(*form, "splitPictures");
    parts.setSizes({90, 200, 250});
    passEvents();
    const QList<int> sizes = parts.sizes();
    control<QTabWidget>(*form, "tabTables").setCurrentIndex(3);
    form->close();
    form = std::make_unique<frmExplore>(platform, memory, std::vector<std::string>{platform.pathOf("a.sgr")});
    showActive(*form);
    form->activate();
    ASSERT_TRUE(waitFor([&] { return runCount() == 1; }));
    passEvents();
    EXPECT_EQ(form->size(), QSize(1000, 640));
    EXPECT_EQ(control<QTabWidget>(*form, "tabTables").currentIndex(), 3) << "the table that was in front";
    const QList<int> restored = control<QSplitter>(*form, "splitPictures").sizes();
    for (int part = 0; part < 3; ++part)
        EXPECT_NEAR(restored[part], sizes[part], 3) << part;
}

TEST_F(FrmExploreRuns, RefusesAThirteenthRunByItsName) {
    std::vector<std::string> files;
    for (int run = 1; run <= 13; ++run) {
        files.push_back("r" + std::to_string(run) + ".sgr");
        platform.putFile(files.back(), river(run));
    }
    platform.willAnswer(Answer::ok);
    showRuns(files, 12);
    EXPECT_NE(platform.takeTranscript().find("r13.sgr: there are 12 runs already"), std::string::npos);
    EXPECT_EQ(runText(11), "r12.sgr");
    platform.expectDone();
}

} // namespace korvel
