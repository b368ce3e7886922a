// The main form, from its menu items to the questions it asks and the files it writes.
#include "app/frmStart.h"

#include "basic/DiskNames.h"
#include "fakes/FakePlatform.h"
#include "forms/FormDriver.h"
#include "forms/GraphForms.h"
#include "global/GLOBAL.h"
#include "results/ResultsDataSet.h"

#include <QKeySequence>
#include <QLabel>
#include <QMimeData>
#include <QProgressBar>
#include <QPushButton>
#include <QRegularExpression>
#include <QTableWidget>
#include <QTest>
#include <QUrl>

#include <set>

namespace korvel {

namespace {

const std::string openDialog =
    "open dialog \"Open KORVEL data file ...\" filter \"Korvel input data (*.DAT)|*.DAT\" ";
const std::string saveDialog =
    "save dialog \"Save KORVEL input data file\" filter \"Korvel input data (*.DAT)|*.DAT\" ";
const std::string modifiedData = "box [question] Modified data: Do you wish to save the modified data, "
                                 "before exiting KORVEL? -> ";

class FrmStart : public CleanGlobals {
  protected:
    FrmStart() { putSettings("0"); }

    void putSettings(const std::string& level) {
        platform.putFile("MISC.TXT", "C:\\OLD\r\n" + level + "\r\nFalse\r\n");
    }
    frmStart& start() {
        form = std::make_unique<frmStart>(platform);
        platform.setBottomForm(*form);
        form->load();
        platform.platform().windows.showModeless(*form);
        EXPECT_EQ(platform.takeTranscript(), "show modeless frmStart\n");
        return *form;
    }
    void startOn(double width, double height) {
        platform.desktop = {0, 0, width, height};
        start();
    }
    void switchOn(const char* item) { control<QAction>(*form, item).setEnabled(true); }
    bool shows(const char* name) { return !control<QWidget>(*form, name).isHidden(); }
    QRect placeOf(const std::string& name) { return control<QWidget>(*form, name).geometry(); }
    std::string title() { return form->windowTitle().toStdString(); }
    std::string marks() {
        std::string marks;
        for (const char* item :
             {"mnuDisplayFull", "mnuSuppressInterpolated", "mnuSuppressFeatures", "mnuSuppressReaches"})
            marks += control<QAction>(*form, item).isChecked() ? 'x' : '-';
        return marks;
    }

