#include "runs/RunModel.h"

#include "fakes/FakePlatform.h"
#include "global/GLOBAL.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

class RunModelTest : public testing::Test {
  protected:
    void SetUp() override { GLOBAL = {}; }
    void TearDown() override { GLOBAL = {}; }

    void run(int type) {
        GLOBAL.RunType = type;
        RunModel(world, dataFiles);
    }
    void expectNothingStarted() {
        EXPECT_FALSE(contains(world.takeTranscript(), "start engine"));
        EXPECT_FALSE(world.hasFile("RUNDAT.TMP"));
        EXPECT_FALSE(GLOBAL.graphResultsPending);
        EXPECT_FALSE(GLOBAL.reportResultsPending);
        EXPECT_EQ(GLOBAL.fileNames[0], "");
    }

    FakePlatform world;
    DataFiles dataFiles{world, {[] {}, [] {}}};
};

} // namespace

TEST_F(RunModelTest, WritesTheRunControlFileAndStartsTheEngine) {
    world.putEngine();
    world.willChoose("C:\\DATA\\TEST.DAT");
    run(0);
    EXPECT_EQ(world.fileText("RUNDAT.TMP"), "SINGLE\r\nC:\\DATA\\\r\nC:\\DATA\\TEST.DAT\r\n 0 \r\n");
    const std::string transcript = world.takeTranscript();
    EXPECT_EQ(transcript.substr(transcript.find("current folder")), "current folder {app}\n"
                                                                    "current folder {app}\n"
                                                                    "start engine {app}\\korvelf157.exe\n");
}

TEST_F(RunModelTest, HandsTheRunTypeOn) {
    world.putEngine();
    for (int type = 0; type <= 9; ++type) {
        world.willChoose("C:\\A.DAT");
        run(type);
        EXPECT_EQ(world.fileText("RUNDAT.TMP"),
                  "SINGLE\r\nC:\\\r\nC:\\A.DAT\r\n " + std::to_string(type) + " \r\n");
    }
}

TEST_F(RunModelTest, PointsTheFirstDataSetAtTheResultsOfTheRun) {
    world.putEngine();
    GLOBAL.currentSlot = 1;
    world.willChoose("C:\\DATA\\TEST.DAT");
    run(0);
    EXPECT_TRUE(GLOBAL.graphResultsPending);
    EXPECT_TRUE(GLOBAL.reportResultsPending);
    EXPECT_EQ(GLOBAL.currentSlot, 0);
    EXPECT_EQ(GLOBAL.fileNames[0], "C:\\DATA\\TEST.SGR");
}

TEST_F(RunModelTest, ForgetsTheFileNameButKeepsFolderAndBase) {
    world.putEngine();
    world.willChoose("C:\\DATA\\TEST.DAT");
    run(0);
    EXPECT_EQ(GLOBAL.DataFileName, "");
    EXPECT_EQ(GLOBAL.DataFolder, "C:\\DATA\\");
    EXPECT_EQ(GLOBAL.DataFileBase, "TEST");
    EXPECT_EQ(GLOBAL.mainForm.title, "KORVEL");
    EXPECT_FALSE(GLOBAL.RunStarting);
    EXPECT_FALSE(GLOBAL.mainForm.editWarningVisible);
}

TEST_F(RunModelTest, ASecondRunRewritesTheRunControlFileAtOnce) {
    world.putEngine();
    world.willChoose("C:\\ONE\\A.DAT");
    run(1);
    world.willChoose("C:\\TWO\\B.DAT");
    run(2);
    EXPECT_EQ(world.fileText("RUNDAT.TMP"), "SINGLE\r\nC:\\TWO\\\r\nC:\\TWO\\B.DAT\r\n 2 \r\n");
    EXPECT_EQ(GLOBAL.fileNames[0], "C:\\TWO\\B.SGR");
}

TEST_F(RunModelTest, ACancelledChoiceStartsNothingAndShowsNewData) {
    world.putEngine();
    world.willCancel();
    run(0);
    EXPECT_EQ(GLOBAL.mainForm.title, "KORVEL:  New Data");
    EXPECT_TRUE(GLOBAL.RunStarting) << "until the main form is activated";
    expectNothingStarted();
}

TEST_F(RunModelTest, ANameThatFailsTheLengthChecksStartsNothing) {
    world.putEngine();
    world.willChoose("C:\\" + std::string(30, 'A') + ".DAT");
    world.willAnswer(Answer::ok);
    run(0);
    EXPECT_EQ(GLOBAL.mainForm.title, "KORVEL");
    expectNothingStarted();
}

TEST_F(RunModelTest, AMissingEngineIsAFailureThatNothingTraps) {
    world.willChoose("C:\\A.DAT");
    try {
        run(0);
        FAIL() << "started without an engine";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.number, errors::fileNotFound);
    }
    EXPECT_TRUE(world.hasFile("RUNDAT.TMP"));
    EXPECT_FALSE(GLOBAL.graphResultsPending);
}

TEST_F(RunModelTest, ARunControlFileThatCannotBeWrittenIsAFailureThatNothingTraps) {
    world.putEngine();
    world.putFile(world.pathOf("RUNDAT.TMP\\BLOCK"), "a folder stands where the file should");
    world.willChoose("C:\\A.DAT");
    EXPECT_THROW(run(0), RunTimeError);
    EXPECT_FALSE(contains(world.takeTranscript(), "start engine"));
}

} // namespace korvel
