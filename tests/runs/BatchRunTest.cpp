#include "runs/BatchRun.h"

#include "basic/Text.h"

#include "fakes/FakePlatform.h"
#include "global/GLOBAL.h"

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>

namespace korvel {

namespace {

class BatchRunTest : public testing::Test {
  protected:
    void SetUp() override { GLOBAL = {}; }
    void TearDown() override { GLOBAL = {}; }

    BatchState& state() { return batch.state(); }
    void chooseIn(const std::string& folder) {
        world.willChoose(folder + "\\ANY.DAT");
        batch.takeStep();
    }
    void listNames(int count) {
        for (int k = 1; k <= count; ++k)
            state().names.push_back("F" + std::to_string(k) + ".DAT");
        state().step = BatchStep::run;
    }
    std::string runText() { return world.fileText("RUNDAT.TMP"); }
    int errorOfRun() {
        try {
            batch.takeStep();
        } catch (const RunTimeError& error) {
            return error.number;
        }
        return 0;
    }

    FakePlatform world;
    int shownTimes = 0;
    BatchRun batch{world, [this] { ++shownTimes; }};
};

const std::string leaveQuestion = "box [question] Delete file names: Do you want to delete the marked file "
                                  "names from the list of Base Files? -> ";

} // namespace

// The main form spells in upper case what it has opened.
TEST_F(BatchRunTest, FindsItsFolderInAnySpelling) {
    const std::string folder = world.pathOf("rivers");
    world.putFile(folder + "\\a.dat", "");
    chooseIn(folder);
    GLOBAL.DataFolder = upperCase(folder + "\\");
    EXPECT_EQ(batch.listNote(), "Files of " + folder + "\\");
    GLOBAL.DataFolder = world.pathOf("");
    EXPECT_NE(batch.listNote().find("The folder was changed to " + world.pathOf("") + " since"),
              std::string::npos);
    GLOBAL.DataFolder.clear();
    EXPECT_NE(batch.listNote().find("No folder is chosen any more"), std::string::npos);
}

TEST_F(BatchRunTest, StepOneListsTheFolderOfTheChosenFile) {
    const std::string folder = world.pathOf("rivers");
    world.putFile(folder + "\\a.dat", "");
    world.putFile(folder + "\\A.DAT.BAK", "");
    world.putFile(folder + "\\notes.txt", "");
    world.putFile(folder + "\\sub.dat\\inner.dat", "");
    GLOBAL.LastFolder = "Z:\\earlier";
    chooseIn(folder);
    EXPECT_EQ(state().names, (std::vector<std::string>{"A.DAT", "A.DAT.BAK"}));
    EXPECT_EQ(state().folder, folder + "\\");
    EXPECT_EQ(world.takeTranscript(),
              "open dialog \"Select ONE data file for inclusion in Batch Run\" filter \"Korvel input data "
              "(*.dat)|*.dat\" folder \"Z:\\earlier\" overwritePrompt no -> {app}\\rivers\\ANY.DAT\n"
              "current folder {app}\n");
    EXPECT_EQ(GLOBAL.DataFolder, folder + "\\");
    EXPECT_EQ(GLOBAL.LastFolder, folder + "\\");
}

TEST_F(BatchRunTest, StepOneShowsTheListAndMovesOnToStepTwo) {
    EXPECT_FALSE(state().listVisible || state().listEnabled || state().removalHintVisible);
    EXPECT_FALSE(state().assembling || state().completed);
    EXPECT_EQ(state().progress, 0);
    EXPECT_EQ(state().step, BatchStep::selectFiles);
    chooseIn(world.folder());
    EXPECT_TRUE(state().listVisible && state().listEnabled && state().removalHintVisible);
    EXPECT_EQ(state().step, BatchStep::run);
}

TEST_F(BatchRunTest, ACancelInStepOneStaysAtStepOne) {
    GLOBAL.DataFolder = "Z:\\A\\";
    world.willCancel();
    batch.takeStep();
    EXPECT_EQ(state().step, BatchStep::selectFiles);
    EXPECT_FALSE(state().listVisible || state().listEnabled || state().removalHintVisible);
    EXPECT_EQ(GLOBAL.DataFolder, "Z:\\A\\");
    EXPECT_FALSE(contains(world.takeTranscript(), "current folder"));
}

TEST_F(BatchRunTest, ANameThatCannotBeUsedStaysAtStepOneAndSaysWhy) {
    world.willChooseRefused("Z:\\a\\b.dat", "The name holds a backslash.");
    world.willAnswer(Answer::ok);
    batch.takeStep();
    EXPECT_EQ(state().step, BatchStep::selectFiles);
    EXPECT_TRUE(contains(world.takeTranscript(), "box [exclamation] File name: The name holds a backslash."));
}

TEST_F(BatchRunTest, ARootFolderIsFollowedByTwoBackslashes) {
    chooseIn("Z:");
    EXPECT_EQ(GLOBAL.DataFolder, "Z:\\\\");
}

TEST_F(BatchRunTest, WritesTheTitleAndThreeLinesAFile) {
    world.putEngine();
    GLOBAL.DataFolder = "C:\\DATA\\";
    state().names = batchList({"TEST1.DAT", "TEST2.dat"}).names;
    state().step = BatchStep::run;
    state().title = " Two schemes ";
    batch.chooseOption(3);
    batch.takeStep();
    EXPECT_EQ(runText(), "Two schemes\r\nC:\\DATA\\\r\nC:\\DATA\\TEST1.DAT\r\n 8 \r\n"
                         "C:\\DATA\\\r\nC:\\DATA\\TEST2.DAT\r\n 8 \r\n");
    EXPECT_EQ(world.takeTranscript(), "current folder {app}\nstart engine {app}\\korvelf157.exe \n");
    EXPECT_TRUE(state().completed);
}

TEST_F(BatchRunTest, AnEmptyTitleWritesADash) {
    world.putEngine();
    listNames(1);
    GLOBAL.DataFolder = "C:\\";
    batch.takeStep();
    EXPECT_EQ(runText(), "-\r\nC:\\\r\nC:\\F1.DAT\r\n 0 \r\n");
}

TEST_F(BatchRunTest, LeavesTheFolderAsItIsSpelt) {
    world.putEngine();
    world.putFile("a.dat", "");
    chooseIn(world.folder());
    batch.takeStep();
    EXPECT_EQ(runText(), "-\r\n" + world.folder() + "\\\r\n" + world.folder() + "\\A.DAT\r\n 0 \r\n");
}

TEST_F(BatchRunTest, AnEmptyListWritesTheTitleAloneAndStartsTheEngine) {
    world.putEngine();
    listNames(0);
    batch.takeStep();
    EXPECT_EQ(runText(), "-\r\n");
    EXPECT_TRUE(contains(world.takeTranscript(), "start engine"));
    EXPECT_EQ(GLOBAL.batchFileCount, 0);
}

TEST_F(BatchRunTest, ANameWithoutABaseWritesNothingButIsCounted) {
    world.putEngine();
    GLOBAL.DataFolder = "C:\\";
    state().names = {".DAT", "A.DAT", "X.DATA"};
    state().step = BatchStep::run;
    batch.takeStep();
    EXPECT_EQ(runText(), "-\r\nC:\\\r\nC:\\A.DAT\r\n 0 \r\nC:\\\r\nC:\\X..DAT\r\n 0 \r\n");
    EXPECT_EQ(GLOBAL.batchFileCount, 3);
}

TEST_F(BatchRunTest, RunsThreeHundredFiles) {
    world.putEngine();
    listNames(300);
    GLOBAL.DataFolder = "C:\\";
    batch.takeStep();
    const std::string text = runText();
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 1 + 3 * 300);
    EXPECT_TRUE(text.ends_with("C:\\F300.DAT\r\n 0 \r\n"));
    EXPECT_EQ(GLOBAL.batchFileCount, 300);
    EXPECT_EQ(GLOBAL.BatchFiles[300], "F300.DAT");
    EXPECT_EQ(GLOBAL.BatchFiles[0], "");
}

