#include "graphs/setup/ResultsLoading.h"

#include "fakes/FakePlatform.h"
#include "fakes/ResultsFileBuilder.h"
#include "global/GLOBAL.h"
#include "graphs/SmallCatchment.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

class ResultsLoading : public testing::Test {
  protected:
    void SetUp() override {
        GLOBAL = {};
        world.putFile("A.SGR", smallResultsFile());
        world.putFile("B.SGR", smallResultsFile(0, FileEnd::whole, "Second"));
        world.putFile("P90.SGR", smallResultsFile(2));
        world.putFile("P99.SGR", smallResultsFile(3));
        world.putFile("POINTS99.SGR", ResultsFileBuilder().reach(1, "Mill").point(1, 0, "Weir", 99).text());
        world.putFile("CUT.SGR", smallResultsFile(0, FileEnd::cutShort));
    }
    void TearDown() override { GLOBAL = {}; }

    void choose(int slot) { chooseResultsFile(world, choices, dialog, slot, callbacks); }
    void chooseFile(int slot, const char* name) {
        world.willChoose(world.pathOf(name));
        choose(slot);
    }
    void activate() { activateGraphSetUp(world, choices, callbacks); }
    void afterARun(const char* name) {
        GLOBAL.fileNames[0] = world.pathOf(name);
        GLOBAL.graphResultsPending = true;
    }

    void readInAnotherForm(const char* name) {
        GLOBAL.fileNames[0] = world.pathOf(name);
        GLOBAL.currentSlot = 0;
        LoadResultsFile(world, true);
    }

    FakePlatform world;
    GraphChoices choices;
    GraphChoices shownWhileLoading;
    SetUpCallbacks callbacks{[this] {
                                 if (choices.waiting) shownWhileLoading = choices;
                             },
                             {}};
    FileDialogSettings dialog = resultsDialog();
};

const std::string readError = "box [exclamation] Error: There is an error in reading the data for plotting. "
                              "The file either does not exist, is "
                              "incomplete, or is in the wrong format.  Or it may hold more plotting points "
                              "than the set maximum of 59999. -> ok\n";

} // namespace

TEST_F(ResultsLoading, LoadsTheFirstFileAndFillsTheLists) {
    chooseFile(0, "A.SGR");
    EXPECT_EQ(world.takeTranscript(),
              "open dialog \"Select Data File 1\" filter \"Korvel graph files (*.SGR)|*.SGR\" "
              "folder \"\" overwritePrompt no -> {app}\\A.SGR\ncurrent folder {app}\n");
    EXPECT_EQ(GLOBAL.fileNames[0], world.pathOf("A.SGR"));
    EXPECT_EQ(GLOBAL.currentSlot, 0);
    EXPECT_EQ(choices.fileLabels[0], "A.SGR");
    EXPECT_TRUE(choices.firstDataSetLoaded);
    EXPECT_EQ(choices.title, "Small catchment");
    EXPECT_EQ(choices.reaches.size(), 4U);
    EXPECT_EQ(choices.series, (std::vector<std::string>{"Flow", "BOD (Conc)", "Ammonia (Conc)", "BOD (Load)",
                                                        "Ammonia (Load)"}));
    EXPECT_TRUE(choices.plotEnabled);
    EXPECT_FALSE(choices.waiting);
}

TEST_F(ResultsLoading, ShowsThatItWaitsWhileAFileIsRead) {
    chooseFile(0, "A.SGR");
    EXPECT_TRUE(shownWhileLoading.waiting);
    EXPECT_FALSE(shownWhileLoading.plotEnabled);
    EXPECT_EQ(shownWhileLoading.fileLabels[0], "A.SGR");
}

TEST_F(ResultsLoading, LetsTheLevelOptionFollowTheFile) {
    chooseFile(0, "P90.SGR");
    EXPECT_EQ(choices.percentile, Statistic::p90);
    chooseFile(0, "A.SGR");
    EXPECT_EQ(choices.percentile, Statistic::p95);
    chooseFile(0, "P99.SGR");
    EXPECT_EQ(choices.percentile, Statistic::p99);
}

TEST_F(ResultsLoading, RefusesASecondFileWithoutAFirst) {
    world.willAnswer(Answer::ok);
    choose(1);
    EXPECT_EQ(world.takeTranscript(),
              "box [exclamation] Select data file: You must select Data File 1 before Data File 2. -> ok\n");
}

