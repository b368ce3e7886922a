// The Explorer's real controls, by what a user does.
#include "explore_forms/ExploreWindow.h"

#include <QDialog>
#include <QFile>
#include <QMimeData>
#include <QTimer>
#include <QUrl>

#include <filesystem>

namespace korvel {

namespace {

using FrmExplore = FrmExploreWindow;

} // namespace

TEST_F(FrmExplore, OpensRunsSideBySideAndTheRiverToTheMouth) {
    show({"a.sgr", "b.sgr"});
    EXPECT_EQ(runText(0), "a.sgr  (base)");
    EXPECT_EQ(runText(1), "b.sgr");
    EXPECT_EQ(combo("cboFrom").currentText(), "Upper  (1)");
    EXPECT_EQ(combo("cboTo").currentText(), "Lower  (3)");
    EXPECT_EQ(form->windowTitle(), "a.sgr and 1 more - KORVEL Explorer");
    EXPECT_TRUE(profile().isVisible());
    EXPECT_TRUE(profile().hasFocus());
}

TEST_F(FrmExplore, ChoosesViewStatisticAndScale) {
    show({"a.sgr", "b.sgr"});
    EXPECT_EQ(choices("cboView"), (std::vector<std::string>{"Values", "Change", "Ratio"}));
    EXPECT_EQ(choices("cboStatistic"), (std::vector<std::string>{"mean", "90", "95", "99"}));
    choose("cboView", "Change");
    choose("cboStatistic", "95");
    EXPECT_EQ(form->state().view, ExploreView::change);
    EXPECT_EQ(form->state().statistic, Statistic::p95);
    EXPECT_FALSE(control<QCheckBox>(*form, "chkLogarithmic").isEnabled()) << "changes are linear";
    choose("cboView", "Ratio");
    EXPECT_FALSE(combo("cboStatistic").isEnabled()) << "a ratio has the judged statistic";
    choose("cboView", "Values");
    control<QCheckBox>(*form, "chkLogarithmic").click();
    EXPECT_EQ(form->state().scale, ScaleKind::logarithmic);
    EXPECT_FALSE(control<QCheckBox>(*form, "chkFromZero").isEnabled());
    control<QCheckBox>(*form, "chkLimits").click();
    EXPECT_FALSE(form->state().limits);
}

TEST_F(FrmExplore, DrawsTheSeriesThatAreTicked) {
    show({"a.sgr"});
    auto& series = control<QListWidget>(*form, "lstSeries");
    EXPECT_EQ(series.count(), 5);
    EXPECT_EQ(form->state().series, (std::vector<int>{0, 1, 2}));
    series.item(1)->setCheckState(Qt::Unchecked);
    series.item(4)->setCheckState(Qt::Checked);
    EXPECT_EQ(form->state().series, (std::vector<int>{0, 2, 4}));
}

TEST_F(FrmExplore, HidesOrdersAndRemovesRunsByKeys) {
    show({"a.sgr", "b.sgr"});
    runs().item(1)->setCheckState(Qt::Unchecked);
    EXPECT_FALSE(form->state().isShown(1));
    runs().setCurrentRow(1);
    QTest::keyClick(&runs(), Qt::Key_B, Qt::ControlModifier);
    EXPECT_EQ(runText(0), "b.sgr  (base)");
    EXPECT_EQ(runs().currentRow(), 0);
    EXPECT_FALSE(form->state().isShown(0));
    QTest::keyClick(&runs(), Qt::Key_Down, Qt::ControlModifier);
    EXPECT_EQ(runText(0), "a.sgr  (base)");
    QTest::keyClick(&runs(), Qt::Key_Delete);
    EXPECT_EQ(runCount(), 1);
    QTest::keyClick(&runs(), Qt::Key_Delete);
    EXPECT_TRUE(form->state().isEmpty());
    EXPECT_TRUE(control<QWidget>(*form, "pageEmpty").isVisible());
}

TEST_F(FrmExplore, RefusesARunThatCanNotStandWithTheOthers) {
    show({"a.sgr"});
    platform.putFile("z.sgr", river(5, "Zinc"));
    platform.takeTranscript();
    platform.willChoose(platform.pathOf("z.sgr"));
    platform.willAnswer(Answer::ok);
    control<QToolButton>(*form, "cmdAddRun").click();
    std::string transcript;
    EXPECT_TRUE(waitFor([&] {
        transcript += platform.takeTranscript();
        return transcript.find("a.sgr and z.sgr differ in determinand 1") != std::string::npos;
    })) << transcript;
    EXPECT_EQ(runCount(), 1);
    platform.expectDone();
}

TEST_F(FrmExplore, ReadsAFileAgainThatHasChangedAndSettled) {
    show({"a.sgr", "b.sgr"});
    press(Qt::Key_Home);
    press(Qt::Key_PageDown);
    EXPECT_NE(readout().find("BOD (Conc) mean 5"), std::string::npos) << readout();
    platform.putFile("a.sgr", river(8));
    ASSERT_TRUE(waitFor([&] { return runText(0).find("read again at") != std::string::npos; })) << runText(0);
    EXPECT_NE(readout().find("BOD (Conc) mean 8"), std::string::npos) << readout();
    EXPECT_EQ(form->state().cursor, (ExplorePlace{1, 0, ""}));
}

TEST_F(FrmExplore, KeepsTheValuesOfAFileThatVanished) {
    show({"a.sgr"});
    std::filesystem::remove(hostPathOf(platform.pathOf("a.sgr")));
    ASSERT_TRUE(waitFor([&] { return runText(0).find("gone; its values are kept") != std::string::npos; }));
    press(Qt::Key_Home);
    EXPECT_NE(readout(), "");
}

TEST_F(FrmExplore, TellsOfAChangedFileThatCanNotBeReadAndKeepsItsValues) {
    show({"a.sgr"});
    platform.putFile("a.sgr", "nothing of the kind");
    ASSERT_TRUE(waitFor([&] { return runText(0).find("but can't be read") != std::string::npos; }));
    press(Qt::Key_Home);
    EXPECT_NE(readout(), "");
}

TEST_F(FrmExplore, SaysWhatToDoWithoutRunsAndOpensWhatWasOpenedLately) {
    memory.noteFile(hostPathOf(platform.pathOf("b.sgr")));
    show({});
    EXPECT_TRUE(control<QWidget>(*form, "pageEmpty").isVisible());
    auto& recent = control<QListWidget>(*form, "lstRecent");
    ASSERT_EQ(recent.count(), 1);
    emit recent.itemActivated(recent.item(0));
    EXPECT_TRUE(waitFor([&] { return runCount() == 1; }));
}

TEST_F(FrmExplore, RemembersFilesAndItsPlace) {
    show({"a.sgr", "b.sgr"});
    EXPECT_EQ(memory.recentFiles(), (std::vector<std::string>{hostPathOf(platform.pathOf("b.sgr")),
                                                              hostPathOf(platform.pathOf("a.sgr"))}));
    form->close();
    EXPECT_FALSE(memory.place("window").isEmpty());
}

TEST_F(FrmExplore, TakesFilesThatAreDroppedOnIt) {
    show({"a.sgr"});
    QMimeData files;
    files.setUrls({QUrl::fromLocalFile(QFile::decodeName(hostPathOf(platform.pathOf("b.sgr")).c_str()))});
    QDragEnterEvent enter({10, 10}, Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(form.get(), &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop({10, 10}, Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(form.get(), &drop);
    EXPECT_TRUE(waitFor([&] { return runCount() == 2; }));
}

TEST_F(FrmExplore, SavesAStudyAndOpensItAgainAsItWas) {
    show({"a.sgr", "b.sgr"});
    choose("cboFrom", "Side  (2)");
    choose("cboView", "Change");
    runs().item(1)->setCheckState(Qt::Unchecked);
    platform.willChoose(platform.pathOf("kept"));
    control<QAction>(*form, "actSaveStudy").trigger();
    EXPECT_EQ(form->windowTitle(), "kept.korvel-study - KORVEL Explorer");
    EXPECT_NE(platform.fileText("kept.korvel-study").find("\"a.sgr\""), std::string::npos);
    const ExploreState saved = form->state();
    form->close(); // asks nothing: nothing has changed since
    showRuns({"kept.korvel-study"}, 2);
    EXPECT_EQ(form->state().from, 2);
    EXPECT_EQ(form->state().view, ExploreView::change);
    EXPECT_EQ(form->state().hidden, saved.hidden);
    EXPECT_EQ(memory.recentStudies().size(), 1u);
    choose("cboView", "Ratio");
    platform.willAnswer(Answer::save);
    form->close();
    EXPECT_NE(platform.fileText("kept.korvel-study").find("\"ratio\""), std::string::npos);
    platform.expectDone();
}

TEST_F(FrmExplore, OpensAStudyWithoutTheRunThatIsMissingAndSaysWhich) {
    platform.putFile("s.korvel-study",
                     R"({"korvel_study": 1, "runs": [{"file": "a.sgr"}, {"file": "lost.sgr"}]})");
    platform.willAnswer(Answer::ok);
    showRuns({"s.korvel-study"}, 1);
    EXPECT_NE(platform.takeTranscript().find("lost.sgr"), std::string::npos);
    platform.expectDone();
}

TEST_F(FrmExplore, TellsTheLineOfABrokenStudyAndShowsNothing) {
    platform.putFile("s.korvel-study", "{\n\"korvel_study\": 1,\n\"view\": 7}");
    platform.willAnswer(Answer::ok);
    showRuns({"s.korvel-study"}, 0);
    EXPECT_NE(platform.takeTranscript().find("s.korvel-study can't be opened: line 3:"), std::string::npos);
    EXPECT_TRUE(form->state().isEmpty());
}

TEST_F(FrmExplore, SavesThePictureAndTheTableInFront) {
    show({"a.sgr"});
    for (const char* name : {"p.svg", "p.pdf"}) {
        QTimer::singleShot(100, [] {
            if (auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget())) dialog->accept();
        });
        platform.willChoose(platform.pathOf(name));
        control<QAction>(*form, "actSavePicture").trigger();
        EXPECT_GT(platform.fileText(name).size(), 2000u) << name;
    }
    platform.willChoose(platform.pathOf("t.csv"));
    control<QAction>(*form, "actSaveTable").trigger();
    EXPECT_NE(platform.fileText("t.csv").find("Mill works"), std::string::npos);
    platform.willChoose(platform.pathOf("a.sgr"));
    platform.willAnswer(Answer::ok);
    control<QAction>(*form, "actSaveTable").trigger();
    EXPECT_EQ(platform.fileText("a.sgr"), river()) << "a table never replaces a run";
    platform.expectDone();
}

TEST_F(FrmExplore, OpensTheGuideWithF1) {
    show({"a.sgr"});
    form->activateWindow();
    press(Qt::Key_F1);
    passEvents();
    EXPECT_NE(platform.takeTranscript().find("guide /share/guide.html"), std::string::npos);
}

TEST_F(FrmExplore, HandsAllRunsOnAsAPageAndAsAnAtlas) {
    show({"a.sgr"});
    platform.willChoose(platform.pathOf("river.html"));
    control<QAction>(*form, "actSavePage").trigger();
    EXPECT_EQ(platform.fileText("river.html").rfind("<!DOCTYPE html>", 0), 0u);
    EXPECT_NE(platform.fileText("river.html").find("a.sgr"), std::string::npos);
    platform.willChoose(platform.pathOf("river.pdf"));
    control<QAction>(*form, "actSaveAtlas").trigger();
    EXPECT_EQ(platform.fileText("river.pdf").rfind("%PDF-", 0), 0u);
    EXPECT_NE(platform.fileText("river.pdf").find("/Outlines"), std::string::npos);
    platform.willChoose(platform.pathOf("a.sgr"));
    platform.willAnswer(Answer::ok);
    control<QAction>(*form, "actSavePage").trigger();
    EXPECT_EQ(platform.fileText("a.sgr"), river()) << "a page never replaces a run";
    platform.expectDone();
}

TEST_F(FrmExplore, PrintsThePictureOnTheOneRoadForPaper) {
    show({"a.sgr"});
    QTimer::singleShot(200, [] {
        if (auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget())) dialog->accept();
    });
    control<QAction>(*form, "actPrint").trigger();
    ASSERT_EQ(platform.printed().size(), 1u);
    EXPECT_TRUE(platform.printed().front().finished);
    EXPECT_GT(platform.printed().front().pages.at(0).commands.size(), 20u);
}

TEST_F(FrmExplore, HasANameForEveryControl) {
    show({"a.sgr"});
    for (const char* name :
         {"picProfile", "lstRuns", "lstSeries", "cboFrom", "cboTo", "cboView", "cboStatistic"})
        EXPECT_NE(control<QWidget>(*form, name).accessibleName(), "") << name;
}

} // namespace korvel
