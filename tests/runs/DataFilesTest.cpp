#include "runs/DataFiles.h"

#include "fakes/FakePlatform.h"
#include "global/GLOBAL.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

const std::string openDialog =
    "open dialog \"Open KORVEL data file ...\" filter \"Korvel input data (*.DAT)|*.DAT\" ";
const std::string saveDialog =
    "save dialog \"Save KORVEL input data file\" filter \"Korvel input data (*.DAT)|*.DAT\" ";

class DataFilesTest : public testing::Test {
  protected:
    void SetUp() override {
        GLOBAL = {};
        GLOBAL.LastFolder = "C:\\OLD";
    }
    void TearDown() override { GLOBAL = {}; }

    void expectNames(const char* name, const char* folder, const char* base) {
        EXPECT_EQ(GLOBAL.DataFileName, name);
        EXPECT_EQ(GLOBAL.DataFolder, folder);
        EXPECT_EQ(GLOBAL.DataFileBase, base);
    }

    FakePlatform world;
    int settingsSaved = 0;
    MainFormState shownState; // as the form last showed it
    DataFiles dataFiles{world, {[this] { ++settingsSaved; }, [this] { shownState = GLOBAL.mainForm; }}};
};

} // namespace

TEST_F(DataFilesTest, OpensAChosenFile) {
    world.willChoose("C:\\data\\test.dat");
    dataFiles.Open();
    EXPECT_EQ(world.takeTranscript(), openDialog +
                                          "folder \"C:\\OLD\" overwritePrompt no -> C:\\data\\test.dat\n"
                                          "current folder {app}\n");
    expectNames("C:\\DATA\\TEST.DAT", "C:\\DATA\\", "TEST");
    EXPECT_EQ(GLOBAL.mainForm.title, "KORVEL:  TEST");
    EXPECT_EQ(GLOBAL.LastFolder, "C:\\data");
    EXPECT_EQ(settingsSaved, 1);
}

TEST_F(DataFilesTest, OpenHidesTheEditWarningBeforeItAsks) {
    world.willCancel();
    dataFiles.Open();
    EXPECT_FALSE(shownState.editWarningVisible);
    EXPECT_TRUE(shownState.editTextEnabled);
    EXPECT_EQ(shownState.progressFrameColour, colours::white);
    EXPECT_FALSE(shownState.progressFrameVisible);
    EXPECT_TRUE(shownState.progressContentsVisible);
}

TEST_F(DataFilesTest, OpenSwitchesTheRunMenuOnAndEditTextOff) {
    GLOBAL.mainForm.runMenuEnabled = false;
    world.willChoose("C:\\A.DAT");
    dataFiles.Open();
    EXPECT_TRUE(GLOBAL.mainForm.runMenuEnabled);
    EXPECT_FALSE(GLOBAL.mainForm.editTextEnabled);
}

TEST_F(DataFilesTest, OpenRemembersARootFolderWithItsBackslash) {
    world.willChoose("C:\\A.DAT");
    dataFiles.Open();
    EXPECT_EQ(GLOBAL.LastFolder, "C:\\");
}

TEST_F(DataFilesTest, OpenLeavesTheTitleWhileARunStarts) {
    GLOBAL.mainForm.title = "KORVEL";
    GLOBAL.RunStarting = true;
    world.willChoose("C:\\A.DAT");
    dataFiles.Open();
    EXPECT_EQ(GLOBAL.mainForm.title, "KORVEL");
}

TEST_F(DataFilesTest, OpenRefusesAWrongExtensionAndEmptiesTheNames) {
    GLOBAL.mainForm.title = "KORVEL:  BEFORE";
    world.willChoose("C:\\DATA\\A.TXT");
    world.willAnswer(Answer::ok);
    dataFiles.Open();
    EXPECT_EQ(world.takeTranscript(),
              openDialog +
                  "folder \"C:\\OLD\" overwritePrompt no -> C:\\DATA\\A.TXT\n"
                  "current folder {app}\n"
                  "box [exclamation] Input data file: The input data file extension must be .DAT. -> ok\n");
    expectNames("", "", "");
    EXPECT_EQ(GLOBAL.mainForm.title, "KORVEL:  BEFORE");
    EXPECT_EQ(GLOBAL.LastFolder, "C:\\DATA") << "the folder is remembered before the checks";
    EXPECT_EQ(settingsSaved, 1);
}