TEST_F(BatchRunTest, TheThreeHundredAndFirstFileIsABoundsError) {
    world.putEngine();
    listNames(301);
    EXPECT_EQ(errorOfRun(), errors::subscriptOutOfRange);
    EXPECT_FALSE(contains(world.takeTranscript(), "start engine"));
    EXPECT_FALSE(world.hasFile("RUNDAT.TMP"));
}

TEST_F(BatchRunTest, ForgetsTheFirstHundredEntriesOfTheBatchBefore) {
    world.putEngine();
    listNames(120);
    batch.takeStep();
    state().names = {"A.DAT"};
    batch.takeStep();
    EXPECT_EQ(GLOBAL.BatchFiles[1], "A.DAT");
    EXPECT_EQ(GLOBAL.BatchFiles[100], "");
    EXPECT_EQ(GLOBAL.BatchFiles[101], "F101.DAT");
    EXPECT_EQ(GLOBAL.batchFileCount, 1);
}

TEST_F(BatchRunTest, DeletesThePolicyDataOfEarlierRuns) {
    world.putEngine();
    world.putFile("GlobalPolicyData.gpd", "old");
    world.putFile("a.dat", "");
    chooseIn(world.folder());
    batch.takeStep();
    EXPECT_FALSE(world.hasFile("GlobalPolicyData.gpd"));
    EXPECT_TRUE(world.hasFile("a.dat"));
}

