#include "app/Settings.h"

#include "fakes/FakePlatform.h"
#include "global/GLOBAL.h"

#include <gtest/gtest.h>

#include <functional>

namespace korvel {

namespace {

class SettingsFile : public testing::Test {
  protected:
    void SetUp() override { GLOBAL = {}; }
    void TearDown() override { GLOBAL = {}; }
    FakePlatform world;
};

int failureOf(const std::function<void()>& deed) {
    try {
        deed();
    } catch (const RunTimeError& error) {
        return error.number;
    }
    return 0;
}

int failureOfText(const std::string& text) {
    return failureOf([&] { settingsOf(text); });
}

} // namespace

TEST(Settings, ReadsFolderAndLevel) {
    const Settings settings = settingsOf("C:\\DATA\r\n2\r\nFalse\r\n");
    EXPECT_EQ(settings.lastFolder, "C:\\DATA");
    EXPECT_EQ(settings.displayLevel, 2);
}

TEST(Settings, ReadsABlankSecondLineAsLevel0) {
    EXPECT_EQ(settingsOf("C:\\DATA\r\n\r\nFalse\r\n").displayLevel, 0);
    EXPECT_EQ(settingsOf("C:\\DATA\r\n   \r\nFalse\r\n").displayLevel, 0);
}

TEST(Settings, ReadsAnEmptyFolder) {
    EXPECT_EQ(settingsOf("\r\n\r\nFalse\r\n").lastFolder, "");
}

TEST(Settings, CutsAFolderAtItsCommaAndStillReadsTheNextLine) {
    const Settings settings = settingsOf("C:\\RIVERS, 2026\\DATA\r\n1,9\r\nFalse, True\r\n");
    EXPECT_EQ(settings.lastFolder, "C:\\RIVERS");
    EXPECT_EQ(settings.displayLevel, 1);
}

TEST(Settings, DropsBlanksAroundTheFolder) {
    EXPECT_EQ(settingsOf("  C:\\MY DATA  \r\n\r\nFalse\r\n").lastFolder, "C:\\MY DATA");
}

TEST(Settings, ReadsAnyLineEndsAndALastLineWithoutOne) {
    EXPECT_EQ(settingsOf("C:\\DATA\n3\nFalse").displayLevel, 3);
    EXPECT_EQ(settingsOf("C:\\DATA\r3\rFalse").displayLevel, 3);
}

TEST(Settings, FailsOnFewerThanThreeLines) {
    for (const char* text : {"", "C:\\DATA", "C:\\DATA\r\n", "C:\\DATA\r\n\r\n", "C:\\DATA\r\n2"})
        EXPECT_EQ(failureOfText(text), errors::inputPastEndOfFile) << text;
}

TEST(Settings, FailsOnALevelThatIsNoNumber) {
    EXPECT_EQ(failureOfText("C:\\DATA\r\nfull\r\nFalse\r\n"), errors::typeMismatch);
}

TEST(Settings, FailsOnAFlagThatIsTrue) {
    for (const char* flag : {"True", "TRUE", "true", " True ", "-1"})
        EXPECT_EQ(failureOfText("C:\\DATA\r\n\r\n" + std::string(flag) + "\r\n"), errors::unsupportedProperty)
            << flag;
    for (const char* flag : {"False", "FALSE", "false", "", "0"})
        EXPECT_EQ(failureOfText("C:\\DATA\r\n\r\n" + std::string(flag) + "\r\n"), 0) << flag;
}

TEST(Settings, WritesTheFolderABlankLineAndFalse) {
    EXPECT_EQ(settingsText("C:\\MY, DATA"), "C:\\MY, DATA\r\n\r\nFalse\r\n");
}

TEST_F(SettingsFile, IsReadAtStart) {
    world.putFile("MISC.TXT", "C:\\DATA\r\n2\r\nFalse\r\n");
    ReadSettings(world);
    EXPECT_EQ(GLOBAL.LastFolder, "C:\\DATA");
    EXPECT_EQ(GLOBAL.mainForm.displayLevel, 2);
}

TEST_F(SettingsFile, IsWrittenAnew) {
    world.putFile("MISC.TXT", "C:\\DATA\r\n2\r\nFalse\r\nmore\r\n");
    GLOBAL.LastFolder = "C:\\OTHER";
    SaveSettings(world);
    EXPECT_EQ(world.fileText("MISC.TXT"), "C:\\OTHER\r\n\r\nFalse\r\n");
}

TEST_F(SettingsFile, FailsWhereItIsMissing) {
    EXPECT_EQ(failureOf([&] { ReadSettings(world); }), errors::fileNotFound);
}

TEST_F(SettingsFile, FailsWhereItCannotBeWritten) {
    world.putFile(world.pathOf("MISC.TXT\\BLOCK"), "a folder stands where the file should");
    EXPECT_NE(failureOf([&] { SaveSettings(world); }), 0);
}

} // namespace korvel
