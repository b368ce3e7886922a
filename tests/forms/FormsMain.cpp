// The forms' tests run their real controls without a display.
#include "toolkit/desktop/StartQt.h"

#include <QApplication>
#include <gtest/gtest.h>

#include <cstdio>

namespace korvel {

namespace {

// Without a display Qt says of every window that its size hints and raising it go nowhere.
void writeMessage(QtMsgType, const QMessageLogContext&, const QString& message) {
    if (!message.contains("This plugin does not support ")) std::fprintf(stderr, "%s\n", qPrintable(message));
}

} // namespace

} // namespace korvel

using namespace korvel;

int main(int argc, char** argv) {
    qInstallMessageHandler(writeMessage);
    settleForNoDisplay();
    qputenv("QT_LOGGING_RULES", "qt.qpa.*=false;default.warning=true");
    QApplication application(argc, argv);
    settleLook();
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
