// The report form: its lists, boxes, menus and messages.
#include "reports/frmReports.h"

#include "fakes/FakePlatform.h"
#include "forms/FormDriver.h"
#include "forms/GraphForms.h"
#include "reports/ReportData.h"
#include "reports/SpreadsheetReport.h"
#include "results/LoadResultsFile.h"

#include <QTest>

namespace {

class FileInMemory : public NewFile {
  public:
    void write(std::string_view bytes) override { text.append(bytes); }
    void commit() override {}
    std::string text;
};

using Lines = std::vector<std::string>;

class FrmReports : public CleanGlobals {
  protected:
    FrmReports() {
        platform.putFile("RIVER.SGR", smallRiver().text());
        platform.closesForm = closeWindow;
        form.resize(660, 470);
        showActive(form);
        activate();
    }

    void activate() { static_cast<ShownForm&>(form).activate(); }
    void open(const std::string& name = "RIVER.SGR") {
        platform.willChoose(platform.pathOf(name));
        choose(form, "mnuOpen");
    }
    void openRiver(const ResultsFileBuilder& river) {
        platform.putFile("OTHER.SGR", river.text());
        open("OTHER.SGR");
    }
    // As after a run of the model.
    void finishRun(const std::string& results) {
        GLOBAL.fileNames[0] = platform.pathOf(results);
        GLOBAL.reportResultsPending = true;
        activate();
    }
    void readAsTheSetUpFormDoes(const std::string& results) {
        GLOBAL.fileNames[0] = platform.pathOf(results);
        GLOBAL.currentSlot = 0;
        LoadResultsFile(platform, true);
    }
    QCheckBox& box(int index) { return control<QCheckBox>(form, "Check_" + std::to_string(index)); }
    QListWidget& reaches() { return control<QListWidget>(form, "lstReaches"); }
    QListWidget& determinands() { return control<QListWidget>(form, "lstDets"); }
    QLabel& label(int index) { return control<QLabel>(form, "Label_" + std::to_string(index)); }
    std::string textOf(const std::string& name) { return control<QLabel>(form, name).text().toStdString(); }
    QFrame& frame(const std::string& name) { return control<QFrame>(form, name); }
    bool enabled(const std::string& item) { return control<QAction>(form, item).isEnabled(); }
    std::vector<int> tickedBoxes() {
        std::vector<int> ticked;
        for (int index = 0; index <= 9; ++index)
            if (box(index).isChecked()) ticked.push_back(index);
        return ticked;
    }
    void expectVerdict(int columns, const std::string& fit, QColor colour) {
        EXPECT_EQ(label(7).text().toStdString(),
                  "Number of columns selected for printing =  " + std::to_string(columns));
        EXPECT_EQ(label(8).text().toStdString(), fit);
        for (const int index : {7, 8})
            EXPECT_EQ(label(index).grab().toImage().pixelColor(2, 2), colour) << columns << " columns";
    }
    // The first `count` lines, with the mouse.
    void chooseDeterminands(int count) {
        clickLine(determinands(), 0);
        clickLine(determinands(), count - 1, Qt::ShiftModifier);
    }
    std::string coreSheet(const ReportSelection& selection) {
        FileInMemory file;
        EXPECT_EQ(writeSpreadsheet(file, RESULTS, selection), ReportEnd::done);
        return file.text;
    }

    FakePlatform platform;
    frmReports form{platform};
};

// Ten determinands, so twenty lines in the list; one reach, one point.
ResultsFileBuilder wideRiver(int mode = 0) {
    ResultsFileBuilder river;
    river.title("Wide river").mode(mode);
    for (int d = 1; d <= 10; ++d)
        river.determinand(1, "Substance " + std::to_string(d));
    river.reach(7, "Only reach").point(7, 0, "Head");
    return river;
}

// So many reaches of one point each; the walk is watched from reach to reach.
ResultsFileBuilder manyReaches(int count) {
    ResultsFileBuilder river;
    river.determinand(1, "BOD");
    for (int reach = 1; reach <= count; ++reach)
        river.reach(reach, "Reach " + std::to_string(reach));
    for (int reach = 1; reach <= count; ++reach)
        river.point(reach, 0, "Gauge", 1);
    return river;
}

const QColor lightGreen(0, 255, 0), lightYellow(255, 255, 0), lightRed(255, 0, 0);

const std::string openDialog = "open dialog \"Open results file\" filter \"Korvel graph files "
                               "(*.SGR)|*.SGR\" folder \"\" overwritePrompt no -> ";
const std::string dataFilter = "Input data files (*.DAT)|*.DAT|All files (*.*)|*.*|";

std::string outputDialog(const std::string& filter) {
    return "open dialog \"Open output text file\" filter \"" + filter +
           "\" folder \"\" overwritePrompt no -> ";
}

} // namespace

