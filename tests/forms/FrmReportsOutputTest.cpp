// What the report form makes: the printed report, the spreadsheet file, the listings of output files.
#include "forms/ReportsForm.h"

#include "basic/DiskNames.h"
#include "reports/SpreadsheetReport.h"

#include <QTest>

#include <filesystem>

namespace korvel {

namespace {

class FileInMemory : public NewFile {
  public:
    void write(std::string_view bytes) override { text.append(bytes); }
    void commit() override {}
    std::string text;
};

class FrmReportsOutput : public ReportsForm {
  protected:
    std::string textOf(const std::string& name) { return control<QLabel>(form, name).text().toStdString(); }
    std::string coreSheet(const ReportSelection& selection) {
        FileInMemory file;
        EXPECT_EQ(writeSpreadsheet(file, RESULTS, selection), ReportEnd::done);
        return file.text;
    }
};

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

const std::string dataFilter = "Input data files (*.DAT)|*.DAT|All files (*.*)|*.*|";

std::string outputDialog(const std::string& filter, const std::string& folder = "") {
    return "open dialog \"Open output text file\" filter \"" + filter + "\" folder \"" + folder +
           "\" overwritePrompt no -> ";
}

} // namespace

TEST_F(FrmReportsOutput, WritesTheSpreadsheetFileThatTheChoicesAskFor) {
    open();
    platform.takeTranscript();
    choose(form, "mnuSpreadsheet");
    EXPECT_EQ(platform.takeTranscript(), "");
    ReportSelection selection;
    selection.statistics = {Statistic::mean, Statistic::p90};
    selection.determinands = {1, 2, 3, 4};
    selection.reaches = {1, 12};
    EXPECT_EQ(platform.fileText("RIVER.csv"), coreSheet(selection));

    clickLine(determinands(), 3);
    clickLine(reaches(), 1);
    for (const int index : {2, 3, 4, 5, 6, 7, 9})
        click(box(index));
    choose(form, "mnuSpreadsheet");
    selection = {{Statistic::mean, Statistic::p95, Statistic::p99}, true, true, true, true, {4}, {12}};
    EXPECT_EQ(platform.fileText("RIVER.csv"), coreSheet(selection));
}

TEST_F(FrmReportsOutput, SavesAWorkbookFromItsContextMenus) {
    const std::string dialog = "save dialog \"Save as workbook\" filter \"Workbook (*.xlsx)|*.xlsx\" folder "
                               "\"{app}\\\" overwritePrompt yes -> ";
    EXPECT_FALSE(enabled("mnuWorkbook")) << "nothing is loaded";
    open();
    for (QWidget* const place :
         std::initializer_list<QWidget*>{form.centralWidget(), &reaches(), &determinands()})
        EXPECT_EQ(place->actions().last()->objectName(), "mnuWorkbook");
    for (const QWidget* const list : {&reaches(), &determinands()})
        EXPECT_TRUE(list->actions().at(list->actions().size() - 2)->isSeparator());
    EXPECT_EQ(form.centralWidget()->actions().size(), 1) << "nothing to part it from";
    platform.takeTranscript();
    platform.willChoose(platform.pathOf("My report.xlsx"));
    choose(form, "mnuWorkbook");
    EXPECT_EQ(platform.takeTranscript(), dialog + "{app}\\My report.xlsx\ncurrent folder {app}\n");
    EXPECT_TRUE(platform.fileText("My report.xlsx").starts_with("PK"));
    EXPECT_TRUE(textOf("lblDone").starts_with("The workbook was written to My report.xlsx."));

    platform.willCancel();
    choose(form, "mnuWorkbook");
    platform.willChoose(platform.pathOf("report.csv"));
    platform.willAnswer(Answer::ok);
    platform.takeTranscript();
    choose(form, "mnuWorkbook");
    EXPECT_EQ(platform.takeTranscript(), dialog +
                                             "{app}\\report.csv\ncurrent folder {app}\nbox [exclamation] "
                                             "Save as workbook: The workbook's name must end in "
                                             ".xlsx. -> ok\n");
}

TEST_F(FrmReportsOutput, PrintsTheReport) {
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

TEST_F(FrmReportsOutput, SaysThatThePrinterRefuses) {
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

TEST_F(FrmReportsOutput, SaysThatTheSpreadsheetFileIsOpenElsewhere) {
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

TEST_F(FrmReportsOutput, HidesItsProgressBeforeAMessageIsShown) {
    platform.printedTo = platform.pathOf("RIVER-report.pdf");
    int messages = 0;
    platform.onMessage = [&] {
        ++messages;
        EXPECT_TRUE(frame("frameProgress").isHidden()) << messages;
    };
    const auto expectMessageOf = [&](const char* item) {
        const int before = messages;
        platform.willAnswer(Answer::ok);
        choose(form, item);
        EXPECT_EQ(messages, before + 1);
    };
    open();
    expectMessageOf("mnuPrint"); // where it went
    for (const PrintStep step : {PrintStep::begin, PrintStep::page, PrintStep::finish}) {
        platform.willFailPrinting(step);
        expectMessageOf("mnuPrint");
    }
    platform.willFailPrinting(PrintStep::page, RunTimeError(errors::diskFull));
    expectMessageOf("mnuPrint");
    platform.putFile("RIVER.csv", "old");
    platform.putFile(".~lock.RIVER.csv#", "");
    expectMessageOf("mnuSpreadsheet");
    platform.putFile("BAD.SGR", "no results");
    platform.willChoose(platform.pathOf("BAD.SGR"));
    expectMessageOf("mnuOpen");
}

TEST_F(FrmReportsOutput, SaysWhatWasWrittenWhereWithLinks) {
    auto& done = control<QLabel>(form, "lblDone");
    open();
    EXPECT_EQ(done.text(), "");
    choose(form, "mnuSpreadsheet");
    EXPECT_TRUE(done.text().startsWith("The spreadsheet file was written to RIVER.csv."))
        << done.text().toStdString();
    platform.takeTranscript();
    emit done.linkActivated("open");
    emit done.linkActivated("folder");
    EXPECT_EQ(platform.takeTranscript(), "open {app}\\RIVER.csv\nshow folder {app}\\\n");
    choose(form, "mnuPrint");
    EXPECT_EQ(done.text(), "The report was handed to the printer.");
    platform.printedTo = platform.pathOf("RIVER-report.pdf");
    platform.willAnswer(Answer::ok);
    choose(form, "mnuPrint");
    EXPECT_TRUE(done.text().startsWith("The report was written to RIVER-report.pdf."));
    platform.willFailPrinting(PrintStep::begin);
    platform.willAnswer(Answer::ok);
    choose(form, "mnuPrint");
    EXPECT_EQ(done.text(), "") << "nothing was written";
}

TEST_F(FrmReportsOutput, ShowsItsProgressAndTakesNothingElseMeanwhile) {
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
    EXPECT_EQ(says, (std::vector<std::string>{"Printing ...", "Writing to spreadsheet file ..."}));
    EXPECT_TRUE(frame("frameProgress").isHidden());
    EXPECT_TRUE(form.menuBar()->isEnabled() && box(0).isEnabled() && box(5).isEnabled());
    EXPECT_TRUE(reaches().isEnabled() && determinands().isEnabled());
}

TEST_F(FrmReportsOutput, EscapeCancelsTheReportAndLeavesNoFile) {
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

TEST_F(FrmReportsOutput, EscapeWhileNothingRunsCancelsNothingLater) {
    open();
    QTest::keyClick(&form, Qt::Key_Escape);
    EXPECT_TRUE(form.isVisible());
    choose(form, "mnuSpreadsheet");
    EXPECT_TRUE(platform.hasFile("RIVER.csv"));
}

TEST_F(FrmReportsOutput, ExplainsTheOutputFiles) {
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

TEST_F(FrmReportsOutput, CentresItsFrames) {
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

TEST_F(FrmReportsOutput, PrintsAnOutputFile) {
    platform.putFile("RIVER.OUT", "line 1\r\nline 2\r\n");
    choose(form, "mnuViewOutputFile");
    platform.willChoose(platform.pathOf("RIVER.OUT") + " ");
    click(control<QPushButton>(form, "cmdView_1"));
    EXPECT_EQ(platform.takeTranscript(), outputDialog(dataFilter) +
                                             "{app}\\RIVER.OUT \ncurrent folder {app}\n"
                                             "print portrait \"RIVER.OUT\"\npage\nfinish\n");
    EXPECT_TRUE(frame("frameExplain").isHidden());
}

TEST_F(FrmReportsOutput, ViewsAnOutputFile) {
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

TEST_F(FrmReportsOutput, LengthensTheListOfFileTypesWithEachUse) {
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
              outputDialog(dataFilter + "Korvel graph files (*.SGR)|*.SGR", "{app}\\") + "cancel\n")
        << "put in front of what the dialog held";
}

TEST_F(FrmReportsOutput, TellsThatAnOutputFileCannotBeRead) {
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

TEST_F(FrmReportsOutput, ReplacesNoResultsByTheirSpreadsheetFile) {
    open();
    const std::string results = platform.fileText("RIVER.SGR");
    std::filesystem::create_hard_link(hostPathOf(platform.pathOf("RIVER.SGR")),
                                      hostPathOf(platform.pathOf("RIVER.csv")));
    platform.takeTranscript();
    platform.willAnswer(Answer::ok);
    choose(form, "mnuSpreadsheet");
    EXPECT_EQ(platform.takeTranscript(),
              "box [exclamation] File name: The output would replace the input. -> ok\n");
    EXPECT_EQ(platform.fileText("RIVER.SGR"), results);
    EXPECT_TRUE(frame("frameProgress").isHidden());
}

TEST_F(FrmReportsOutput, GivesTheKeysBackWhereTheyWereBeforeItWasBusy) {
    open();
    determinands().setFocus();
    open();
    EXPECT_EQ(QApplication::focusWidget(), &determinands());
}

} // namespace korvel
