// The graph set-up form: results files, chosen or of a run.
#include "forms/GraphDataForm.h"

namespace korvel {

namespace {

const std::string readError = "box [exclamation] Error: There is an error in reading the data for plotting. "
                              "The file either does not exist, is incomplete, or is in the wrong format.  Or "
                              "it may hold more plotting points than the set maximum of 59999. -> ok\n";

} // namespace

TEST_F(FrmGraphData, LoadsTheFirstFileFromItsItem) {
    platform.willChoose(platform.pathOf("A.SGR"));
    choose(form, "mnuDataFile1");
    EXPECT_EQ(platform.takeTranscript(),
              "open dialog \"Select Data File 1\" filter \"Korvel graph files (*.SGR)|*.SGR\" folder \"\" "
              "overwritePrompt no -> {app}\\A.SGR\ncurrent folder {app}\n");
    EXPECT_EQ(text("lblFileName_0"), "A.SGR");
    EXPECT_EQ(itemsOf(combo(1)).front(), "1 Reach number 1  ");
    EXPECT_EQ(itemsOf(combo(1)), itemsOf(sites));
    EXPECT_EQ(itemsOf(combo(1)).size(), 8U);
    EXPECT_EQ(itemsOf(dets),
              (Lines{"Flow", "BOD (Conc)", "Ammonia (Conc)", "Nitrate (Conc)", "Phosphate (Conc)",
                     "BOD (Load)", "Ammonia (Load)", "Nitrate (Load)", "Phosphate (Load)"}));
    EXPECT_EQ(itemsOf(combo(3)), itemsOf(dets));
    EXPECT_EQ(box(1).text(), "Long river");
    EXPECT_EQ(combo(1).currentIndex(), -1);
    EXPECT_TRUE(check(5).isChecked()) << "the file has interpolated points";
    EXPECT_TRUE(control<QLabel>(form, "Label_2").isHidden());
}

TEST_F(FrmGraphData, ClearsTheNameBeforeTheFileIsChosen) {
    load("mnuDataFile1", "A.SGR");
    platform.willCancel();
    choose(form, "mnuDataFile1");
    platform.takeTranscript();
    EXPECT_EQ(text("lblFileName_0"), "");
}

TEST_F(FrmGraphData, RefusesTheSecondFileBeforeTheFirst) {
    platform.willAnswer(Answer::ok);
    choose(form, "mnuDataFile2");
    EXPECT_EQ(platform.takeTranscript(),
              "box [exclamation] Select data file: You must select Data File 1 before Data File 2. -> ok\n");
}

TEST_F(FrmGraphData, LoadsTheSecondFileAndKeepsTheSelections) {
    showLoaded();
    chooseMode1();
    load("mnuDataFile2", "B.SGR");
    EXPECT_EQ(text("lblFileName_1"), "B.SGR");
    EXPECT_EQ(box(1).text(), "Long river");
    EXPECT_EQ(combo(2).currentIndex(), 2);
    EXPECT_EQ(selectedLines(dets), (Lines{"BOD (Conc)"}));
}

TEST_F(FrmGraphData, FallsBackToTheFirstDataSetWhereTheSecondFails) {
    showLoaded();
    load("mnuDataFile2", "B.SGR");
    click(option(2));
    platform.willChoose(platform.pathOf("CUT.SGR"));
    platform.willAnswer(Answer::ok);
    choose(form, "mnuDataFile2");
    EXPECT_TRUE(platform.takeTranscript().ends_with(readError));
    EXPECT_EQ(text("lblFileName_1"), "");
    EXPECT_EQ(text("lblFileName_0"), "A.SGR");
    EXPECT_TRUE(option(0).isChecked());
    EXPECT_TRUE(control<QAction>(form, "mnuPlot").isEnabled());
}

TEST_F(FrmGraphData, AnotherFirstFileClearsTheSecond) {
    showLoaded();
    load("mnuDataFile2", "B.SGR");
    click(option(1));
    load("mnuDataFile1", "B.SGR");
    EXPECT_EQ(text("lblFileName_0"), "B.SGR");
    EXPECT_EQ(text("lblFileName_1"), "");
    EXPECT_TRUE(option(0).isChecked());
    EXPECT_EQ(box(1).text(), "Second run");
}

TEST_F(FrmGraphData, LoadsTheResultsOfARunWhenItIsActivated) {
    afterARun("A.SGR");
    activate();
    EXPECT_EQ(text("lblFileName_0"), "A.SGR");
    EXPECT_EQ(combo(1).count(), 8);
    EXPECT_FALSE(GLOBAL.graphResultsPending);
    EXPECT_TRUE(control<QAction>(form, "mnuPlot").isEnabled());
    EXPECT_EQ(platform.takeTranscript(), "");
}

TEST_F(FrmGraphData, KeepsTheResultsOfARunPendingWhereTheyCannotBeRead) {
    afterARun("CUT.SGR");
    platform.willAnswer(Answer::ok);
    activate();
    EXPECT_EQ(platform.takeTranscript(), readError);
    EXPECT_TRUE(GLOBAL.graphResultsPending);
    EXPECT_TRUE(control<QLabel>(form, "Label_2").isHidden());
}

TEST_F(FrmGraphData, ShowsNoProgressWhileAMessageEndsTheLoad) {
    int messages = 0;
    platform.onMessage = [&] {
        ++messages;
        EXPECT_TRUE(control<QLabel>(form, "Label_2").isHidden());
        EXPECT_TRUE(control<QProgressBar>(form, "Progress").isHidden());
    };
    const auto loadWithMessage = [&](const char* item, const char* file) {
        platform.willChoose(platform.pathOf(file));
        platform.willAnswer(Answer::ok);
        choose(form, item);
        platform.takeTranscript();
    };
    loadWithMessage("mnuDataFile1", "CUT.SGR");
    load("mnuDataFile1", "A.SGR");
    loadWithMessage("mnuDataFile2", "CUT.SGR");
    EXPECT_EQ(messages, 2);
}

TEST_F(FrmGraphData, KeepsItsStateAfterAGraph) {
    showLoaded();
    chooseMode1();
    afterARun("B.SGR");
    GLOBAL.returnedFromGraph = true;
    activate();
    EXPECT_FALSE(GLOBAL.returnedFromGraph);
    EXPECT_TRUE(GLOBAL.graphResultsPending);
    EXPECT_EQ(text("lblFileName_0"), "A.SGR");
    EXPECT_EQ(combo(2).currentIndex(), 2);
}

TEST_F(FrmGraphData, TellsThatResultsAreIncomplete) {
    showLoaded("SHORT.SGR");
    combo(1).setCurrentIndex(1);
    combo(2).setCurrentIndex(2); // reaches 2 to 4; the points end in reach 3
    clickLine(dets, 0);
    platform.willAnswer(Answer::ok);
    choose(form, "mnuPlot");
    EXPECT_EQ(platform.takeTranscript(),
              "box [question] Incomplete Results: The selected graph cannot be plotted as the Korvel results "
              "are incomplete.  This may be due to the Korvel run having been stopped by an error before all "
              "reaches were processed. -> ok\n");
}

} // namespace korvel