TEST_F(FrmReports, HasItsCaptions) {
    EXPECT_EQ(form.windowTitle(), "Korvel Reports");
    EXPECT_EQ(menuListing(*form.menuBar()), "mnuOpen|&Open\n"
                                            "mnuPrint|&Print tabular output\n"
                                            "mnuSpreadsheet|&Spreadsheet file\n"
                                            "mnuViewOutputFile|&View/print Korvel output file\n"
                                            "mnuExit|Exit\n");
    const Lines captions = {"Select all determinands", "Print means",
                            "Print 90 percentiles",    "Print 95 percentiles",
                            "Print 99 percentiles",    "Print quality targets ",
                            "Print observed values ",  "Print confidence limits",
                            "Select all reaches",      "Print upstream values"};
    for (int index = 0; index <= 9; ++index)
        EXPECT_EQ(box(index).text().toStdString(), captions.at(static_cast<std::size_t>(index)));
    EXPECT_EQ(control<QPushButton>(form, "cmdView_0").text(), "Select and view file");
    EXPECT_EQ(control<QPushButton>(form, "cmdView_1").text(), "Select and print file");
}

TEST_F(FrmReports, HasItsHeadingsAndHints) {
    Lines texts;
    for (const int index : {0, 1, 2, 3, 4, 5, 6, 9})
        texts.push_back(label(index).text().toStdString());
    EXPECT_EQ(texts,
              (Lines{"REACHES", "Select all reaches, or as many reaches as are required",
                     "(Use control key for multiple selections.)", "DETERMINANDS",
                     "Select all determinands, or as many determinands as are required.",
                     "(Use control key for multiple selections.)", "OPTIONS", "SELECT REPORT FORMAT"}));
}

TEST_F(FrmReports, IsEmptyBeforeResultsAreLoaded) {
    EXPECT_EQ(reaches().count(), 0);
    EXPECT_EQ(determinands().count(), 0);
    EXPECT_EQ(greyedItems(*form.menuBar()), (Lines{"mnuPrint", "mnuSpreadsheet"}));
    EXPECT_TRUE(frame("frameProgress").isHidden());
    EXPECT_TRUE(frame("frameExplain").isHidden());
    for (int index = 0; index <= 9; ++index) {
        click(box(index));
        EXPECT_EQ(greyedItems(*form.menuBar()), (Lines{"mnuPrint", "mnuSpreadsheet"})) << index;
    }
}

TEST_F(FrmReports, OpensAResultsFile) {
    open();
    EXPECT_EQ(platform.takeTranscript(), openDialog + "{app}\\RIVER.SGR\ncurrent folder {app}\n");
    EXPECT_EQ(GLOBAL.fileNames[0], platform.pathOf("RIVER.SGR"));
    EXPECT_EQ(GLOBAL.currentSlot, 0);
    EXPECT_EQ(form.windowTitle().toStdString(), "Reports for " + platform.pathOf("RIVER.SGR"));
    EXPECT_EQ(selectedLines(determinands()),
              (Lines{"BOD (Conc)", "Ammonia (Conc)", "BOD (Load)", "Ammonia (Load)"}));
    EXPECT_EQ(selectedLines(reaches()), (Lines{"1 Upper Mill      ", "12 Lower Mill      "}));
    EXPECT_EQ(determinands().count(), 4);
    EXPECT_EQ(reaches().count(), 2);
    EXPECT_TRUE(greyedItems(*form.menuBar()).empty());
    EXPECT_TRUE(frame("frameProgress").isHidden());
}

TEST_F(FrmReports, TrimsTheChosenName) {
    platform.willChoose(platform.pathOf("RIVER.SGR") + "  ");
    choose(form, "mnuOpen");
    EXPECT_EQ(GLOBAL.fileNames[0], platform.pathOf("RIVER.SGR"));
    EXPECT_EQ(form.windowTitle().toStdString(), "Reports for " + platform.pathOf("RIVER.SGR"));
}

