// The main form's start page: the last runs, and what their buttons do.
#include "forms/Contrast.h"
#include "forms/FrmStartFixture.h"

#include <QDateTime>
#include <QFileInfo>
#include <QListWidget>

namespace korvel {

namespace {

class FrmStartPage : public FrmStart {
  protected:
    FrmStartPage() { platform.desktop = {0, 0, 1366 * 15.0, 768 * 15.0}; }

    // Of a run that left results which are as they were judged.
    LastRun remember(const std::string& name, long long ended = 1000, int runType = 4) {
        platform.putFile(name + ".DAT", "data");
        platform.putFile(name + ".SGR", longRiver());
        LastRun run;
        run.dataFile = platform.pathOf(name + ".DAT");
        run.resultsFile = platform.pathOf(name + ".SGR");
        run.runType = runType;
        run.state = "Finished";
        run.ended = ended;
        run.verdict = "9 of 14 reaches miss a target";
        run.verdictInFull = "9 of 14 reaches miss at least one target; 5 pass for sure.";
        run.resultsStamp = stampOf(name + ".SGR");
        platform.rememberedRuns.push_back(run);
        return run;
    }
    long long stampOf(const std::string& name) {
        const std::string path = hostPathOf(platform.pathOf(name));
        return QFileInfo(QString::fromStdString(path)).lastModified().toMSecsSinceEpoch();
    }
    void putSamples() {
        platform.samples = platform.pathOf("examples");
        for (const auto& [name, bytes] :
             {std::pair("ALDER.DAT", "first"), std::pair("ALDER2.DAT", "second"), std::pair("README", "")})
            platform.putFile(platform.pathOf(std::string("examples\\") + name), bytes);
    }
    // With the page, which comes after the first painting.
    void startWithPage() {
        showActive(start());
        ASSERT_TRUE(waitFor([&] { return form->findChild<QListWidget*>("lstLastRuns") != nullptr; }));
        passEvents();
    }
    QListWidget& list() { return control<QListWidget>(*form, "lstLastRuns"); }
    std::string line(int row) { return list().item(row)->text().toStdString(); }
    std::string words(const char* label) { return control<QLabel>(*form, label).text().toStdString(); }
    QPushButton& button(const char* name) { return control<QPushButton>(*form, name); }
    bool sees(const char* name) { return control<QWidget>(*form, name).isVisible(); }
};

constexpr const char* ofResults[] = {"cmdRunGraphs", "cmdRunReports", "cmdRunExplore"};

} // namespace

TEST_F(FrmStartPage, ComesAfterTheFirstPainting) {
    remember("ALDER");
    start();
    EXPECT_EQ(form->findChild<QListWidget*>("lstLastRuns"), nullptr);
    showActive(*form);
    EXPECT_TRUE(waitFor([&] { return form->findChild<QListWidget*>("lstLastRuns") != nullptr; }));
}

TEST_F(FrmStartPage, ListsTheLastRunsWithTheirVerdicts) {
    remember("ALDER", QDateTime::currentMSecsSinceEpoch());
    LastRun failed = remember("OTHER", QDateTime({2026, 3, 5}, {14, 3}).toMSecsSinceEpoch(), 7);
    platform.rememberedRuns.back().state = "Failed (status 2)";
    startWithPage();
    ASSERT_EQ(list().count(), 2);
    EXPECT_TRUE(line(0).starts_with("ALDER.DAT, today ")) << line(0);
    EXPECT_TRUE(line(0).ends_with("\n9 of 14 reaches miss a target")) << line(0);
    EXPECT_EQ(line(1), "OTHER.DAT, 5 Mar 2026 14:03\nFailed (status 2)");
    EXPECT_EQ(list().currentRow(), 0) << "the last run is selected";
    EXPECT_EQ(words("lblRun"), "ALDER.DAT");
    EXPECT_EQ(words("lblVerdict"), "9 of 14 reaches miss at least one target; 5 pass for sure.");
    EXPECT_TRUE(list().accessibleDescription().endsWith(
        ". 9 of 14 reaches miss at least one target; 5 pass for sure. The buttons that follow act on it."))
        << list().accessibleDescription().toStdString();
    list().setCurrentRow(1);
    EXPECT_EQ(words("lblRun"), "OTHER.DAT");
    EXPECT_NE(words("lblRunFacts").find("run type 7, effluent standards to meet river targets"),
              std::string::npos);
    EXPECT_FALSE(sees("lblNoRuns"));
}

TEST_F(FrmStartPage, SaysWhatToDoFirstWhereThereAreNoRuns) {
    startWithPage();
    EXPECT_FALSE(sees("lstLastRuns"));
    EXPECT_FALSE(sees("cmdRunAgain"));
    EXPECT_TRUE(sees("lblNoRuns"));
    EXPECT_NE(words("lblNoRuns").find("Choose RUN THE KORVEL MODEL, then 0 BASIC RUN"), std::string::npos);
    EXPECT_TRUE(sees("cmdSamples"));
}

TEST_F(FrmStartPage, IsLeftOutWhereADesktopHasNoRoomForIt) {
    remember("ALDER");
    platform.desktop = {};
    startWithPage();
    for (const char* name : {"lstLastRuns", "lblNoRuns", "cmdSamples", "cmdRunAgain", "lblRun"})
        EXPECT_TRUE(control<QWidget>(*form, name).isHidden()) << name;
}

TEST_F(FrmStartPage, RunsACopyOfTheSample) {
    platform.putEngine();
    putSamples();
    startWithPage();
    platform.willAnswer(Answer::yes);
    click(button("cmdSamples"));
    const std::string done = platform.takeTranscript();
    EXPECT_NE(done.find("box [question] Samples: The sample catchment is made for the demonstration engine."),
              std::string::npos)
        << done;
    EXPECT_TRUE(done.ends_with("start engine {app}\\korvelf157.exe\n")) << done;
    EXPECT_EQ(platform.startedRun.runType, 0);
    ASSERT_EQ(platform.startedRun.dataFiles.size(), 1U);
    EXPECT_TRUE(platform.startedRun.dataFiles.front().ends_with("\\KORVEL-SAMPLES\\ALDER.DAT"));
    EXPECT_EQ(platform.fileText(platform.pathOf("korvel-samples\\ALDER2.DAT")), "second");
    EXPECT_FALSE(platform.hasFile(platform.pathOf("korvel-samples\\README"))) << "data files alone";
    platform.expectDone();
}

TEST_F(FrmStartPage, LeavesACopyOfTheSampleAsItWasChanged) {
    platform.putEngine();
    putSamples();
    platform.putFile(platform.pathOf("korvel-samples\\ALDER.DAT"), "changed");
    startWithPage();
    platform.willAnswer(Answer::yes);
    click(button("cmdSamples"));
    EXPECT_EQ(platform.fileText(platform.pathOf("korvel-samples\\ALDER.DAT")), "changed");
}

TEST_F(FrmStartPage, CopiesNoSampleUnasked) {
    putSamples();
    startWithPage();
    platform.willAnswer(Answer::no);
    click(button("cmdSamples"));
    EXPECT_FALSE(platform.hasFile(platform.pathOf("korvel-samples\\ALDER.DAT")));
    EXPECT_FALSE(GLOBAL.graphResultsPending);
}

TEST_F(FrmStartPage, SaysThatTheSamplesCannotBeCopied) {
    putSamples();
    platform.makesFolders = false;
    startWithPage();
    platform.willAnswer(Answer::yes);
    platform.willAnswer(Answer::ok);
    click(button("cmdSamples"));
    EXPECT_NE(platform.takeTranscript().find(
                  "box [exclamation] Samples: The samples can't be copied: Path/File access error."),
              std::string::npos);
    EXPECT_FALSE(GLOBAL.graphResultsPending);
}

TEST_F(FrmStartPage, OffersNoSamplesWhereThereAreNone) {
    platform.samples = "";
    startWithPage();
    EXPECT_FALSE(sees("cmdSamples"));
    EXPECT_EQ(words("lblNoRuns").find("Samples"), std::string::npos);
}

TEST_F(FrmStartPage, OpensTheGraphsOnTheSelectedRun) {
    remember("ALDER");
    remember("OTHER");
    startWithPage();
    list().setCurrentRow(1);
    std::string nameShown;
    platform.willActOn("frmGraphData", [&](ShownForm& setUp) {
        nameShown = control<QLabel>(setUp, "lblFileName_0").text().toStdString();
    });
    click(button("cmdRunGraphs"));
    EXPECT_EQ(platform.takeTranscript(), "show modal frmGraphData\nclosed frmGraphData\n");
    EXPECT_EQ(nameShown, "OTHER.SGR");
    EXPECT_FALSE(GLOBAL.graphResultsPending);
    EXPECT_EQ(list().currentRow(), 1) << "still selected afterwards";
}

TEST_F(FrmStartPage, OpensTheReportsOnTheSelectedRun) {
    remember("ALDER");
    startWithPage();
    platform.willActOn("frmReports", [&](ShownForm& reports) {
        EXPECT_GT(control<QListWidget>(reports, "lstReaches").count(), 0);
    });
    click(button("cmdRunReports"));
    EXPECT_EQ(platform.takeTranscript(), "show modal frmReports\nclosed frmReports\n");
    EXPECT_EQ(GLOBAL.fileNames[0], platform.pathOf("ALDER.SGR"));
    EXPECT_FALSE(GLOBAL.reportResultsPending);
}

TEST_F(FrmStartPage, ExploresTheSelectedRun) {
    remember("ALDER");
    startWithPage();
    click(button("cmdRunExplore"));
    EXPECT_EQ(platform.takeTranscript(), "explore {app}\\ALDER.SGR\n");
}

TEST_F(FrmStartPage, RunsTheSelectedRunAgainWithItsType) {
    platform.putEngine();
    remember("alder", 1000, 6);
    startWithPage();
    click(button("cmdRunAgain"));
    const std::string done = platform.takeTranscript();
    EXPECT_EQ(done.find("open dialog"), std::string::npos) << done;
    EXPECT_TRUE(done.ends_with("start engine {app}\\korvelf157.exe\n")) << done;
    EXPECT_EQ(platform.startedRun.runType, 6);
    ASSERT_EQ(platform.startedRun.dataFiles.size(), 1U);
    EXPECT_TRUE(platform.startedRun.dataFiles.front().ends_with("\\ALDER.DAT"));
    EXPECT_EQ(title(), "KORVEL");
    EXPECT_TRUE(GLOBAL.graphResultsPending) << "as after any run";
    EXPECT_FALSE(GLOBAL.RunStarting);
    platform.expectDone();
}

TEST_F(FrmStartPage, RunsNothingAgainThatTheRunMenuWouldRefuse) {
    platform.putEngine();
    remember(std::string(27, 'A'));
    startWithPage();
    platform.willAnswer(Answer::ok);
    click(button("cmdRunAgain"));
    EXPECT_NE(platform.takeTranscript().find("box [exclamation] Input Data File: File name too long."),
              std::string::npos);
    EXPECT_FALSE(platform.hasFile("RUNDAT.TMP"));
}

TEST_F(FrmStartPage, OffersNothingOnFilesThatAreGone) {
    remember("ALDER");
    platform.platform().files.remove(platform.pathOf("ALDER.SGR"));
    startWithPage();
    EXPECT_TRUE(line(0).ends_with("\nThe results file is gone")) << line(0);
    EXPECT_TRUE(button("cmdRunAgain").isEnabled());
    for (const char* name : ofResults)
        EXPECT_FALSE(button(name).isEnabled()) << name;
    QTest::keyClick(&list(), Qt::Key_Return);
    EXPECT_EQ(platform.takeTranscript(), "") << "nor by the key";
    platform.putFile("ALDER.SGR", "results");
    platform.platform().files.remove(platform.pathOf("ALDER.DAT"));
    static_cast<ShownForm&>(*form).activate();
    EXPECT_FALSE(button("cmdRunAgain").isEnabled());
    for (const char* name : ofResults)
        EXPECT_TRUE(button(name).isEnabled()) << name;
}

TEST_F(FrmStartPage, SaysThatResultsAreNoLongerTheRuns) {
    remember("ALDER");
    platform.rememberedRuns.front().resultsStamp -= 60000;
    startWithPage();
    EXPECT_TRUE(line(0).ends_with("\nThe results file has changed since this run")) << line(0);
    EXPECT_EQ(words("lblVerdict"), "The results file has changed since this run.");
}

TEST_F(FrmStartPage, TakesInARunThatHasEndedMeanwhile) {
    remember("ALDER");
    startWithPage();
    const LastRun newer = remember("NEWER", 2000);
    std::ranges::rotate(platform.rememberedRuns, platform.rememberedRuns.end() - 1);
    platform.lastRunsChanged();
    EXPECT_TRUE(waitFor([&] { return list().count() == 2; }));
    EXPECT_TRUE(line(0).starts_with("NEWER.DAT")) << line(0);
    EXPECT_EQ(list().currentRow(), 0);
    EXPECT_EQ(words("lblRun"), "NEWER.DAT") << "the run to look at now";
}

TEST_F(FrmStartPage, KeepsTheSelectionWhereNoRunHasEnded) {
    remember("ALDER", 2000);
    remember("OTHER", 1000);
    startWithPage();
    list().setCurrentRow(1);
    platform.rememberedRuns.back().verdict = "told anew";
    platform.lastRunsChanged();
    EXPECT_TRUE(waitFor([&] { return line(1).ends_with("told anew"); }));
    EXPECT_EQ(words("lblRun"), "OTHER.DAT");
}

TEST_F(FrmStartPage, SelectsTheRunThatWasRunAgain) {
    remember("ALDER", 2000);
    remember("OTHER", 1000);
    startWithPage();
    platform.rememberedRuns.back().ended = 3000;
    std::ranges::rotate(platform.rememberedRuns, platform.rememberedRuns.end() - 1);
    platform.lastRunsChanged();
    EXPECT_TRUE(waitFor([&] { return line(0).starts_with("OTHER.DAT"); }));
    EXPECT_EQ(words("lblRun"), "OTHER.DAT");
}

TEST_F(FrmStartPage, HasLettersThatGrowWithTheScreen) {
    remember("ALDER");
    const auto points = [&](double width, double height) {
        platform.desktop = {0, 0, width * 15, height * 15};
        startWithPage();
        for (const char* name : {"lblRun", "lblVerdict", "cmdRunAgain", "cmdSamples", "lblLastRuns"})
            EXPECT_EQ(control<QWidget>(*form, name).font().pointSizeF(), list().font().pointSizeF()) << name;
        return list().font().pointSizeF();
    };
    EXPECT_NEAR(points(1366, 768), 10, 0.01);
    EXPECT_NEAR(points(1920, 1080), 14.1, 0.1);
    for (const char* name : {"lblNextStep", "cmdExplore", "cmdGuide"})
        EXPECT_NEAR(control<QWidget>(*form, name).font().pointSizeF(), 14.1, 0.1) << name;
    EXPECT_GT(placeOf("cmdExplore").top(), placeOf("lblNextStep").bottom());
    EXPECT_LT(placeOf("cmdExplore").right(), placeOf("cmdGuide").left());
    EXPECT_LT(placeOf("cmdGuide").bottom(), placeOf("lineAddress_0").top());
    EXPECT_GE(button("cmdGuide").height(), button("cmdGuide").fontMetrics().height() + 4);
    EXPECT_NEAR(points(1080, 1920), 10, 0.01);
}

TEST_F(FrmStartPage, IsReachedAndWorkedByKeys) {
    remember("ALDER");
    remember("OTHER");
    startWithPage();
    QTest::keyClick(form.get(), Qt::Key_T, Qt::AltModifier);
    EXPECT_EQ(QApplication::focusWidget(), &list());
    QTest::keyClick(&list(), Qt::Key_Down);
    EXPECT_EQ(words("lblRun"), "OTHER.DAT");
    std::string stops;
    for (int k = 0; k < 7; ++k) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        stops += QApplication::focusWidget()->objectName().toStdString() + " ";
    }
    EXPECT_EQ(stops, "cmdSamples cmdRunAgain cmdRunGraphs cmdRunReports cmdRunExplore cmdExplore cmdGuide ");
    platform.willActOn("frmGraphData", [](ShownForm&) {});
    QTest::keyClick(&list(), Qt::Key_Return);
    EXPECT_EQ(platform.takeTranscript(), "show modal frmGraphData\nclosed frmGraphData\n");
}

