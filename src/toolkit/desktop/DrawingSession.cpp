#include "toolkit/desktop/DrawingSession.h"

#include "toolkit/desktop/StartQt.h"

#include <QGuiApplication>

namespace korvel {

namespace {

// Qt keeps references to both.
int argumentCount = 1;
char programName[] = "korvel";
char* arguments[] = {programName, nullptr};

} // namespace

DrawingSession::DrawingSession() {
    if (QCoreApplication::instance()) return;
    settleForNoDisplay();
    // Qt remarks on folders of a desktop that a command has no use for.
    const QtMessageHandler handler =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    m_application = std::make_unique<QGuiApplication>(argumentCount, arguments);
    qInstallMessageHandler(handler);
}

DrawingSession::~DrawingSession() = default;

} // namespace korvel