TEST_F(FrmReports, LeavesAllAsItWasWhereNoFileIsChosen) {
    open();
    clickLine(reaches(), 1);
    platform.takeTranscript();
    const std::string title = form.windowTitle().toStdString();
    platform.willCancel();
    choose(form, "mnuOpen");
    EXPECT_EQ(platform.takeTranscript(), openDialog + "cancel\n");
    platform.willChooseRefused(platform.pathOf("X.SGR"), "The name can't be used.");
    platform.willAnswer(Answer::ok);
    choose(form, "mnuOpen");
    EXPECT_EQ(platform.takeTranscript(), openDialog +
                                             "{app}\\X.SGR\ncurrent folder {app}\n"
                                             "box [exclamation] File name: The name can't be used. -> ok\n");
    EXPECT_EQ(form.windowTitle().toStdString(), title);
    EXPECT_EQ(GLOBAL.fileNames[0], platform.pathOf("RIVER.SGR"));
    EXPECT_EQ(selectedLines(reaches()), Lines{"12 Lower Mill      "});
    EXPECT_TRUE(enabled("mnuPrint"));
}

TEST_F(FrmReports, SetsTheBoxesAsTheResultsSuggest) {
    const std::vector<std::tuple<int, std::vector<int>, std::string>> modes = {
        {0, {0, 1, 3, 8}, "95%-ile"}, {1, {0, 1, 3, 8}, "Mean"},    {-2, {0, 1, 3, 8}, "Mean"},
        {2, {0, 1, 2, 8}, "90%-ile"}, {3, {0, 1, 4, 8}, "99%-ile"}, {4, {0, 1, 8}, "99%-ile"}};
    for (const auto& [mode, ticked, caption] : modes) {
        for (int index = 1; index <= 7; ++index)
            box(index).setChecked(true);
        openRiver(wideRiver(mode));
        EXPECT_EQ(tickedBoxes(), ticked) << mode;
        EXPECT_EQ(box(5).text().toStdString(), "Print quality targets (" + caption + ")") << mode;
        EXPECT_EQ(box(5).accessibleName(), box(5).text());
    }
}

TEST_F(FrmReports, LeavesTheUpstreamBoxToTheUser) {
    click(box(9));
    open();
    EXPECT_TRUE(box(9).isChecked());
    click(box(9));
    open();
    EXPECT_FALSE(box(9).isChecked());
}

TEST_F(FrmReports, SelectAllSelectsEveryLineAndUntickingChangesNothing) {
    open();
    const std::vector<std::pair<int, QListWidget*>> lists = {{0, &determinands()}, {8, &reaches()}};
    for (const auto& [index, list] : lists) {
        const Lines all = selectedLines(*list);
        clickLine(*list, 1);
        EXPECT_EQ(selectedLines(*list), Lines{all[1]});
        EXPECT_FALSE(box(index).isChecked()) << "a click in the list unticks it";
        click(box(index));
        EXPECT_EQ(selectedLines(*list), all);
        click(box(index));
        EXPECT_FALSE(box(index).isChecked());
        EXPECT_EQ(selectedLines(*list), all);
    }
}

TEST_F(FrmReports, EachListUnticksItsOwnBoxOnly) {
    open();
    clickLine(determinands(), 0, Qt::ControlModifier);
    EXPECT_EQ(tickedBoxes(), (std::vector<int>{1, 2, 8}));
    open();
    clickLine(reaches(), 0, Qt::ControlModifier);
    EXPECT_EQ(tickedBoxes(), (std::vector<int>{0, 1, 2}));
}

TEST_F(FrmReports, AClickUnticksSelectAllEvenWhereItSelectsWhatIsSelected) {
    openRiver(wideRiver());
    clickLine(reaches(), 0);
    EXPECT_FALSE(box(8).isChecked());
    EXPECT_EQ(selectedLines(reaches()), Lines{"7 Only reach      "});
}

TEST_F(FrmReports, KeysInAListCountAsClicks) {
    open();
    determinands().setFocus();
    determinands().setCurrentRow(0, QItemSelectionModel::NoUpdate);
    QTest::keyClick(&determinands(), Qt::Key_Down);
    EXPECT_EQ(selectedLines(determinands()), Lines{"Ammonia (Conc)"});
    EXPECT_FALSE(box(0).isChecked());
    expectVerdict(2, "Print orientation: Portrait", lightGreen);
}