TEST_F(FrmStartPage, HasWordsThatStandOut) {
    for (const bool withRuns : {true, false}) {
        if (withRuns) remember("ALDER");
        startWithPage();
        expectWordsStandOut(*form);
        const Dark dark;
        passEvents();
        expectWordsStandOut(*form);
        platform.rememberedRuns.clear();
    }
}

TEST_F(FrmStartPage, TakesNoKeyOfMenusAndButtons) {
    remember("ALDER");
    startWithPage();
    std::set<QKeySequence> keys;
    for (const QAction* item : form->menuBar()->actions())
        keys.insert(QKeySequence::mnemonic(item->text()));
    std::vector<QString> captions{control<QLabel>(*form, "lblLastRuns").text()};
    for (const QPushButton* each : form->findChildren<QPushButton*>())
        captions.push_back(each->text());
    EXPECT_EQ(captions.size(), 8U);
    for (const QString& caption : captions) {
        const QKeySequence key = QKeySequence::mnemonic(caption);
        EXPECT_FALSE(key.isEmpty()) << caption.toStdString();
        EXPECT_TRUE(keys.insert(key).second) << caption.toStdString();
    }
}

TEST_F(FrmStartPage, KeepsToItsRoomOnAllDesktops) {
    remember("ALDER");
    for (const bool withRuns : {true, false}) {
        if (!withRuns) platform.rememberedRuns.clear();
        for (const QSize& desktop : {QSize(1024, 768), QSize(1280, 720), QSize(1366, 768), QSize(1920, 1080),
                                     QSize(3840, 2160), QSize(1080, 1920)}) {
            platform.desktop = {0, 0, desktop.width() * 15.0, desktop.height() * 15.0};
            startWithPage();
            const auto where = std::to_string(desktop.width()) + (withRuns ? "" : " without runs");
            const QRect runs = placeOf("frameLastRuns"), next = placeOf("frameNextSteps");
            EXPECT_LT(runs.right(), placeOf("shpLogo_0").left()) << where;
            EXPECT_GT(next.left(), placeOf("shpLogo_6").right()) << where;
            EXPECT_GT(runs.top(), placeOf("lblEngine").bottom()) << where;
            EXPECT_LE(runs.bottom(), placeOf("lblNextStep").top()) << where;
            EXPECT_TRUE(form->centralWidget()->rect().contains(runs | next)) << where;
            for (const QLabel* label :
                 form->findChildren<QLabel*>(QRegularExpression("^lbl(LastRuns|NoRuns|Run.*|Verdict)$")))
                if (label->isVisible()) {
                    EXPECT_GE(label->height(), label->heightForWidth(label->width()))
                        << where << label->text().toStdString();
                }
            for (const QPushButton* each :
                 form->findChildren<QPushButton*>(QRegularExpression("^cmd(Run|Samples)")))
                if (each->isVisible()) {
                    EXPECT_TRUE(each->parentWidget()->rect().contains(each->geometry()))
                        << where << each->text().toStdString();
                    EXPECT_GE(each->height(), each->sizeHint().height()) << where;
                }
        }
    }
}

} // namespace korvel
