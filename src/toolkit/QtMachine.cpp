#include "toolkit/QtMachine.h"

#include "basic/DiskNames.h"
#include "basic/ModelName.h"
#include "basic/RunTimeError.h"
#include "basic/Text.h"
#include "toolkit/Twips.h"

#include <QCoreApplication>
#include <QDate>
#include <QFile>
#include <QGuiApplication>
#include <QProcess>
#include <QScreen>

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
    const QString folder = QFile::decodeName(hostPathOf(m_applicationFolder).c_str());
    // A blank behind the program's name is no part of it.
    const QString engine = QFile::decodeName(hostPathOf(trim(program)).c_str());
    if (!QFile::exists(engine)) throw RunTimeError(errors::fileNotFound);
    const QStringList arguments{"--application-folder", folder, "--engine-window"};
    if (!QProcess::startDetached(QCoreApplication::applicationFilePath(), arguments, folder))
        throw RunTimeError(errors::fileNotFound);
}