TEST_F(FrmReports, CountsColumnsAfterEveryClick) {
    open();
    expectVerdict(8, "Print orientation: Portrait", lightGreen);
    const std::vector<std::pair<int, int>> clicks = {{1, 4},  {5, 8},  {6, 12}, {7, 20}, {3, 36}, {4, 52},
                                                     {2, 36}, {7, 20}, {5, 16}, {9, 16}, {8, 16}};
    for (const auto& [index, columns] : clicks) {
        click(box(index));
        EXPECT_EQ(label(7).text().toStdString(),
                  "Number of columns selected for printing =  " + std::to_string(columns))
            << "box " << index;
    }
    clickLine(determinands(), 2);
    EXPECT_EQ(label(7).text(), "Number of columns selected for printing =  4");
    clickLine(reaches(), 1);
    EXPECT_EQ(label(7).text(), "Number of columns selected for printing =  4");
}

TEST_F(FrmReports, TellsWhichPageTheTableFits) {
    openRiver(wideRiver());
    click(box(3));
    const std::vector<std::tuple<int, std::string, QColor, bool>> verdicts = {
        {1, "Print orientation: Portrait", lightGreen, true},
        {10, "Print orientation: Portrait", lightGreen, true},
        {11, "Print orientation: Landscape", lightYellow, true},
        {18, "Print orientation: Landscape", lightYellow, true},
        {19, "Too wide to print", lightRed, false},
        {20, "Too wide to print", lightRed, false}};
    for (const auto& [columns, fit, colour, printable] : verdicts) {
        chooseDeterminands(columns);
        expectVerdict(columns, fit, colour);
        EXPECT_EQ(enabled("mnuPrint"), printable) << columns;
        EXPECT_TRUE(enabled("mnuSpreadsheet")) << columns;
    }
    click(box(1));
    expectVerdict(0, "Print orientation: Portrait", lightGreen);
    EXPECT_TRUE(enabled("mnuPrint"));
}

TEST_F(FrmReports, LoadsTheResultsOfARunOnce) {
    finishRun("RIVER.SGR");
    EXPECT_EQ(platform.takeTranscript(), "");
    EXPECT_EQ(form.windowTitle(), "Korvel Reports");
    EXPECT_EQ(selectedLines(reaches()).size(), 2U);
    EXPECT_TRUE(enabled("mnuPrint"));
    EXPECT_TRUE(enabled("mnuSpreadsheet"));
    EXPECT_FALSE(GLOBAL.reportResultsPending);
    expectVerdict(8, "Print orientation: Portrait", lightGreen);

    clickLine(reaches(), 0);
    activate();
    EXPECT_EQ(selectedLines(reaches()), Lines{"1 Upper Mill      "}) << "nothing is loaded again";
}

TEST_F(FrmReports, LoadsIntoTheFirstSlotUnderItsOwnCaption) {
    open();
    GLOBAL.currentSlot = 1;
    platform.putFile("NEXT.SGR", wideRiver().text());
    finishRun("NEXT.SGR");
    EXPECT_EQ(GLOBAL.currentSlot, 0);
    EXPECT_EQ(form.windowTitle(), "Korvel Reports");
    EXPECT_EQ(selectedLines(reaches()), Lines{"7 Only reach      "});
    EXPECT_EQ(determinands().count(), 20);
}

TEST_F(FrmReports, KeepsItsListsWhereTheResultsOfARunCannotBeRead) {
    open();
    platform.takeTranscript();
    platform.willAnswer(Answer::ok);
    finishRun("NONE.SGR");
    EXPECT_TRUE(
        platform.takeTranscript().starts_with("box [exclamation] Error: There is an error in reading"));
    EXPECT_EQ(selectedLines(reaches()).size(), 2U);
    EXPECT_EQ(selectedLines(determinands()).size(), 4U);
    EXPECT_EQ(form.windowTitle(), "Korvel Reports");
    EXPECT_FALSE(GLOBAL.reportResultsPending);
    EXPECT_EQ(greyedItems(*form.menuBar()), (Lines{"mnuPrint", "mnuSpreadsheet"}));
    click(box(1));
    clickLine(reaches(), 0);
    EXPECT_EQ(greyedItems(*form.menuBar()), (Lines{"mnuPrint", "mnuSpreadsheet"}));
    EXPECT_TRUE(frame("frameProgress").isHidden());
    open();
    EXPECT_TRUE(greyedItems(*form.menuBar()).empty());
}

