#include "toolkit/desktop/QtMachine.h"

#include "basic/DiskNames.h"
#include "basic/ModelName.h"
#include "basic/RunTimeError.h"
#include "basic/Text.h"
#include "drawing/paint/Twips.h"
#include "toolkit/process/EngineStart.h"

#include <QCoreApplication>
#include <QDate>
#include <QFile>
#include <QGuiApplication>
#include <QProcess>
#include <QScreen>

namespace korvel {

namespace {

// Where the engine lies. A blank behind the program's name is no part of it.
std::string enginePath(const std::string& program) {
    std::string path = hostPathOf(trim(program));
    if (!QFile::exists(QFile::decodeName(path.c_str()))) throw RunTimeError(errors::fileNotFound);
    return path;
}

} // namespace

QtMachine::QtMachine(const std::string& applicationFolder)
    : m_applicationFolder(modelNameOfHostPath(applicationFolder)) {}

WorkArea QtMachine::workArea() {
    const QRect area = QGuiApplication::primaryScreen()->availableGeometry();
    return {area.left() * twipsPerPixel, area.top() * twipsPerPixel, area.width() * twipsPerPixel,
            area.height() * twipsPerPixel};
}

Date QtMachine::today() {
    const QDate day = QDate::currentDate();
    return {day.day(), day.month(), day.year()};
}

void QtMachine::startEngine(const std::string& program) {
    enginePath(program);
    const QString folder = QFile::decodeName(hostPathOf(m_applicationFolder).c_str());
    const QStringList arguments{"--application-folder", folder, "--engine-window"};
    if (!QProcess::startDetached(QCoreApplication::applicationFilePath(), arguments, folder))
        throw RunTimeError(errors::fileNotFound);
}

void QtMachine::startEngineAlone(const std::string& program) {
    korvel::startEngineAlone(enginePath(program), hostPathOf(m_applicationFolder));
}

int QtMachine::runEngine(const std::string& program, const std::function<void(std::string_view)>& onOutput) {
    return korvel::runEngine(enginePath(program), hostPathOf(m_applicationFolder), onOutput);
}

} // namespace korvel