TEST_F(DataFilesTest, OpenRefusesANameOf31Characters) {
    world.willChoose("C:\\" + std::string(27, 'A') + ".DAT");
    world.willAnswer(Answer::ok);
    dataFiles.Open();
    EXPECT_TRUE(contains(world.takeTranscript(),
                         "box [exclamation] Input Data File: File name too long. Must be not "
                         "more than 30 characters, -> ok\n"));
    expectNames("", "", "");
}

TEST_F(DataFilesTest, OpenRefusesANameThatCannotBeHeld) {
    world.willChooseRefused("Z:\\D\\A.DAT", "Two files differ in case only.");
    world.willAnswer(Answer::ok);
    dataFiles.Open();
    EXPECT_EQ(world.takeTranscript(),
              openDialog + "folder \"C:\\OLD\" overwritePrompt no -> Z:\\D\\A.DAT\n"
                           "current folder {app}\n"
                           "box [exclamation] File name: Two files differ in case only. -> ok\n");
    expectNames("", "", "");
    EXPECT_EQ(GLOBAL.LastFolder, "C:\\OLD");
    EXPECT_EQ(settingsSaved, 0);
}

TEST_F(DataFilesTest, ACancelledOpenStartsANewDataFileSilently) {
    GLOBAL.DataFolder = "C:\\DATA\\";
    GLOBAL.mainForm.progress = 0.5;
    GLOBAL.mainForm.saveEnabled = true;
    world.willCancel();
    dataFiles.Open();
    EXPECT_EQ(world.takeTranscript(), openDialog + "folder \"C:\\OLD\" overwritePrompt no -> cancel\n");
    expectNames("New Data", "", "New Data");
    EXPECT_EQ(GLOBAL.mainForm.title, "KORVEL:  New Data");
    EXPECT_EQ(GLOBAL.mainForm.progress, 0);
    EXPECT_FALSE(GLOBAL.mainForm.saveEnabled);
    EXPECT_TRUE(GLOBAL.mainForm.saveAsEnabled);
    EXPECT_TRUE(GLOBAL.mainForm.runMenuEnabled);
    EXPECT_FALSE(GLOBAL.mainForm.editTextEnabled);
    EXPECT_TRUE(GLOBAL.loadFailed);
    EXPECT_EQ(settingsSaved, 0);
}

TEST_F(DataFilesTest, ACancelledOpenAsksWhetherToSaveModifiedData) {
    GLOBAL.DataModified = true;
    world.willCancel();
    world.willAnswer(Answer::no);
    dataFiles.Open();
    EXPECT_EQ(
        world.takeTranscript(),
        openDialog +
            "folder \"C:\\OLD\" overwritePrompt no -> cancel\n"
            "box [question] Save data: Do you wish to save the current data, before creating a new data "
            "file? -> no\n");
    EXPECT_EQ(GLOBAL.DataFileName, "New Data");
}

TEST_F(DataFilesTest, SavingModifiedDataComesBeforeTheReset) {
    GLOBAL.DataModified = true;
    world.willCancel();
    world.willAnswer(Answer::yes);
    world.willChoose("C:\\KEPT\\A.DAT");
    dataFiles.Open();
    EXPECT_TRUE(contains(world.takeTranscript(), saveDialog));
    expectNames("New Data", "C:\\KEPT\\", "New Data");
    EXPECT_EQ(GLOBAL.mainForm.title, "KORVEL:  New Data");
}

TEST_F(DataFilesTest, OpenShowsAnUnexpectedErrorOfTheDialog) {
    world.willFailDialog({57, "Device I/O error"});
    world.willAnswer(Answer::ok);
    dataFiles.Open();
    EXPECT_EQ(
        world.takeTranscript(),
        openDialog +
            "folder \"C:\\OLD\" overwritePrompt no -> error 57\n"
            "box [critical] Unexpected KORVEL Error: The following unexpected error has occurred during "
            "an attempt to open a data file. Please report this to the System Manager:\n\n"
            "Error 57: 'Device I/O error' -> ok\n");
    expectNames("New Data", "", "New Data");
}

