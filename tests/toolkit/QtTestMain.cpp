// For tests that paint: Qt without a display.
#include "toolkit/desktop/StartQt.h"

#include <QGuiApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    korvel::settleForNoDisplay();
    QGuiApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
