#include "app/DisplayLevel.h"

#include "app/Settings.h"
#include "fakes/FakePlatform.h"
#include "global/GLOBAL.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

class DisplayLevelTest : public testing::Test {
  protected:
    void SetUp() override { GLOBAL = {}; }
    void TearDown() override { GLOBAL = {}; }
    DisplayLevelMarks marks() const { return displayLevelMarks(GLOBAL.mainForm.displayLevel); }
    FakePlatform world;
};

} // namespace

TEST(DisplayLevelMarks, AreCumulative) {
    EXPECT_EQ(displayLevelMarks(0), (DisplayLevelMarks{true, false, false, false}));
    EXPECT_EQ(displayLevelMarks(1), (DisplayLevelMarks{false, true, false, false}));
    EXPECT_EQ(displayLevelMarks(2), (DisplayLevelMarks{false, true, true, false}));
    EXPECT_EQ(displayLevelMarks(3), (DisplayLevelMarks{false, true, true, true}));
}

TEST(DisplayLevelMarks, FollowTheSameRuleBeyondTheFourLevels) {
    EXPECT_EQ(displayLevelMarks(9), (DisplayLevelMarks{false, true, true, true}));
    EXPECT_EQ(displayLevelMarks(-1), (DisplayLevelMarks{false, false, false, false}));
}

TEST_F(DisplayLevelTest, ChoosingSuppressFeaturesChecksTwoItemsAndWritesABlankLevel) {
    GLOBAL.LastFolder = "C:\\DATA";
    ChooseDisplayLevel(world, 2);
    EXPECT_EQ(marks(), (DisplayLevelMarks{false, true, true, false}));
    EXPECT_EQ(world.fileText("MISC.TXT"), "C:\\DATA\r\n\r\nFalse\r\n");
}

TEST_F(DisplayLevelTest, ARestartShowsTheFullResultsWhateverWasChosen) {
    ChooseDisplayLevel(world, 3);
    GLOBAL = {};
    ReadSettings(world);
    EXPECT_EQ(marks(), (DisplayLevelMarks{true, false, false, false}));
}

TEST_F(DisplayLevelTest, ASettingsFileWithLevel2ChecksTwoItemsAtStart) {
    world.putFile("MISC.TXT", "C:\\DATA\r\n2\r\nFalse\r\n");
    ReadSettings(world);
    EXPECT_EQ(marks(), (DisplayLevelMarks{false, true, true, false}));
}

TEST_F(DisplayLevelTest, AFailureToSaveLeavesTheMarks) {
    world.putFile(world.pathOf("MISC.TXT\\BLOCK"), "a folder stands where the file should");
    EXPECT_THROW(ChooseDisplayLevel(world, 2), RunTimeError);
    EXPECT_EQ(marks(), (DisplayLevelMarks{true, false, false, false}));
}

} // namespace korvel
