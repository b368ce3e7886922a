// The main form: what its menus and buttons do, with the questions it asks and the files it writes.
#include "forms/FrmStartFixture.h"

namespace korvel {

TEST_F(FrmStart, OpensADataFileFromItsItem) {
    start();
    platform.willChoose("C:\\data\\test.dat");
    choose(*form, "mnuOpen");
    EXPECT_EQ(platform.takeTranscript(), openDialog +
                                             "folder \"C:\\OLD\" overwritePrompt no -> C:\\data\\test.dat\n"
                                             "current folder {app}\n");
    EXPECT_EQ(title(), "KORVEL:  TEST");
    EXPECT_EQ(platform.fileText("MISC.TXT"), "C:\\data\r\n\r\nFalse\r\n");
    EXPECT_FALSE(shows("lblEditWarning"));
    EXPECT_FALSE(control<QAction>(*form, "mnuEditText").isEnabled());
}

TEST_F(FrmStart, ShowsANewDataFileAfterACancelledOpen) {
    start();
    platform.willCancel();
    choose(*form, "mnuOpen");
    EXPECT_EQ(title(), "KORVEL:  New Data");
    EXPECT_FALSE(control<QAction>(*form, "mnuSave").isEnabled());
    EXPECT_TRUE(control<QAction>(*form, "mnuSaveAs").isEnabled());
    EXPECT_FALSE(control<QAction>(*form, "mnuEditText").isEnabled());
    EXPECT_TRUE(control<QAction>(*form, "mnuRun").isEnabled());
    EXPECT_EQ(platform.fileText("MISC.TXT"), "C:\\OLD\r\n0\r\nFalse\r\n") << "not written";
}

TEST_F(FrmStart, TellsAnUnexpectedErrorOfTheOpenDialog) {
    start();
    platform.willFailDialog(RunTimeError(57, "Device I/O error"));
    platform.willAnswer(Answer::ok);
    choose(*form, "mnuOpen");
    EXPECT_EQ(
        platform.takeTranscript(),
        openDialog +
            "folder \"C:\\OLD\" overwritePrompt no -> error 57\n"
            "box [critical] Unexpected KORVEL Error: The following unexpected error has occurred during "
            "an attempt to open a data file. Please report this to the System Manager:\n\n"
            "Error 57: 'Device I/O error' -> ok\n");
    EXPECT_EQ(title(), "KORVEL:  New Data");
}

TEST_F(FrmStart, SaveSwitchesEditTextOnAndWritesNothing) {
    start();
    switchOn("mnuSave");
    choose(*form, "mnuSave");
    EXPECT_EQ(platform.takeTranscript(), "");
    EXPECT_TRUE(control<QAction>(*form, "mnuEditText").isEnabled());
    EXPECT_FALSE(shows("lblEditWarning"));
}

TEST_F(FrmStart, SavesUnderANewNameAndPromptsFromTheNextDialogOn) {
    start();
    for (const char* prompt : {"no", "yes"}) {
        switchOn("mnuSaveAs");
        platform.willChoose("C:\\data\\new.dat");
        choose(*form, "mnuSaveAs");
        EXPECT_EQ(platform.takeTranscript(), saveDialog + "folder \"\" overwritePrompt " + prompt +
                                                 " -> C:\\data\\new.dat\ncurrent folder {app}\n");
        EXPECT_EQ(title(), "KORVEL:  NEW");
    }
    EXPECT_FALSE(shows("lblEditWarning"));
}

TEST_F(FrmStart, LeavesTheTitleWhereSaveAsRefusesTheExtension) {
    start();
    const std::string before = title();
    switchOn("mnuSaveAs");
    platform.willChoose("C:\\data\\new.txt");
    platform.willAnswer(Answer::ok);
    choose(*form, "mnuSaveAs");
    EXPECT_TRUE(platform.takeTranscript().ends_with(
        "box [exclamation] Input data file: The input data file extension must be .DAT. -> ok\n"));
    EXPECT_EQ(title(), before);
}

TEST_F(FrmStart, RunsEachTypeFromItsItem) {
    platform.putEngine();
    start();
    for (int type = 0; type <= 9; ++type) {
        platform.willChoose("C:\\data\\test.dat");
        choose(*form, runItem(type));
        EXPECT_TRUE(platform.takeTranscript().ends_with(" -> C:\\data\\test.dat\n"
                                                        "current folder {app}\n"
                                                        "current folder {app}\n"
                                                        "start engine {app}\\korvelf157.exe\n"))
            << type;
        EXPECT_EQ(platform.fileText("RUNDAT.TMP"),
                  "SINGLE\r\nC:\\DATA\\\r\nC:\\DATA\\TEST.DAT\r\n " + std::to_string(type) + " \r\n");
        EXPECT_EQ(title(), "KORVEL");
    }
    EXPECT_EQ(GLOBAL.fileNames[0], "C:\\DATA\\TEST.SGR");
    EXPECT_TRUE(GLOBAL.graphResultsPending);
    EXPECT_TRUE(GLOBAL.reportResultsPending);
    EXPECT_FALSE(shows("lblEditWarning"));
}

TEST_F(FrmStart, StartsNothingWhereTheDataFileOfARunIsRefused) {
    platform.putEngine();
    start();
    platform.willChoose("C:\\data\\" + std::string(27, 'A') + ".DAT");
    platform.willAnswer(Answer::ok);
    choose(*form, "mnuRun0");
    EXPECT_TRUE(platform.takeTranscript().ends_with("box [exclamation] Input Data File: File name too long. "
                                                    "Must be not more than 30 characters, -> ok\n"));
    EXPECT_FALSE(platform.hasFile("RUNDAT.TMP"));
    EXPECT_EQ(title(), "KORVEL");
}

TEST_F(FrmStart, ShowsNewDataAfterACancelledRun) {
    platform.putEngine();
    start();
    platform.willCancel();
    choose(*form, "mnuRun0");
    EXPECT_EQ(title(), "KORVEL:  New Data");
    EXPECT_TRUE(GLOBAL.RunStarting);
    EXPECT_FALSE(platform.hasFile("RUNDAT.TMP"));
    static_cast<ShownForm&>(*form).activate();
    EXPECT_FALSE(GLOBAL.RunStarting);
}

TEST_F(FrmStart, EndsTheProgramWhereTheEngineIsMissing) {
    start();
    platform.willChoose("C:\\data\\test.dat");
    choose(*form, "mnuRun0");
    EXPECT_TRUE(platform.takeTranscript().ends_with("fail program: Run-time error '53': File not found\n"));
}

TEST_F(FrmStart, OpensTheGraphsOnTheResultsOfARun) {
    platform.putEngine();
    platform.putFile("RIVER.SGR", longRiver());
    start();
    platform.willChoose(platform.pathOf("river.dat"));
    choose(*form, "mnuRun0");
    platform.takeTranscript();
    std::string nameShown;
    platform.willActOn("frmGraphData", [&](ShownForm& setUp) {
        nameShown = control<QLabel>(setUp, "lblFileName_0").text().toStdString();
    });
    choose(*form, "mnuGraphs");
    EXPECT_EQ(platform.takeTranscript(), "show modal frmGraphData\nclosed frmGraphData\n");
    EXPECT_EQ(nameShown, "RIVER.SGR");
    EXPECT_FALSE(GLOBAL.graphResultsPending);
    EXPECT_TRUE(GLOBAL.reportResultsPending);
}

TEST_F(FrmStart, GraphsHidesTheEditWarning) {
    start();
    platform.willActOn("frmGraphData", [&](ShownForm&) { EXPECT_FALSE(shows("lblEditWarning")); });
    choose(*form, "mnuGraphs");
    EXPECT_FALSE(shows("lblEditWarning"));
}

TEST_F(FrmStart, ReportsHidesTheEditWarning) {
    start();
    platform.willActOn("frmReports", [&](ShownForm&) { EXPECT_FALSE(shows("lblEditWarning")); });
    choose(*form, "mnuReports");
    EXPECT_EQ(platform.takeTranscript(), "show modal frmReports\nclosed frmReports\n");
}

TEST_F(FrmStart, MakesThreeFormsAtStartAndTheOthersWhenTheyAreUsedFirst) {
    const auto made = [] {
        std::set<std::string> names;
        for (const QWidget* widget : QApplication::topLevelWidgets())
            if (dynamic_cast<const Form*>(widget) != nullptr)
                names.insert(widget->objectName().toStdString());
        return names;
    };
    start();
    std::set<std::string> expected = {"frmStart", "frmGraphData", "frmReports", "frmSimgraph"};
    EXPECT_EQ(made(), expected);
    choose(*form, "mnuBatch");
    expected.insert("frmBatch");
    EXPECT_EQ(made(), expected);
    const QWidget* const batch = &formNamed("frmBatch");
    choose(*form, "mnuBatch");
    EXPECT_EQ(&formNamed("frmBatch"), batch) << "the same one again";
    platform.takeTranscript();
}

TEST_F(FrmStart, SaysWhereTheEngineLiesUntilARunWasStarted) {
    start();
    showActive(*form);
    auto& told = control<QLabel>(*form, "lblEngine");
    EXPECT_TRUE(told.isVisible());
    EXPECT_EQ(told.toolTip().toStdString(), "Runs use korvelf157.exe in " + hostPathOf(platform.folder()) +
                                                ". Put your own engine in its place.");
    platform.putFile("RUNDAT.TMP", "");
    static_cast<ShownForm&>(*form).activate();
    EXPECT_FALSE(told.isVisible());
}

TEST_F(FrmStart, BatchRunIsModelessAndLeavesTheEditWarning) {
    start();
    choose(*form, "mnuBatch");
    EXPECT_EQ(platform.takeTranscript(), "show modeless frmBatch\n");
    EXPECT_TRUE(shows("lblEditWarning"));
}

TEST_F(FrmStart, F1OpensHelpOnPage4) {
    platform.putFile("KORDAT4.TXT", "1\r\n2\r\n3\r\nTHE DATA FILE\r\nnot shown\r\n");
    start();
    showActive(*form);
    std::string firstRow;
    platform.willActOn("frmHelp", [&](ShownForm& help) {
        firstRow = control<QTableWidget>(help, "grdHelp").item(0, 0)->text().toStdString();
    });
    QTest::keyClick(form.get(), Qt::Key_F1);
    EXPECT_EQ(platform.takeTranscript(), "show modal frmHelp\nclosed frmHelp\n");
    EXPECT_EQ(firstRow, "THE DATA FILE");
    EXPECT_EQ(GLOBAL.helpPage, "4");
}

TEST_F(FrmStart, F1OpensHelpInEveryGivenForm) {
    platform.putFile("KORDAT4.TXT", "1\r\n2\r\n3\r\nTHE DATA FILE\r\nnot shown\r\n");
    start();
    const auto pressF1 = [&](ShownForm& shown) {
        auto& widget = dynamic_cast<QWidget&>(shown);
        showActive(widget);
        GLOBAL.helpPage = "7";
        platform.willActOn("frmHelp", [&](ShownForm&) { EXPECT_EQ(GLOBAL.helpPage, "4"); });
        QTest::keyClick(&widget, Qt::Key_F1);
        widget.hide();
    };
    for (const auto& [item, name] : {std::pair("mnuGraphs", "frmGraphData"), {"mnuReports", "frmReports"}}) {
        platform.willActOn(name, pressF1);
        choose(*form, item);
        EXPECT_NE(platform.takeTranscript().find("show modal frmHelp"), std::string::npos) << name;
    }
    choose(*form, "mnuBatch");
    for (const char* const name : {"frmBatch", "frmSimgraph"}) {
        pressF1(dynamic_cast<ShownForm&>(formNamed(name)));
        EXPECT_NE(platform.takeTranscript().find("show modal frmHelp"), std::string::npos) << name;
    }
}

TEST_F(FrmStart, ExploresTheLastRunsResultsElseAsks) {
    start();
    platform.putFile("OTHER.SGR", "results");
    platform.willChoose(platform.pathOf("OTHER.SGR"));
    control<QPushButton>(*form, "cmdExplore").click();
    EXPECT_NE(platform.takeTranscript().find("explore {app}\\OTHER.SGR\n"), std::string::npos);
    GLOBAL.fileNames[0] = platform.pathOf("RUN.SGR");
    platform.willCancel(); // the run has left nothing yet
    control<QPushButton>(*form, "cmdExplore").click();
    EXPECT_EQ(platform.takeTranscript().find("explore {app}"), std::string::npos);
    platform.putFile("RUN.SGR", "results");
    showActive(*form);
    QTest::keyClick(form.get(), Qt::Key_E, Qt::ControlModifier);
    EXPECT_EQ(platform.takeTranscript(), "explore {app}\\RUN.SGR\n");
    platform.expectDone();
}

TEST_F(FrmStart, CtrlEExploresWhatIsLoadedInEveryFormOfResults) {
    start();
    GLOBAL.fileNames[0] = "Z:\\A.SGR";
    GLOBAL.fileNames[1] = "Z:\\B.SGR";
    RESULTS.slotLoaded[0] = RESULTS.slotLoaded[1] = true;
    for (const char* const name : {"frmGraphData", "frmReports", "frmSimgraph"}) {
        QWidget& shown = formNamed(name);
        showActive(shown);
        QTest::keyClick(&shown, Qt::Key_E, Qt::ControlModifier);
        EXPECT_EQ(platform.takeTranscript(), "explore Z:\\A.SGR Z:\\B.SGR\n") << name;
        shown.hide();
        RESULTS.slotLoaded[1] = true;
    }
    RESULTS.slotLoaded[0] = RESULTS.slotLoaded[1] = false;
}

TEST_F(FrmStart, ExploresResultsFilesThatAreDroppedOnIt) {
    start();
    QMimeData files;
    files.setUrls({QUrl::fromLocalFile("/data/A.sgr"), QUrl::fromLocalFile("/data/notes.txt")});
    QDragEnterEvent over({10, 10}, Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(form.get(), &over);
    EXPECT_TRUE(over.isAccepted());
    QDropEvent drop({10, 10}, Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(form.get(), &drop);
    EXPECT_EQ(platform.takeTranscript(), "explore Z:\\data\\A.sgr\n");
    QMimeData others;
    others.setUrls({QUrl::fromLocalFile("/data/notes.txt")});
    QDragEnterEvent enter({10, 10}, Qt::CopyAction, &others, Qt::LeftButton, Qt::NoModifier);
    enter.ignore();
    QApplication::sendEvent(form.get(), &enter);
    EXPECT_FALSE(enter.isAccepted());
}

TEST_F(FrmStart, SaysThatMoreThanTwelveFilesAreTooManyToExplore) {
    start();
    QMimeData files;
    QList<QUrl> names;
    for (int run = 1; run <= 13; ++run)
        names << QUrl::fromLocalFile(QString("/data/%1.sgr").arg(run));
    files.setUrls(names);
    QDragEnterEvent over({10, 10}, Qt::MoveAction | Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(form.get(), &over);
    EXPECT_EQ(over.dropAction(), Qt::CopyAction) << "the files stay where they are";
    QDropEvent drop({10, 10}, Qt::MoveAction, &files, Qt::LeftButton, Qt::NoModifier);
    platform.willAnswer(Answer::ok);
    QApplication::sendEvent(form.get(), &drop);
    const std::string transcript = platform.takeTranscript();
    EXPECT_NE(transcript.find("The Explorer takes 12 results files at most."), std::string::npos)
        << transcript;
    EXPECT_EQ(transcript.find("explore Z:"), std::string::npos) << transcript;
    platform.expectDone();
}

TEST_F(FrmStart, MakesTheProgressFrameReadyAsItHidesTheEditWarning) {
    start();
    EXPECT_FALSE(shows("Progress"));
    platform.willCancel();
    choose(*form, "mnuOpen");
    EXPECT_FALSE(shows("frameProgress"));
    EXPECT_EQ(control<QFrame>(*form, "frameProgress").palette().color(QPalette::Window), QColor(Qt::white));
    for (const char* name : {"Progress", "lblProgress", "lblProgress2"})
        EXPECT_TRUE(shows(name)) << name;
    EXPECT_EQ(control<QProgressBar>(*form, "Progress").value(), 0);
}

TEST_F(FrmStart, PrinterSetupAndDisplayOptionsLeaveTheEditWarning) {
    start();
    platform.willChoosePrinter();
    choose(*form, "mnuPrinterSetup");
    for (const char* item :
         {"mnuSuppressInterpolated", "mnuSuppressFeatures", "mnuSuppressReaches", "mnuDisplayFull"})
        choose(*form, item);
    EXPECT_TRUE(shows("lblEditWarning"));
}

TEST_F(FrmStart, ItemsWithoutAnActionChangeNothing) {
    start();
    const std::string before = title() + marks() + menuListing(*form->menuBar());
    for (const char* item : {"mnuEditText", "mnuTextEditor", "mnuHelp"}) {
        switchOn(item);
        choose(*form, item);
    }
    EXPECT_EQ(platform.takeTranscript(), "");
    EXPECT_EQ(title() + marks() + menuListing(*form->menuBar()), before);
    EXPECT_TRUE(shows("lblEditWarning"));
}

TEST_F(FrmStart, PrinterSetupSwallowsErrors) {
    start();
    platform.willFailPrinterDialog(RunTimeError(errors::printerError));
    choose(*form, "mnuPrinterSetup");
    EXPECT_EQ(platform.takeTranscript(), "printer dialog cdPrinterSetup\n");
    EXPECT_FALSE(platform.ended());
}

} // namespace korvel
