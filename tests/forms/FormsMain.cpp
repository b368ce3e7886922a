// The forms' tests run their real controls without a display.
#include "toolkit/StartQt.h"

#include <QApplication>
#include <gtest/gtest.h>

int main(int argc, char** argv) {
    settleForNoDisplay();
    qputenv("QT_LOGGING_RULES", "qt.qpa.*=false;default.warning=true");
    QApplication application(argc, argv);
    settleLook();
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