TEST_F(ResultsLoading, LoadsASecondFileAndKeepsTheSelections) {
    chooseFile(0, "A.SGR");
    enterDisplayMode1(choices);
    chooseUpstreamReach(choices, 0, RESULTS);
    choices.title = "My title";
    chooseFile(1, "B.SGR");
    EXPECT_EQ(GLOBAL.currentSlot, 1);
    EXPECT_EQ(GLOBAL.fileNames[1], world.pathOf("B.SGR"));
    EXPECT_EQ(choices.fileLabels[0], "A.SGR");
    EXPECT_EQ(choices.fileLabels[1], "B.SGR");
    EXPECT_EQ(choices.upstream, 0);
    EXPECT_EQ(choices.title, "My title");
    EXPECT_TRUE(choices.plotEnabled);
}

TEST_F(ResultsLoading, AnotherFirstFileInvalidatesTheSecond) {
    chooseFile(0, "A.SGR");
    chooseFile(1, "B.SGR");
    choosePlotType(choices, PlotType::comparison);
    chooseUpstreamReach(choices, 0, RESULTS);
    chooseFile(0, "A.SGR");
    EXPECT_EQ(choices.fileLabels[1], "");
    EXPECT_EQ(GLOBAL.fileNames[1], "");
    EXPECT_EQ(choices.plotType, PlotType::firstDataSet);
    EXPECT_EQ(choices.upstream, NothingChosen);
}

TEST_F(ResultsLoading, AFailedFirstFileLeavesNothingToPlot) {
    chooseFile(0, "A.SGR");
    chooseUpstreamReach(choices, 0, RESULTS);
    world.takeTranscript();
    world.willChoose(world.pathOf("CUT.SGR"));
    world.willAnswer(Answer::ok);
    choose(0);
    EXPECT_TRUE(contains(world.takeTranscript(), readError));
    EXPECT_FALSE(choices.firstDataSetLoaded);
    EXPECT_FALSE(choices.plotEnabled);
    EXPECT_FALSE(choices.waiting);
    EXPECT_EQ(choices.upstream, NothingChosen);
}

TEST_F(ResultsLoading, AFailedSecondFileFallsBackToTheFirst) {
    chooseFile(0, "A.SGR");
    choosePlotType(choices, PlotType::comparison);
    world.willChoose(world.pathOf("CUT.SGR"));
    world.willAnswer(Answer::ok);
    choose(1);
    EXPECT_EQ(choices.fileLabels[0], "A.SGR");
    EXPECT_EQ(choices.fileLabels[1], "");
    EXPECT_EQ(choices.plotType, PlotType::firstDataSet);
    EXPECT_TRUE(choices.plotEnabled);
}

TEST_F(ResultsLoading, CancellingLeavesTheLabelCleared) {
    chooseFile(0, "A.SGR");
    world.willCancel();
    choose(0);
    EXPECT_EQ(choices.fileLabels[0], "");
    EXPECT_TRUE(choices.firstDataSetLoaded);
    EXPECT_EQ(GLOBAL.fileNames[0], world.pathOf("A.SGR"));
}

TEST_F(ResultsLoading, TakesNoFileWhoseNameIsRefused) {
    world.willChooseRefused("Z:\\A.SGR", "Two files differ in case only.");
    world.willAnswer(Answer::ok);
    choose(0);
    EXPECT_TRUE(contains(world.takeTranscript(),
                         "box [exclamation] File name: Two files differ in case only. -> ok\n"));
    EXPECT_EQ(GLOBAL.fileNames[0], "");
    EXPECT_FALSE(choices.firstDataSetLoaded);
}

TEST_F(ResultsLoading, ShowsAnUnexpectedErrorUnderTheSlotsTitle) {
    world.willFailDialog(RunTimeError(errors::deviceIoError));
    world.willAnswer(Answer::ok);
    choose(0);
    EXPECT_TRUE(contains(world.takeTranscript(), "box [critical] Error: Device I/O error -> ok\n"));
    chooseFile(0, "A.SGR");
    world.willFailDialog(RunTimeError(errors::deviceIoError));
    world.willAnswer(Answer::ok);
    choose(1);
    EXPECT_TRUE(
        contains(world.takeTranscript(), "box [critical] Error in 2nd data set: Device I/O error -> ok\n"));
}

TEST_F(ResultsLoading, OffersTheFolderOfTheFirstFileAndBeforeThatTheLastOne) {
    GLOBAL.LastFolder = "C:\\LAST";
    world.willCancel();
    choose(0);
    EXPECT_TRUE(contains(world.takeTranscript(), "folder \"C:\\LAST\""));
    chooseFile(0, "A.SGR");
    world.takeTranscript();
    world.willCancel();
    choose(1);
    EXPECT_TRUE(contains(world.takeTranscript(),
                         "\"Select Data File 2\" filter \"Korvel graph files (*.SGR)|*.SGR\" "
                         "folder \"{app}\\\""));
}

