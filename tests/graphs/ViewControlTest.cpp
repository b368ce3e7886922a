#include "graphs/draw/ViewControl.h"

#include <gtest/gtest.h>

namespace korvel {

TEST(ViewControl, ZoomsInDownToAQuarter) {
    GraphView view;
    for (const double expected : {0.5, 0.25, 0.25}) {
        zoomIn(view);
        EXPECT_EQ(view.ZoomFactor, expected);
    }
}

TEST(ViewControl, ZoomsOutUpToFour) {
    GraphView view;
    for (const double expected : {2.0, 4.0, 4.0}) {
        zoomOut(view);
        EXPECT_EQ(view.ZoomFactor, expected);
    }
}

TEST(ViewControl, ZoomingKeepsTheOffsets) {
    GraphView view{1, 100, -50, 1};
    zoomIn(view);
    EXPECT_EQ(view.ScrollOffsetX, 100);
    EXPECT_EQ(view.ScrollOffsetY, -50);
}

TEST(ViewControl, ScrollsByAQuarterOfWhatIsSeen) {
    GraphView view;
    view.ZoomFactor = 2;
    scroll(view, ScrollDirection::up, 1000, 400);
    EXPECT_EQ(view.ScrollOffsetY, 200);
    scroll(view, ScrollDirection::down, 1000, 400);
    scroll(view, ScrollDirection::down, 1000, 400);
    EXPECT_EQ(view.ScrollOffsetY, -200);
    scroll(view, ScrollDirection::right, 1000, 400);
    EXPECT_EQ(view.ScrollOffsetX, 500);
    scroll(view, ScrollDirection::left, 1000, 400);
    scroll(view, ScrollDirection::left, 1000, 400);
    EXPECT_EQ(view.ScrollOffsetX, -500);
}

TEST(ViewControl, ScrollsByWholeStepsAtOnce) {
    GraphView view;
    view.ZoomFactor = 0.5;
    scroll(view, QuarterSteps{3, -2}, 800, 400);
    EXPECT_EQ(view.ScrollOffsetX, 300);
    EXPECT_EQ(view.ScrollOffsetY, -100);
    scroll(view, QuarterSteps{-3, 2}, 800, 400);
    EXPECT_EQ(view.ScrollOffsetX, 0);
    EXPECT_EQ(view.ScrollOffsetY, 0);
}

TEST(ViewControl, ADraggedPictureMovesByTheNearestWholeSteps) {
    GraphView view;
    EXPECT_EQ(stepsOfDrag(view, 0, 0, 800, 400), (QuarterSteps{0, 0}));
    EXPECT_EQ(stepsOfDrag(view, 99, -49, 800, 400), (QuarterSteps{0, 0}));
    EXPECT_EQ(stepsOfDrag(view, 101, 51, 800, 400), (QuarterSteps{-1, 1}))
        << "dragged to the right and down it shows what is left and above";
    EXPECT_EQ(stepsOfDrag(view, -420, -270, 800, 400), (QuarterSteps{2, -3}));
    view.ZoomFactor = 2;
    EXPECT_EQ(stepsOfDrag(view, -420, -270, 800, 400), (QuarterSteps{1, -1}));
    EXPECT_EQ(stepsOfDrag(view, 50, 50, 0, 0), (QuarterSteps{0, 0})) << "nothing to be seen";
}

TEST(ViewControl, ScrollingThereAndBackIsTheDefaultViewAgain) {
    GraphView view;
    scroll(view, ScrollDirection::right, 28123.7, 16001.3);
    EXPECT_FALSE(isDefaultView(view));
    scroll(view, ScrollDirection::left, 28123.7, 16001.3);
    EXPECT_TRUE(isDefaultView(view));
}

TEST(ViewControl, OnlyTheWholeGraphIsTheDefaultView) {
    EXPECT_TRUE(isDefaultView({}));
    EXPECT_TRUE(isDefaultView({1, 0.01, -0.01, 0}));
    EXPECT_FALSE(isDefaultView({1, 0.02, 0, 1}));
    EXPECT_FALSE(isDefaultView({1, 0, 0.02, 1}));
    EXPECT_FALSE(isDefaultView({0.5, 0, 0, 1}));
}

TEST(ViewControl, TheTextSizeButtonAlternates) {
    GraphView view;
    EXPECT_EQ(toggleTextSize(view, "Small text"), "Large text");
    EXPECT_EQ(view.LargeTextMode, 0);
    EXPECT_EQ(toggleTextSize(view, "Large text"), "Small text");
    EXPECT_EQ(view.LargeTextMode, 1);
}

TEST(ViewControl, TheTextSizeButtonSaysWhatItDoes) {
    EXPECT_EQ(
        textSizeToolTip("Small text"),
        "This allows the graph to be displayed in more detail in a smaller font - suitable for printing.");
    EXPECT_EQ(textSizeToolTip("Large text"),
              "This allows the graph to be displayed in less detail in a larger font - to provide improved "
              "legibility on screen.");
}

} // namespace korvel