TEST_F(FrmReports, KeepsItsListsWhereTheOpenedFileCannotBeRead) {
    open();
    platform.takeTranscript();
    platform.putFile("BAD.SGR", "Title\r\n0\r\n1\r\nnonsense");
    platform.willChoose(platform.pathOf("BAD.SGR"));
    platform.willAnswer(Answer::ok);
    choose(form, "mnuOpen");
    EXPECT_NE(platform.takeTranscript().find("box [exclamation] Error: There is an error in reading"),
              std::string::npos);
    EXPECT_EQ(form.windowTitle().toStdString(), "Reports for " + platform.pathOf("BAD.SGR"));
    EXPECT_EQ(selectedLines(reaches()), (Lines{"1 Upper Mill      ", "12 Lower Mill      "}));
    EXPECT_EQ(selectedLines(determinands()).size(), 4U);
    EXPECT_FALSE(enabled("mnuPrint"));
    EXPECT_FALSE(enabled("mnuSpreadsheet"));
}

TEST_F(FrmReports, KeepsItsSelectionsWhileHidden) {
    open();
    clickLine(determinands(), 1);
    click(box(6));
    const std::vector<int> ticked = tickedBoxes();
    form.hide();
    showActive(form);
    activate();
    EXPECT_EQ(selectedLines(determinands()), Lines{"Ammonia (Conc)"});
    EXPECT_EQ(tickedBoxes(), ticked);
}

TEST_F(FrmReports, WritesTheSpreadsheetFileThatTheChoicesAskFor) {
    open();
    platform.takeTranscript();
    choose(form, "mnuSpreadsheet");
    EXPECT_EQ(platform.takeTranscript(), "");
    ReportSelection selection;
    selection.means = selection.percentiles[0] = true;
    selection.determinands = {1, 2, 3, 4};
    selection.reaches = {1, 12};
    EXPECT_EQ(platform.fileText("RIVER.csv"), coreSheet(selection));

    clickLine(determinands(), 3);
    clickLine(reaches(), 1);
    for (const int index : {2, 3, 4, 5, 6, 7, 9})
        click(box(index));
    choose(form, "mnuSpreadsheet");
    selection = {true, {false, true, true}, true, true, true, true, {4}, {12}};
    EXPECT_EQ(platform.fileText("RIVER.csv"), coreSheet(selection));
}

TEST_F(FrmReports, PrintsTheReport) {
    open();
    platform.takeTranscript();
    choose(form, "mnuPrint");
    EXPECT_EQ(platform.takeTranscript(), "print portrait \"RIVER.SGR\"\npage\nfinish\n");
    EXPECT_TRUE(platform.printed().at(0).finished);
    EXPECT_EQ(platform.printed().at(0).request.fallbackFile, platform.pathOf("RIVER-report.pdf"));
    click(box(6));
    choose(form, "mnuPrint");
    EXPECT_EQ(platform.takeTranscript(), "print landscape \"RIVER.SGR\"\npage\nfinish\n");
}

TEST_F(FrmReports, SaysThatThePrinterRefuses) {
    open();
    platform.takeTranscript();
    platform.willFailPrinting(PrintStep::begin);
    platform.willAnswer(Answer::ok);
    choose(form, "mnuPrint");
    EXPECT_EQ(platform.takeTranscript(),
              "print portrait \"RIVER.SGR\"\nbox [information] Printer: Your printer "
              "is offline or out of paper. -> ok\n");
    EXPECT_TRUE(frame("frameProgress").isHidden());
    EXPECT_TRUE(enabled("mnuPrint"));
}

TEST_F(FrmReports, SaysThatTheSpreadsheetFileIsOpenElsewhere) {
    open();
    platform.takeTranscript();
    platform.putFile("RIVER.csv", "old");
    platform.putFile(".~lock.RIVER.csv#", "");
    platform.willAnswer(Answer::ok);
    choose(form, "mnuSpreadsheet");
    EXPECT_EQ(platform.takeTranscript(),
              "box [information] File Open: {app}\\RIVER.csv is already open. Please "
              "close the file and try again. -> ok\n");
    EXPECT_EQ(platform.fileText("RIVER.csv"), "old");
    EXPECT_TRUE(frame("frameProgress").isHidden());
}

