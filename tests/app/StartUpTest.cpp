#include "app/StartUp.h"

#include "fakes/FakePlatform.h"
#include "global/GLOBAL.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

class StartValues : public testing::Test {
  protected:
    void SetUp() override { GLOBAL = {}; }
    void TearDown() override { GLOBAL = {}; }
    FakePlatform world;
};

} // namespace

TEST(StartUp, ComputesTheScreenFactorsInSinglePrecision) {
    const ScreenFactors factors = screenFactors({0, 0, 28800, 16200});
    EXPECT_EQ(factors.x, 3);
    EXPECT_EQ(factors.y, static_cast<double>(static_cast<float>(16200.0 / 6780.0)));
    EXPECT_EQ(screenFactors({0, 0, 20490, 6780}).x,
              static_cast<double>(static_cast<float>(20490.0 / 9600.0)));
    EXPECT_EQ(screenFactors({0, 0, 20490, 6780}).y, 1);
}

TEST(StartUp, FillsTheWorkAreaWithAForm) {
    const Place place = formPlace({300, 450, 20490, 11520});
    EXPECT_EQ(place.left, 300);
    EXPECT_EQ(place.top, 450);
    EXPECT_NEAR(place.width, 20490, 0.01);
    EXPECT_NEAR(place.height, 11520, 0.01);
}

TEST(StartUp, KeepsTheDesignSizeOnAWorkAreaOfThatSize) {
    EXPECT_EQ(formPlace({0, 0, 9600, 6780}), (Place{0, 0, 9600, 6780}));
}

TEST(StartUp, PlacesTheDialogFrame) {
    EXPECT_EQ(dialogFramePlace({1, 2, 500, 300}, {0, 0, 9600, 6780}), (Place{1550, 594, 500, 300}));
}

TEST(StartUp, CentresTheProgressFrame) {
    EXPECT_EQ(centredOnForm({1, 2, 3600, 780}, {300, 450, 9600, 6780}), (Place{3000, 3000, 3600, 780}));
}

TEST(StartUp, GrowsTheTitleLabelsByTheLargerFactorAndTheirFontWithoutRounding) {
    for (const ScreenFactors& factors : {ScreenFactors{1.5, 1.25}, ScreenFactors{1.5, 2}}) {
        const double larger = factors.y > factors.x ? factors.y : factors.x;
        const TitleLabel label = scaledTitleLabel({{100, 200, 300, 400}, 33}, factors);
        EXPECT_EQ(label.place, (Place{150, 200 * factors.y, 300 * larger, 400 * larger}));
        EXPECT_EQ(label.fontSize, 49.5);
    }
}

TEST(StartUp, StretchesTheLogoShapes) {
    EXPECT_EQ(scaledLogoShape({100, 200, 300, 400}, {1.5, 2}), (Place{150, 400, 450, 800}));
}

TEST(StartUp, BeginsWithTheWarningAboutEditingAndWithoutProgress) {
    const MainFormState state;
    EXPECT_EQ(state.title, "");
    EXPECT_TRUE(state.editWarningVisible);
    EXPECT_TRUE(state.runMenuEnabled);
    EXPECT_FALSE(state.saveEnabled || state.saveAsEnabled || state.editTextEnabled);
    EXPECT_FALSE(state.progressFrameVisible || state.progressContentsVisible);
    EXPECT_EQ(state.progressFrameColour, std::nullopt);
    EXPECT_EQ(state.progress, 0);
    EXPECT_EQ(state.displayLevel, 0);
}

TEST_F(StartValues, AreSetAndThenTheSettingsRead) {
    world.desktop = {0, 0, 19200, 13560};
    world.putFile("MISC.TXT", "C:\\DATA\r\n1\r\nFalse\r\n");
    GLOBAL.DataModified = GLOBAL.graphResultsPending = GLOBAL.reportResultsPending = true;
    GLOBAL.mainForm.saveEnabled = GLOBAL.mainForm.saveAsEnabled = GLOBAL.mainForm.editTextEnabled = true;
    GLOBAL.mainForm.runMenuEnabled = false;
    SetStartValues(world);
    EXPECT_EQ(GLOBAL.ScaleX, 2);
    EXPECT_EQ(GLOBAL.ScaleY, 2);
    EXPECT_EQ(GLOBAL.LastFolder, "C:\\DATA");
    EXPECT_EQ(GLOBAL.mainForm.displayLevel, 1);
    EXPECT_FALSE(GLOBAL.DataModified || GLOBAL.graphResultsPending || GLOBAL.reportResultsPending);
    EXPECT_FALSE(GLOBAL.mainForm.saveEnabled || GLOBAL.mainForm.saveAsEnabled ||
                 GLOBAL.mainForm.editTextEnabled);
    EXPECT_TRUE(GLOBAL.mainForm.runMenuEnabled);
    EXPECT_TRUE(GLOBAL.mainForm.editWarningVisible);
}

TEST_F(StartValues, FailWithoutASettingsFile) {
    try {
        SetStartValues(world);
        FAIL() << "started without a settings file";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.number, errors::fileNotFound);
    }
    EXPECT_EQ(GLOBAL.LastFolder, world.folder());
}

TEST_F(StartValues, LeaveTheSharedConstantsAtTheirValues) {
    EXPECT_EQ(GLOBAL.sixty, 60);
    EXPECT_EQ(GLOBAL.fortyFive, 45);
    EXPECT_EQ(GLOBAL.ninety, 90);
    EXPECT_DOUBLE_EQ(GLOBAL.pi, 3.14159265358979323846);
    EXPECT_EQ(GLOBAL.highlightColour, 14);
    EXPECT_EQ(GLOBAL.doubleLineBreak, "\r\n\r\n");
    EXPECT_EQ(GLOBAL.LoadingMessage, "PLEASE WAIT - DATA FILE LOADING");
}

} // namespace korvel