TEST_F(ResultsLoading, ShowsALongPathWithoutItsFolders) {
    beginLoad(choices, 0, "C:\\DATA\\RIVER.SGR");
    EXPECT_EQ(choices.fileLabels[0], "C:\\DATA\\RIVER.SGR");
    beginLoad(choices, 0, "C:\\RIVERS\\MILL\\RIVER.SGR");
    EXPECT_EQ(choices.fileLabels[0], "RIVER.SGR");
}

TEST_F(ResultsLoading, LoadsTheResultsOfARunOnActivation) {
    chooseFile(0, "A.SGR");
    chooseFile(1, "A.SGR");
    world.takeTranscript();
    afterARun("B.SGR");
    activate();
    EXPECT_EQ(world.takeTranscript(), "");
    EXPECT_EQ(choices.fileLabels[0], "B.SGR");
    EXPECT_EQ(choices.fileLabels[1], "");
    EXPECT_EQ(choices.title, "Second");
    EXPECT_EQ(GLOBAL.currentSlot, 0);
    EXPECT_FALSE(GLOBAL.graphResultsPending);
    EXPECT_TRUE(choices.plotEnabled);
    EXPECT_FALSE(choices.waiting);
}

TEST_F(ResultsLoading, LoadsNothingOnActivationWithoutARun) {
    activate();
    EXPECT_EQ(world.takeTranscript(), "");
    EXPECT_FALSE(choices.firstDataSetLoaded);
}

TEST_F(ResultsLoading, AnAutomaticLoadThatFailsStaysPending) {
    afterARun("NOTYET.SGR");
    world.willAnswer(Answer::ok);
    activate();
    EXPECT_EQ(world.takeTranscript(), readError);
    EXPECT_TRUE(GLOBAL.graphResultsPending);
    EXPECT_FALSE(choices.plotEnabled);
    world.putFile("NOTYET.SGR", smallResultsFile());
    activate();
    EXPECT_FALSE(GLOBAL.graphResultsPending);
    EXPECT_TRUE(choices.plotEnabled);
}

TEST_F(ResultsLoading, TakesOverTheFileThatAnotherFormHasRead) {
    chooseFile(0, "A.SGR");
    chooseFile(1, "A.SGR");
    choices.plotType = PlotType::comparison;
    chooseUpstreamReach(choices, 1, RESULTS);
    readInAnotherForm("B.SGR");
    activate();
    EXPECT_EQ(choices.fileLabels[0], "B.SGR");
    EXPECT_EQ(choices.fileLabels[1], "");
    EXPECT_EQ(choices.plotType, PlotType::firstDataSet);
    EXPECT_EQ(choices.title, "Second");
    EXPECT_EQ(choices.upstream, NothingChosen);
    EXPECT_TRUE(choices.plotEnabled);
}

TEST_F(ResultsLoading, HasNothingToPlotWhereAnotherFormsFileCouldNotBeRead) {
    chooseFile(0, "A.SGR");
    world.willAnswer(Answer::ok);
    readInAnotherForm("CUT.SGR");
    activate();
    EXPECT_EQ(choices.fileLabels[0], "CUT.SGR");
    EXPECT_FALSE(choices.firstDataSetLoaded);
    EXPECT_FALSE(choices.plotEnabled);
    world.takeTranscript();
}

TEST_F(ResultsLoading, KeepsItsSelectionsWhereAnotherFormReadTheSameFile) {
    chooseFile(0, "A.SGR");
    chooseFile(1, "A.SGR");
    choices.plotType = PlotType::comparison;
    choices.title = "My title";
    chooseUpstreamReach(choices, 1, RESULTS);
    readInAnotherForm("A.SGR");
    activate();
    EXPECT_EQ(choices.fileLabels[0], "A.SGR");
    EXPECT_EQ(choices.fileLabels[1], "");
    EXPECT_EQ(choices.plotType, PlotType::firstDataSet);
    EXPECT_EQ(choices.title, "My title");
    EXPECT_EQ(choices.upstream, 1);
    GLOBAL.loadFailed = true; // as a data file that was not chosen leaves it
    activate();
    EXPECT_TRUE(choices.plotEnabled);
    EXPECT_EQ(choices.upstream, 1);
}

TEST_F(ResultsLoading, ReturningFromTheGraphKeepsTheState) {
    afterARun("A.SGR");
    GLOBAL.returnedFromGraph = true;
    const GraphChoices before = choices;
    activate();
    EXPECT_EQ(choices, before);
    EXPECT_FALSE(GLOBAL.returnedFromGraph);
    EXPECT_TRUE(GLOBAL.graphResultsPending);
    activate();
    EXPECT_TRUE(choices.firstDataSetLoaded) << "the next activation loads";
}

