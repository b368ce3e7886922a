#include "basic/FormScaling.h"

#include <gtest/gtest.h>

#include <vector>

namespace korvel {

namespace {

ControlLayout control(const std::string& typeName) {
    return {typeName, 100, 200, 300, 400, 10, 20, 30, 40, 8};
}

} // namespace

TEST(FormScaling, ChangesNothingOnAWorkAreaOfTheDesignSize) {
    for (const char* type :
         {"Menu", "CommonDialog", "SysInfo", "Image", "Line", "ComboBox", "Label", "CommandButton", "TextBox",
          "OptionButton", "CheckBox", "ListBox", "PictureBox", "Frame", "Shape"})
        EXPECT_EQ(scaledControl(control(type), 1, 1), control(type)) << type;
}

TEST(FormScaling, ScalesAnEightPointLabelToNineOnAWideScreen) {
    const ControlLayout label = scaledControl(control("Label"), 1.5, 1.2);
    EXPECT_EQ(label.fontSize, 9);
    EXPECT_DOUBLE_EQ(label.left, 150);
    EXPECT_DOUBLE_EQ(label.top, 240);
    EXPECT_DOUBLE_EQ(label.width, 450);
    EXPECT_DOUBLE_EQ(label.height, 480);
}

TEST(FormScaling, TakesTheSmallerFactorForFonts) {
    EXPECT_EQ(fontFactor(1.5, 1.2), 1.2);
    EXPECT_EQ(fontFactor(1.2, 1.5), 1.2);
    EXPECT_EQ(fontFactor(1.3, 1.3), 1.3);
}

TEST(FormScaling, ScalesALineByItsEndPointsAlone) {
    ControlLayout expected = control("Line");
    expected.x1 = 20;
    expected.x2 = 60;
    expected.y1 = 60;
    expected.y2 = 120;
    EXPECT_EQ(scaledControl(control("Line"), 2, 3), expected);
}

TEST(FormScaling, LeavesMenusDialogsAndImagesAlone) {
    for (const char* type : {"Menu", "CommonDialog", "SysInfo", "Image"})
        EXPECT_EQ(scaledControl(control(type), 2, 3), control(type)) << type;
}

TEST(FormScaling, LeavesTheHeightOfAComboBoxToItsFont) {
    const ControlLayout combo = scaledControl(control("ComboBox"), 2, 3);
    EXPECT_EQ(combo.left, 200);
    EXPECT_EQ(combo.top, 600);
    EXPECT_EQ(combo.width, 600);
    EXPECT_EQ(combo.height, 400);
    EXPECT_EQ(combo.fontSize, 16);
}

TEST(FormScaling, ScalesTheFontsOfSevenTypesOnly) {
    for (const char* type :
         {"CommandButton", "Label", "TextBox", "OptionButton", "CheckBox", "ComboBox", "ListBox"})
        EXPECT_EQ(scaledControl(control(type), 2, 2).fontSize, 16) << type;
    for (const char* type : {"PictureBox", "Frame", "Shape", "ProgressBar", "Line", "Image"})
        EXPECT_EQ(scaledControl(control(type), 2, 2).fontSize, 8) << type;
}

TEST(FormScaling, MovesAndSizesPicturesFramesShapesAndTheProgressBar) {
    for (const char* type : {"PictureBox", "Frame", "Shape", "ProgressBar"}) {
        const ControlLayout scaled = scaledControl(control(type), 2, 3);
        EXPECT_EQ(scaled.left, 200) << type;
        EXPECT_EQ(scaled.top, 600) << type;
        EXPECT_EQ(scaled.width, 600) << type;
        EXPECT_EQ(scaled.height, 1200) << type;
    }
}

TEST(FormScaling, TruncatesFontSizesExceptWithinATenthBelowTheNextPoint) {
    struct Case {
        double product;
        double size;
    };
    for (const Case& each :
         std::vector<Case>{{8, 8}, {7.85, 7}, {7.89, 7}, {7.95, 8}, {8.92, 9}, {8.5, 8}, {9.6, 9}})
        EXPECT_EQ(scaledFontSize(each.product, 1), each.size) << each.product;
}

} // namespace korvel
