// The report form: results files, opened, of a run, or read by the set-up form.
#include "forms/ReportsForm.h"

#include "results/LoadResultsFile.h"

#include <QTest>

namespace korvel {

namespace {

class FrmReportsLoading : public ReportsForm {
  protected:
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
};

std::string openDialog(const std::string& folder) {
    return "open dialog \"Open results file\" filter \"Korvel graph files (*.SGR)|*.SGR\" folder \"" +
           folder + "\" overwritePrompt no -> ";
}

} // namespace

TEST_F(FrmReportsLoading, OpensAResultsFile) {
    open();
    EXPECT_EQ(platform.takeTranscript(), openDialog("") + "{app}\\RIVER.SGR\ncurrent folder {app}\n");
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

TEST_F(FrmReportsLoading, TrimsTheChosenName) {
    platform.willChoose(platform.pathOf("RIVER.SGR") + "  ");
    choose(form, "mnuOpen");
    EXPECT_EQ(GLOBAL.fileNames[0], platform.pathOf("RIVER.SGR"));
    EXPECT_EQ(form.windowTitle().toStdString(), "Reports for " + platform.pathOf("RIVER.SGR"));
}

TEST_F(FrmReportsLoading, LeavesAllAsItWasWhereNoFileIsChosen) {
    open();
    clickLine(reaches(), 1);
    platform.takeTranscript();
    const std::string title = form.windowTitle().toStdString();
    platform.willCancel();
    choose(form, "mnuOpen");
    EXPECT_EQ(platform.takeTranscript(), openDialog("{app}\\") + "cancel\n");
    platform.willChooseRefused(platform.pathOf("X.SGR"), "The name can't be used.");
    platform.willAnswer(Answer::ok);
    choose(form, "mnuOpen");
    EXPECT_EQ(platform.takeTranscript(), openDialog("{app}\\") +
                                             "{app}\\X.SGR\ncurrent folder {app}\n"
                                             "box [exclamation] File name: The name can't be used. -> ok\n");
    EXPECT_EQ(form.windowTitle().toStdString(), title);
    EXPECT_EQ(GLOBAL.fileNames[0], platform.pathOf("RIVER.SGR"));
    EXPECT_EQ(selectedLines(reaches()), Lines{"12 Lower Mill      "});
    EXPECT_TRUE(enabled("mnuPrint"));
}

TEST_F(FrmReportsLoading, LoadsTheResultsOfARunOnce) {
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

TEST_F(FrmReportsLoading, LoadsIntoTheFirstSlotUnderItsOwnCaption) {
    open();
    GLOBAL.currentSlot = 1;
    platform.putFile("NEXT.SGR", wideRiver().text());
    finishRun("NEXT.SGR");
    EXPECT_EQ(GLOBAL.currentSlot, 0);
    EXPECT_EQ(form.windowTitle(), "Korvel Reports");
    EXPECT_EQ(selectedLines(reaches()), Lines{"7 Only reach      "});
    EXPECT_EQ(determinands().count(), 20);
}

TEST_F(FrmReportsLoading, KeepsItsListsWhereTheResultsOfARunCannotBeRead) {
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

TEST_F(FrmReportsLoading, KeepsItsListsWhereTheOpenedFileCannotBeRead) {
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

TEST_F(FrmReportsLoading, TakesOverAnotherFileThatTheSetUpFormHasRead) {
    open();
    platform.putFile("OTHER.SGR", wideRiver().text());
    readAsTheSetUpFormDoes("OTHER.SGR");
    activate();
    EXPECT_EQ(reaches().count(), 1);
    EXPECT_EQ(determinands().count(), 20);
    EXPECT_EQ(form.windowTitle().toStdString(), "Reports for " + platform.pathOf("OTHER.SGR"));
}

TEST_F(FrmReportsLoading, FillsItsListsAnewWhereTheSameFileIsReadAgain) {
    open();
    reaches().clearSelection();
    readAsTheSetUpFormDoes("RIVER.SGR");
    activate();
    EXPECT_EQ(reaches().selectedItems().size(), 2);
    EXPECT_TRUE(box(8).isChecked());
    clickLine(reaches(), 0);
    activate();
    EXPECT_EQ(reaches().selectedItems().size(), 1) << "nothing was read since";
}

TEST_F(FrmReportsLoading, TakesOverWhatTheSetUpFormReadFirst) {
    readAsTheSetUpFormDoes("RIVER.SGR");
    activate();
    EXPECT_EQ(form.windowTitle().toStdString(), "Reports for " + platform.pathOf("RIVER.SGR"));
    EXPECT_EQ(selectedLines(reaches()).size(), 2U);
    EXPECT_TRUE(greyedItems(*form.menuBar()).empty());
}

TEST_F(FrmReportsLoading, SaysThatResultsCouldNotBeRead) {
    const auto hint = [&] { return control<QLabel>(form, "lblNextStep").text().toStdString(); };
    EXPECT_EQ(hint(), "Next: choose Open and pick a results file.");
    platform.putFile("BAD.SGR", "nonsense");
    platform.willChoose(platform.pathOf("BAD.SGR"));
    platform.willAnswer(Answer::ok);
    choose(form, "mnuOpen");
    EXPECT_EQ(hint(), "The results could not be read. Choose Open and pick a results file.");
    open();
    EXPECT_EQ(hint(),
              "Choose reaches, determinands and options, then Print tabular output or Spreadsheet file.");
}

TEST_F(FrmReportsLoading, OffersTheLastFolderBeforeAFileWasOpened) {
    GLOBAL.LastFolder = "Z:\\RIVERS\\";
    platform.willCancel();
    choose(form, "mnuOpen");
    EXPECT_EQ(platform.takeTranscript(), openDialog("Z:\\RIVERS\\") + "cancel\n");
}

TEST_F(FrmReportsLoading, MakesNothingOfAFileThatTheSetUpFormCouldNotRead) {
    open();
    platform.putFile("OTHER.SGR", "cut short");
    platform.willAnswer(Answer::ok);
    readAsTheSetUpFormDoes("OTHER.SGR");
    activate();
    EXPECT_FALSE(enabled("mnuPrint"));
    EXPECT_FALSE(enabled("mnuSpreadsheet"));
    EXPECT_EQ(form.windowTitle(), "Korvel Reports");
}

} // namespace korvel