TEST_F(BatchRunTest, KeepsTheRunTypeWhereNoOptionIsChosen) {
    world.putEngine();
    GLOBAL.RunType = 7;
    GLOBAL.DataFolder = "C:\\";
    listNames(1);
    batch.takeStep();
    EXPECT_TRUE(runText().ends_with(" 7 \r\n"));
    batch.chooseOption(5);
    batch.takeStep();
    EXPECT_TRUE(runText().ends_with(" 6 \r\n"));
    EXPECT_EQ(GLOBAL.RunType, 6);
}

TEST_F(BatchRunTest, LeavesTheLastFileAsTheCurrentOne) {
    world.putEngine();
    GLOBAL.DataFolder = "C:\\DATA\\";
    listNames(2);
    batch.takeStep();
    EXPECT_EQ(GLOBAL.DataFileName, "C:\\DATA\\\\F2.DAT");
    EXPECT_EQ(GLOBAL.DataFileBase, "F2");
    EXPECT_FALSE(GLOBAL.graphResultsPending || GLOBAL.reportResultsPending);
}

TEST_F(BatchRunTest, StepTwoMayBeRepeatedAndHidesTheHint) {
    world.putEngine();
    world.putFile("a.dat", "");
    chooseIn(world.folder());
    world.takeTranscript();
    batch.takeStep();
    EXPECT_FALSE(state().removalHintVisible);
    const std::string first = runText();
    batch.takeStep();
    EXPECT_EQ(runText(), first);
    EXPECT_EQ(state().step, BatchStep::run);
    EXPECT_FALSE(state().assembling);
    EXPECT_GT(shownTimes, 0);
}

TEST_F(BatchRunTest, AnOptionAndEveryStepHideTheCompletionLabel) {
    world.putEngine();
    listNames(1);
    batch.takeStep();
    ASSERT_TRUE(state().completed);
    batch.chooseOption(0);
    EXPECT_FALSE(state().completed);
    state().completed = true;
    state().step = BatchStep::selectFiles;
    world.willCancel();
    batch.takeStep();
    EXPECT_FALSE(state().completed);
}

TEST_F(BatchRunTest, DeleteRemovesSelectedNamesWithoutAQuestion) {
    listNames(3);
    state().selected = {true, false, true};
    batch.deleteSelected();
    EXPECT_EQ(state().names, std::vector<std::string>{"F2.DAT"});
    EXPECT_EQ(world.takeTranscript(), "");
}

TEST_F(BatchRunTest, LeavingTheListWithASelectionAsksFirst) {
    listNames(3);
    state().selected = {true, true, false};
    world.willAnswer(Answer::no);
    batch.leaveList();
    EXPECT_EQ(state().names.size(), 3u);
    EXPECT_EQ(state().selected, (std::vector<bool>{true, true, false}));
    world.willAnswer(Answer::yes);
    batch.leaveList();
    EXPECT_EQ(state().names, std::vector<std::string>{"F3.DAT"});
    EXPECT_EQ(world.takeTranscript(), leaveQuestion + "no\n" + leaveQuestion + "yes\n");
    batch.leaveList();
    EXPECT_EQ(world.takeTranscript(), "") << "nothing is selected any more";
}

TEST_F(BatchRunTest, AFileOrFolderThatHasGoneIsLeftToTheEngine) {
    world.putEngine();
    world.putFile(world.pathOf("gone\\a.dat"), "");
    chooseIn(world.pathOf("gone"));
    std::filesystem::rename(hostPathOf(world.pathOf("gone")), hostPathOf(world.pathOf("renamed")));
    batch.takeStep();
    EXPECT_TRUE(contains(runText(), world.pathOf("gone") + "\\A.DAT\r\n"));
    EXPECT_TRUE(contains(world.takeTranscript(), "start engine"));
}

TEST_F(BatchRunTest, AMissingEngineIsAFailureThatNothingTraps) {
    listNames(1);
    EXPECT_EQ(errorOfRun(), errors::fileNotFound);
    EXPECT_TRUE(world.hasFile("RUNDAT.TMP"));
    EXPECT_FALSE(state().completed);
}

TEST_F(BatchRunTest, ARunControlFileThatCannotBeWrittenIsAFailureThatNothingTraps) {
    world.putEngine();
    world.putFile(world.pathOf("RUNDAT.TMP\\BLOCK"), "a folder stands where the file should");
    listNames(1);
    EXPECT_NE(errorOfRun(), 0);
    EXPECT_FALSE(contains(world.takeTranscript(), "start engine"));
}

} // namespace korvel