TEST_F(DataFilesTest, SaveReArmsEditTextAndWritesNothing) {
    GLOBAL.DataFileName = "C:\\A.DAT";
    dataFiles.Save();
    EXPECT_EQ(world.takeTranscript(), "");
    EXPECT_FALSE(GLOBAL.mainForm.editWarningVisible);
    EXPECT_TRUE(GLOBAL.mainForm.editTextEnabled);
    EXPECT_EQ(GLOBAL.DataFileName, "C:\\A.DAT");
}

TEST_F(DataFilesTest, SaveAsTakesTheNameAndWritesNothing) {
    world.willChoose("C:\\data\\new.dat");
    dataFiles.SaveAs();
    EXPECT_EQ(world.takeTranscript(),
              saveDialog + "folder \"\" overwritePrompt no -> C:\\data\\new.dat\ncurrent folder {app}\n");
    expectNames("C:\\DATA\\NEW.DAT", "C:\\DATA\\", "NEW");
    EXPECT_EQ(GLOBAL.mainForm.title, "KORVEL:  NEW");
    EXPECT_TRUE(GLOBAL.mainForm.editTextEnabled);
    EXPECT_EQ(GLOBAL.LastFolder, "C:\\OLD");
    EXPECT_EQ(settingsSaved, 0);
}

TEST_F(DataFilesTest, SaveAsChecksNoLength) {
    world.willChoose("C:\\" + std::string(120, 'F') + "\\" + std::string(60, 'A') + ".DAT");
    dataFiles.SaveAs();
    EXPECT_EQ(GLOBAL.DataFileBase, std::string(60, 'A'));
}

TEST_F(DataFilesTest, SaveAsWithoutTheExtensionShowsTheMessageAndLeavesTheTitle) {
    GLOBAL.mainForm.title = "KORVEL:  BEFORE";
    GLOBAL.DataFolder = "C:\\D\\";
    GLOBAL.DataFileBase = "BEFORE";
    world.willChoose("C:\\D\\new");
    world.willAnswer(Answer::ok);
    dataFiles.SaveAs();
    EXPECT_TRUE(
        contains(world.takeTranscript(),
                 "box [exclamation] Input data file: The input data file extension must be .DAT. -> ok\n"));
    expectNames("C:\\D\\NEW", "", "");
    EXPECT_EQ(GLOBAL.mainForm.title, "KORVEL:  BEFORE");
}

TEST_F(DataFilesTest, ACancelledSaveAsEmptiesFolderAndBaseSilently) {
    GLOBAL.DataFileName = "C:\\D\\A.DAT";
    GLOBAL.DataFolder = "C:\\D\\";
    GLOBAL.DataFileBase = "A";
    world.willCancel();
    dataFiles.SaveAs();
    EXPECT_EQ(world.takeTranscript(), saveDialog + "folder \"\" overwritePrompt no -> cancel\n");
    expectNames("C:\\D\\A.DAT", "", "");
}

TEST_F(DataFilesTest, AFailedSaveDialogIsSilentToo) {
    world.willFailDialog(RunTimeError(errors::deviceIoError));
    dataFiles.SaveAs();
    EXPECT_EQ(world.takeTranscript(), saveDialog + "folder \"\" overwritePrompt no -> error 57\n");
    EXPECT_EQ(GLOBAL.DataFileBase, "");
}

TEST_F(DataFilesTest, TheOverwritePromptComesFromTheSecondDialogOn) {
    for (int i = 0; i < 3; ++i)
        world.willChoose("C:\\A.DAT");
    dataFiles.SaveAs();
    EXPECT_TRUE(contains(world.takeTranscript(), saveDialog + "folder \"\" overwritePrompt no"));
    dataFiles.Open();
    EXPECT_TRUE(contains(world.takeTranscript(), openDialog + "folder \"C:\\OLD\" overwritePrompt yes"));
    dataFiles.SaveAs();
    EXPECT_TRUE(contains(world.takeTranscript(), saveDialog + "folder \"C:\\OLD\" overwritePrompt yes"))
        << "the folder of the last Open stays set as well";
}

} // namespace korvel