TEST_F(FrmReports, ShowsItsProgressAndTakesNothingElseMeanwhile) {
    openRiver(manyReaches(300));
    std::vector<std::string> says;
    int highest = 0, calls = 0;
    platform.onPassEvents = [&] {
        ++calls;
        if (says.empty() || says.back() != textOf("lblProgress")) says.push_back(textOf("lblProgress"));
        const int value = control<QProgressBar>(form, "Progress").value();
        EXPECT_GE(value, calls == 1 ? 0 : highest);
        highest = value;
        EXPECT_TRUE(frame("frameProgress").isVisible());
        EXPECT_TRUE(control<QLabel>(form, "lblCancel").isVisible());
        EXPECT_FALSE(form.menuBar()->isEnabled());
        EXPECT_FALSE(box(0).isEnabled() || box(5).isEnabled() || reaches().isEnabled());
        EXPECT_FALSE(form.close()) << "closed while it works";
    };
    choose(form, "mnuPrint");
    EXPECT_GT(calls, 1);
    EXPECT_GT(highest, 50);
    calls = 0;
    choose(form, "mnuSpreadsheet");
    EXPECT_GT(calls, 0);
    EXPECT_EQ(says, (Lines{"Printing ...", "Writing to spreadsheet file ..."}));
    EXPECT_TRUE(frame("frameProgress").isHidden());
    EXPECT_TRUE(form.menuBar()->isEnabled() && box(0).isEnabled() && box(5).isEnabled());
    EXPECT_TRUE(reaches().isEnabled() && determinands().isEnabled());
}

TEST_F(FrmReports, EscapeCancelsTheReportAndLeavesNoFile) {
    openRiver(manyReaches(300));
    platform.takeTranscript();
    platform.onPassEvents = [&] { QTest::keyClick(&form, Qt::Key_Escape); };
    choose(form, "mnuSpreadsheet");
    EXPECT_FALSE(platform.hasFile("OTHER.csv"));
    EXPECT_EQ(platform.platform().files.filesIn(platform.folder()).size(), 2U) << "the results files alone";
    EXPECT_EQ(platform.takeTranscript(), "");
    choose(form, "mnuPrint");
    EXPECT_EQ(platform.takeTranscript(), "print portrait \"OTHER.SGR\"\npage\n");
    EXPECT_FALSE(platform.printed().at(0).finished);
    EXPECT_TRUE(frame("frameProgress").isHidden());

    platform.onPassEvents = {};
    choose(form, "mnuSpreadsheet");
    EXPECT_TRUE(platform.hasFile("OTHER.csv")) << "the next one runs to its end";
}

TEST_F(FrmReports, EscapeWhileNothingRunsCancelsNothingLater) {
    open();
    QTest::keyClick(&form, Qt::Key_Escape);
    EXPECT_TRUE(form.isVisible());
    choose(form, "mnuSpreadsheet");
    EXPECT_TRUE(platform.hasFile("RIVER.csv"));
}

TEST_F(FrmReports, ExplainsTheOutputFiles) {
    choose(form, "mnuViewOutputFile");
    EXPECT_TRUE(frame("frameExplain").isVisible());
    EXPECT_EQ(textOf("lblExplain"),
              "The following different types of text output file are available after Korvel has been run:\n\n"
              "filename.SCN: a copy of the output displayed on the screen during the model run\n"
              "filename.OUT: the detailed output\n"
              "filename.LOD: a report on loads\n"
              "filename.SUM: a report on sources and sinks of pollution\n");
    QTest::keyClick(&form, Qt::Key_Escape);
    EXPECT_TRUE(frame("frameExplain").isHidden());
}

TEST_F(FrmReports, CentresItsFrames) {
    const QWidget& client = *form.centralWidget();
    choose(form, "mnuViewOutputFile");
    for (const int width : {660, 900}) {
        form.resize(width, 600);
        passEvents();
        activate();
        for (const char* name : {"frameExplain", "frameProgress"}) {
            EXPECT_NEAR(frame(name).geometry().center().x(), client.rect().center().x(), 1) << name;
            EXPECT_NEAR(frame(name).geometry().center().y(), client.rect().center().y(), 1) << name;
        }
    }
}