TEST_F(ResultsLoading, PlotWithNoFileLoadedSaysSo) {
    world.willAnswer(Answer::ok);
    const GraphHandOver before = GLOBAL;
    EXPECT_FALSE(readyToPlot(world, choices));
    EXPECT_EQ(world.takeTranscript(),
              "box [exclamation] Missing data: You have not selected a data set -> ok\n");
    EXPECT_EQ(GLOBAL.graphReaches, before.graphReaches);
    EXPECT_EQ(GLOBAL.plotMeans, before.plotMeans);
}

TEST_F(ResultsLoading, PlotHandsTheGraphOver) {
    chooseFile(0, "A.SGR");
    chooseUpstreamReach(choices, 0, RESULTS);
    selectSeries(choices, {true, false, false, false, false});
    choices.plotInterpolatedPoints = true;
    GLOBAL.mainForm.displayLevel = 2;
    EXPECT_TRUE(readyToPlot(world, choices));
    EXPECT_EQ(GLOBAL.graphReaches, std::vector<int>{1});
    EXPECT_TRUE(GLOBAL.plotInterpolatedPoints);
    EXPECT_EQ(GLOBAL.displayLevel, 2);
}

TEST_F(ResultsLoading, OffersInterpolatedPointsWhereALoadFoundSome) {
    EXPECT_TRUE(choices.offersInterpolatedPoints) << "before any load";
    EXPECT_FALSE(choices.plotInterpolatedPoints);
    chooseFile(0, "A.SGR");
    EXPECT_FALSE(choices.offersInterpolatedPoints);
    EXPECT_FALSE(choices.plotInterpolatedPoints);
    chooseFile(0, "POINTS99.SGR");
    EXPECT_TRUE(choices.offersInterpolatedPoints);
    EXPECT_TRUE(choices.plotInterpolatedPoints);
    choices.plotInterpolatedPoints = false;
    activate();
    EXPECT_FALSE(choices.plotInterpolatedPoints) << "a load is followed once";
    chooseFile(1, "POINTS99.SGR");
    EXPECT_TRUE(choices.plotInterpolatedPoints);
}

TEST_F(ResultsLoading, OffersInterpolatedPointsByTheLoadOfAnotherForm) {
    readInAnotherForm("POINTS99.SGR");
    activate();
    EXPECT_TRUE(choices.plotInterpolatedPoints);
    choices.plotInterpolatedPoints = false;
    world.willAnswer(Answer::ok);
    readInAnotherForm("CUT.SGR");
    activate();
    EXPECT_FALSE(choices.plotInterpolatedPoints) << "one that failed changes nothing";
    EXPECT_TRUE(choices.offersInterpolatedPoints);
}

// "B" is what the report form reads while the set-up form shows "A".
TEST_F(ResultsLoading, ALoadIsRememberedWhicheverWayItCameAbout) {
    chooseFile(0, "A.SGR");
    EXPECT_EQ(choices.firstFile, world.pathOf("A.SGR"));
    EXPECT_EQ(choices.firstLoad, 1);
    readInAnotherForm("B.SGR");
    activate();
    EXPECT_EQ(choices.firstFile, world.pathOf("B.SGR"));
    EXPECT_EQ(choices.firstLoad, 2);
    choices.title = "Mine";
    activate();
    EXPECT_EQ(choices.title, "Mine") << "followed already";
    afterARun("A.SGR");
    activate();
    EXPECT_EQ(choices.firstFile, world.pathOf("A.SGR"));
    EXPECT_EQ(choices.firstLoad, 3);
    choices.title = "Mine";
    chooseFile(1, "B.SGR");
    activate();
    EXPECT_EQ(choices.firstFile, world.pathOf("A.SGR"));
    EXPECT_EQ(choices.title, "Mine") << "a second file is no load of the first";
    EXPECT_EQ(choices.fileLabels[1], "B.SGR");
}

TEST_F(ResultsLoading, PlotOfIncompleteResultsSaysSo) {
    chooseFile(0, "A.SGR");
    chooseUpstreamReach(choices, 0, RESULTS);
    choices.downstream = 2;
    selectSeries(choices, {true, false, false, false, false});
    RESULTS.pointCount = 8;
    world.takeTranscript();
    world.willAnswer(Answer::ok);
    EXPECT_FALSE(readyToPlot(world, choices));
    EXPECT_TRUE(contains(world.takeTranscript(), "box [question] Incomplete Results: "));
}

} // namespace korvel