    FakePlatform platform;
    std::unique_ptr<frmStart> form;
};

std::string runItem(int type) {
    return "mnuRun" + std::to_string(type);
}

} // namespace

TEST_F(FrmStart, HasItsMenusInOrder) {
    start();
    EXPECT_EQ(menuListing(*form->menuBar()),
              "mnuExit|&Exit\n"
              "mnuFile|&File\n"
              "  mnuOpen|&Open\n"
              "  mnuSave|&Save\n"
              "  mnuSaveAs|Save &As\n"
              "mnuEditText|&Edit text\n"
              "mnuRun|     &RUN THE KORVEL MODEL ...            \n"
              "  mnuRun0|&0   BASIC RUN BASIC RUN BASIC RUN ...\n"
              "  mnuRun1|&1   Gap filling of river flows\n"
              "  mnuRun2|&2   Use the gap filled river flows\n"
              "  mnuRun3|&3   Gap filling of water quality\n"
              "  mnuRun4|&4   Run the full gap filled model\n"
              "  mnuRun5|&5   Perform options 1 and 3 in sequence\n"
              "  mnuRun6|&6   Perfom options 1, 3 and 4 in sequence\n"
              "  mnuRun7|&7   Set effluent standards to meet river targets\n"
              "  mnuRun8|&8   As 7 with aspects of no deterioration\n"
              "  mnuRun9|&9   As 8 assuming mid-class upstream quality standards\n"
              "mnuReports|&Reports\n"
              "mnuGraphs|     &Graphs\n"
              "mnuBatch|     &Batch Run\n"
              "mnuOptions|          &Options\n"
              "  mnuPrinterSetup|&Printer Setup\n"
              "  mnuTextEditor|&Text Editor\n"
              "  mnuREsultDisplayOptions|&Result Display Options\n"
              "    mnuDisplayFull|Display full results\n"
              "    mnuSuppressInterpolated|Suppress interpolated points\n"
              "    mnuSuppressFeatures|Suppress features\n"
              "    mnuSuppressReaches|Suppress reaches\n"
              "mnuHelp|Online &Manual\n");
}

TEST_F(FrmStart, HasButtonsThatTakeNoKeyOfItsMenus) {
    start();
    std::set<QKeySequence> keys;
    for (const QAction* item : form->menuBar()->actions())
        keys.insert(QKeySequence::mnemonic(item->text()));
    for (const char* name : {"cmdExplore", "cmdGuide"}) {
        const QKeySequence key = QKeySequence::mnemonic(control<QPushButton>(*form, name).text());
        EXPECT_FALSE(key.isEmpty()) << name;
        EXPECT_TRUE(keys.insert(key).second) << name << " shares " << key.toString().toStdString();
    }
}

TEST_F(FrmStart, HasItsTwoButtonsInTheMiddle) {
    for (const QSize& desktop : {QSize(1366, 768), QSize(1920, 1080), QSize(1080, 1920)}) {
        startOn(desktop.width(), desktop.height());
        const QRect explore = placeOf("cmdExplore"), guide = placeOf("cmdGuide");
        EXPECT_LT(explore.right(), guide.left());
        EXPECT_EQ(explore.top(), guide.top());
        const QRect texts = placeOf("lblNextStep");
        EXPECT_NEAR(explore.united(guide).center().x(), texts.center().x(), 2) << desktop.width();
    }
}

TEST_F(FrmStart, NamesItsSubmenusLikeTheirItems) {
    start();
    for (const char* name : {"mnuFile", "mnuRun", "mnuOptions", "mnuREsultDisplayOptions"})
        EXPECT_EQ(control<QMenu>(*form, name).menuAction()->objectName(), name);
}

TEST_F(FrmStart, GreysTheItemsWithNothingBehindThem) {
    start();
    EXPECT_EQ(greyedItems(*form->menuBar()),
              (std::vector<std::string>{"mnuFile", "mnuOpen", "mnuSave", "mnuSaveAs", "mnuEditText",
                                        "mnuTextEditor", "mnuHelp"}));
}

TEST_F(FrmStart, ShowsProductVersionAndReleaseDateAtStart) {
    start();
    const std::string product = control<QLabel>(*form, "lblKorvel_0").text().toStdString();
    EXPECT_TRUE(
        QString::fromStdString(product).contains(QRegularExpression("^KORVEL \\d+\\.\\d+(\\.\\d+)?$")));
    EXPECT_EQ(control<QLabel>(*form, "lblKorvel_1").text().toStdString(), product);
    EXPECT_TRUE(title().starts_with(product + " ... ")) << title();
    EXPECT_TRUE(form->windowTitle().contains(QRegularExpression(" \\d{4}$"))) << title();
}

TEST_F(FrmStart, HasAllItsControls) {
    start();
    for (const char* name : {"frameCD", "frameProgress", "Progress", "lblProgress2", "lblProgress",
                             "lblEditWarning", "lblAddress_0", "lineAddress_0", "lblKorvel_0", "lblKorvel_1"})
        EXPECT_NO_THROW(control<QWidget>(*form, name)) << name;
    for (int i = 0; i < 7; ++i)
        EXPECT_NO_THROW(control<QWidget>(*form, "shpLogo_" + std::to_string(i))) << i;
    EXPECT_THROW(control<QWidget>(*form, "shpLogo_7"), std::runtime_error);
    EXPECT_EQ(control<QLabel>(*form, "lblProgress").text(), "Opening");
    EXPECT_FALSE(shows("frameCD"));
    EXPECT_FALSE(shows("frameProgress"));
}

TEST_F(FrmStart, OpensTheGuide) {
    showActive(start());
    platform.takeTranscript();
    click(control<QPushButton>(*form, "cmdGuide"));
    EXPECT_EQ(platform.takeTranscript(), "guide /share/guide.html\n");
}

TEST_F(FrmStart, ShowsTheEditWarningAtStart) {
    start();
    EXPECT_TRUE(shows("lblEditWarning"));
    EXPECT_EQ(control<QLabel>(*form, "lblEditWarning").text(),
              "WARNING: If you have modified and saved data using the Edit Text facility, you need to 'Open' "
              "the file again without clicking 'Save' beforehand.");
}

TEST_F(FrmStart, MakesTheResultsFormsAtStartHiddenAndOfItsOwnSize) {
    platform.desktop = {300, 450, 20490, 11520};
    start();
    for (const char* name : {"frmStart", "frmGraphData", "frmReports", "frmSimgraph"}) {
        const QWidget& made = formNamed(name);
        EXPECT_TRUE(made.isHidden()) << name;
        EXPECT_EQ(made.geometry(), QRect(20, 30, 1366, 768)) << name;
    }
}

TEST_F(FrmStart, EndsAtStartWithoutItsSettingsFile) {
    platform.platform().files.remove(platform.pathOf("MISC.TXT"));
    form = std::make_unique<frmStart>(platform);
    Handlers(platform.platform().windows).run([&] { form->load(); });
    EXPECT_EQ(platform.takeTranscript(), "fail program: Run-time error '53': File not found\n");
}

TEST_F(FrmStart, EndsAtStartOnAFlagThatItDoesNotSupport) {
    platform.putFile("MISC.TXT", "C:\\OLD\r\n\r\nTrue\r\n");
    form = std::make_unique<frmStart>(platform);
    Handlers(platform.platform().windows).run([&] { form->load(); });
    EXPECT_EQ(platform.takeTranscript(),
              "fail program: Run-time error '438': Object doesn't support this property or method\n");
}

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

TEST_F(FrmStart, MarksTheDisplayLevelAndWritesTheFileWithoutIt) {
    start();
    EXPECT_EQ(marks(), "x---");
    const std::vector<std::pair<const char*, std::string>> levels = {
        {"mnuSuppressReaches", "-xxx"},  {"mnuSuppressInterpolated", "-x--"}, {"mnuSuppressFeatures", "-xx-"},
        {"mnuSuppressFeatures", "-xx-"}, {"mnuDisplayFull", "x---"},          {"mnuDisplayFull", "x---"}};
    for (const auto& [item, expected] : levels) {
        platform.putFile("MISC.TXT", "");
        choose(*form, item);
        EXPECT_EQ(marks(), expected) << item;
        EXPECT_EQ(platform.fileText("MISC.TXT"), "C:\\OLD\r\n\r\nFalse\r\n") << item;
    }
}

TEST_F(FrmStart, ForgetsTheDisplayLevelAtTheNextStart) {
    start();
    choose(*form, "mnuSuppressFeatures");
    form.reset();
    GLOBAL = {};
    start();
    EXPECT_EQ(marks(), "x---");
}

TEST_F(FrmStart, MarksTheDisplayLevelOfTheFileAtStart) {
    for (const auto& [level, expected] :
         {std::pair{"", "x---"}, {"0", "x---"}, {"1", "-x--"}, {"2", "-xx-"}, {"3", "-xxx"}}) {
        GLOBAL = {};
        putSettings(level);
        start();
        EXPECT_EQ(marks(), expected) << level;
    }
}

TEST_F(FrmStart, ExitsWithoutAQuestion) {
    start();
    choose(*form, "mnuExit");
    EXPECT_EQ(platform.takeTranscript(), "end program\n");
}

TEST_F(FrmStart, ExitsWithoutSavingWhereTheUserSaysNo) {
    start();
    GLOBAL.DataModified = true;
    platform.willAnswer(Answer::no);
    choose(*form, "mnuExit");
    EXPECT_EQ(platform.takeTranscript(), modifiedData + "no\nend program\n");
}

TEST_F(FrmStart, ExitsAfterSavingWhereTheUserSaysYes) {
    start();
    GLOBAL.DataModified = true;
    platform.willAnswer(Answer::yes);
    platform.willChoose("C:\\data\\new.dat");
    choose(*form, "mnuExit");
    EXPECT_EQ(platform.takeTranscript(),
              modifiedData + "yes\n" + saveDialog +
                  "folder \"\" overwritePrompt no -> C:\\data\\new.dat\ncurrent folder {app}\nend program\n");
}

TEST_F(FrmStart, ExitsWhateverTheSaveDialogsOutcome) {
    const std::string asks = modifiedData + "yes\n" + saveDialog + "folder \"\" overwritePrompt no -> ";
    start();
    GLOBAL.DataModified = true;
    platform.willAnswer(Answer::yes);
    platform.willCancel();
    choose(*form, "mnuExit");
    EXPECT_EQ(platform.takeTranscript(), asks + "cancel\nend program\n");
    platform.willAnswer(Answer::yes);
    platform.willFailDialog(RunTimeError(57, "Device I/O error"));
    choose(*form, "mnuExit");
    EXPECT_EQ(platform.takeTranscript(), asks + "error 57\nend program\n");
    platform.willAnswer(Answer::yes);
    platform.willChoose("C:\\data\\new.txt");
    platform.willAnswer(Answer::ok);
    choose(*form, "mnuExit");
    EXPECT_TRUE(platform.takeTranscript().ends_with("extension must be .DAT. -> ok\nend program\n"));
}

TEST_F(FrmStart, AsksAlsoWhereItsWindowIsClosed) {
    start();
    form->show();
    GLOBAL.DataModified = true;
    platform.willAnswer(Answer::no);
    EXPECT_TRUE(form->close());
    EXPECT_EQ(platform.takeTranscript(), modifiedData + "no\nend program\n");
}

TEST_F(FrmStart, ClearsRunStartingWhenItIsActivated) {
    start();
    GLOBAL.RunStarting = true;
    static_cast<ShownForm&>(*form).activate();
    EXPECT_FALSE(GLOBAL.RunStarting);
}

TEST_F(FrmStart, OpensTheSetUpFormOnAFileGivenAtStart) {
    platform.putFile("RIVER.SGR", longRiver());
    form = std::make_unique<frmStart>(platform);
    platform.setBottomForm(*form);
    form->load();
    form->openOnStart(platform.pathOf("RIVER.SGR"));
    platform.willActOn("frmGraphData", [&](ShownForm& setUp) {
        EXPECT_EQ(control<QLabel>(setUp, "lblFileName_0").text(), "RIVER.SGR");
    });
    platform.platform().windows.showModeless(*form);
    EXPECT_EQ(platform.takeTranscript(),
              "show modeless frmStart\nshow modal frmGraphData\nclosed frmGraphData\n");
}

TEST_F(FrmStart, DoesNotTryAFileGivenAtStartAgain) {
    form = std::make_unique<frmStart>(platform);
    platform.setBottomForm(*form);
    form->load();
    form->openOnStart(platform.pathOf("MISSING.SGR"));
    platform.willActOn("frmGraphData", [](ShownForm&) {});
    platform.willAnswer(Answer::ok);
    platform.platform().windows.showModeless(*form);
    platform.takeTranscript();
    EXPECT_FALSE(GLOBAL.graphResultsPending);
    platform.willActOn("frmGraphData", [](ShownForm&) {});
    choose(*form, "mnuGraphs");
    EXPECT_EQ(platform.takeTranscript(), "show modal frmGraphData\nclosed frmGraphData\n");
}

TEST_F(FrmStart, AnchorsTheCreditsToTheBottomAndMovesNothingElse) {
    start();
    showActive(*form);
    std::map<QWidget*, QRect> before;
    QWidget* client = form->centralWidget();
    for (QWidget* child : client->findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
        before[child] = child->geometry();
    const int height = client->height();
    form->resize(form->width(), form->height() + 75);
    passEvents();
    ASSERT_EQ(client->height(), height + 75);
    int moved = 0;
    for (const auto& [child, place] : before) {
        const QString name = child->objectName();
        const bool credit = name.startsWith("lblAddress") || name.startsWith("lineAddress");
        moved += credit ? 1 : 0;
        EXPECT_EQ(child->geometry(), place.translated(0, credit ? 75 : 0)) << name.toStdString();
    }
    EXPECT_GE(moved, 3);
}

TEST_F(FrmStart, ScalesTitleAndLogoByTheirOwnRules) {
    start();
    std::map<std::string, QRect> design;
    for (const char* name : {"lblKorvel_0", "lblKorvel_1", "shpLogo_0", "shpLogo_3", "shpLogo_6"})
        design[name] = placeOf(name);
    const double fontSize = control<QLabel>(*form, "lblKorvel_0").font().pointSizeF();
    GLOBAL = {};
    startOn(20490, 11520);
    const double x = 20490 / 9600.0, y = 11520 / 6780.0;
    for (const auto& [name, before] : design) {
        const bool title = name.starts_with("lblKorvel");
        const QRect place = placeOf(name);
        EXPECT_NEAR(place.x(), before.x() * x, 2) << name;
        EXPECT_NEAR(place.y(), before.y() * y, 2) << name;
        EXPECT_NEAR(place.width(), before.width() * x, 2) << name;
        EXPECT_NEAR(place.height(), before.height() * (title ? x : y), 2) << name;
    }
    EXPECT_NEAR(control<QLabel>(*form, "lblKorvel_0").font().pointSizeF(), fontSize * x, 0.01)
        << "not rounded to a whole point";
}

TEST_F(FrmStart, CentresTheProgressFrame) {
    startOn(20490, 11520);
    const QRect frame = placeOf("frameProgress");
    EXPECT_NEAR(frame.x(), (1366 - frame.width()) / 2.0, 1);
    EXPECT_NEAR(frame.y(), (768 - frame.height()) / 2.0, 1);
}

} // namespace korvel