TEST_F(FrmReports, PrintsAnOutputFile) {
    platform.putFile("RIVER.OUT", "line 1\r\nline 2\r\n");
    choose(form, "mnuViewOutputFile");
    platform.willChoose(platform.pathOf("RIVER.OUT") + " ");
    click(control<QPushButton>(form, "cmdView_1"));
    EXPECT_EQ(platform.takeTranscript(), outputDialog(dataFilter) +
                                             "{app}\\RIVER.OUT \ncurrent folder {app}\n"
                                             "print portrait \"RIVER.OUT\"\npage\nfinish\n");
    EXPECT_TRUE(frame("frameExplain").isHidden());
}

TEST_F(FrmReports, ViewsAnOutputFile) {
    platform.putFile("RIVER.OUT", "\xC9\xCD\xBB\r\n");
    choose(form, "mnuViewOutputFile");
    platform.willChoose(platform.pathOf("RIVER.OUT"));
    QString seen;
    platform.willActOn("frmListing", [&](ShownForm& listing) {
        EXPECT_TRUE(frame("frameExplain").isHidden());
        seen = control<QPlainTextEdit>(listing, "txtListing").toPlainText();
    });
    click(control<QPushButton>(form, "cmdView_0"));
    EXPECT_EQ(platform.takeTranscript(), outputDialog(dataFilter) +
                                             "{app}\\RIVER.OUT\ncurrent folder {app}\n"
                                             "show modal frmListing\nclosed frmListing\n");
    EXPECT_EQ(seen, QString::fromUtf8("╔═╗\n"));
}

TEST_F(FrmReports, LengthensTheListOfFileTypesWithEachUse) {
    std::string filter;
    for (const char* name : {"cmdView_1", "cmdView_0", "cmdView_1"}) {
        choose(form, "mnuViewOutputFile");
        platform.willCancel();
        click(control<QPushButton>(form, name));
        filter = dataFilter + filter;
        EXPECT_EQ(platform.takeTranscript(), outputDialog(filter) + "cancel\n");
        EXPECT_TRUE(frame("frameExplain").isHidden());
    }
    open();
    platform.takeTranscript();
    choose(form, "mnuViewOutputFile");
    platform.willCancel();
    click(control<QPushButton>(form, "cmdView_0"));
    EXPECT_EQ(platform.takeTranscript(),
              outputDialog(dataFilter + "Korvel graph files (*.SGR)|*.SGR") + "cancel\n")
        << "put in front of what the dialog held";
}

TEST_F(FrmReports, TellsThatAnOutputFileCannotBeRead) {
    for (const char* name : {"cmdView_0", "cmdView_1"}) {
        choose(form, "mnuViewOutputFile");
        platform.willChoose(platform.pathOf("NONE.OUT"));
        platform.willAnswer(Answer::ok);
        click(control<QPushButton>(form, name));
        EXPECT_NE(platform.takeTranscript().find(
                      "box [critical] KORVEL Error: Error number 53: File not found -> ok\n"),
                  std::string::npos);
        EXPECT_TRUE(frame("frameExplain").isHidden());
    }
}

TEST_F(FrmReports, ExitCloses) {
    choose(form, "mnuExit");
    EXPECT_EQ(platform.takeTranscript(), "close frmReports\n");
    EXPECT_FALSE(form.isVisible());
}

TEST_F(FrmReports, TakesOverAnotherFileThatTheSetUpFormHasRead) {
    open();
    platform.putFile("OTHER.SGR", wideRiver().text());
    readAsTheSetUpFormDoes("OTHER.SGR");
    activate();
    EXPECT_EQ(reaches().count(), 1);
    EXPECT_EQ(determinands().count(), 20);
    EXPECT_EQ(form.windowTitle().toStdString(), "Reports for " + platform.pathOf("OTHER.SGR"));
}

TEST_F(FrmReports, KeepsItsSelectionsWhereTheSameFileIsReadAgain) {
    open();
    reaches().clearSelection();
    readAsTheSetUpFormDoes("RIVER.SGR");
    activate();
    EXPECT_TRUE(reaches().selectedItems().isEmpty());
    EXPECT_TRUE(enabled("mnuSpreadsheet"));
}

TEST_F(FrmReports, MakesNothingOfAFileThatTheSetUpFormCouldNotRead) {
    open();
    platform.putFile("OTHER.SGR", "cut short");
    platform.willAnswer(Answer::ok);
    readAsTheSetUpFormDoes("OTHER.SGR");
    activate();
    EXPECT_FALSE(enabled("mnuPrint"));
    EXPECT_FALSE(enabled("mnuSpreadsheet"));
    EXPECT_EQ(form.windowTitle(), "Korvel Reports");
}
