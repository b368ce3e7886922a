#include "toolkit/desktop/QtMachine.h"

#include "basic/DiskNames.h"
#include "basic/ModelName.h"
#include "basic/RunTimeError.h"
#include "basic/Text.h"
#include "drawing/paint/Twips.h"
#include "platform/Guide.h"
#include "toolkit/desktop/LastRunMemory.h"
#include "toolkit/desktop/StartQt.h"
#include "toolkit/process/EngineProcess.h"
#include "toolkit/process/EngineStart.h"
#include "toolkit/process/EngineWindowCall.h"

#include <QCoreApplication>
#include <QDate>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QFileSystemWatcher>
#include <QGuiApplication>
#include <QProcess>
#include <QScreen>
#include <QThread>
#include <QUrl>

#include <fcntl.h>

namespace korvel {

namespace {

constexpr unsigned long betweenQuestions = 10; // milliseconds

QString pathShown(const std::string& modelName) {
    return QFile::decodeName(hostPathOf(modelName).c_str());
}

// Where the engine lies. A blank behind the program's name is no part of it.
std::string enginePath(const std::string& program) {
    std::string path = hostPathOf(trim(program));
    if (!isProgramFile(path)) throw RunTimeError(errors::fileNotFound);
    return path;
}

// A process of its own; "" leaves the current folder.
void startOwnWindow(const QStringList& arguments, const QString& folder) {
    QProcess window;
    window.setProgram(QCoreApplication::applicationFilePath());
    window.setArguments(arguments);
    window.setWorkingDirectory(folder);
    window.setProcessEnvironment(desktopsEnvironment());
    if (!window.startDetached()) throw RunTimeError(errors::fileNotFound);
}

} // namespace

QtMachine::QtMachine(std::function<std::string()> findFolder) : m_findFolder(std::move(findFolder)) {}

QtMachine::~QtMachine() = default;

std::string QtMachine::applicationFolder() {
    if (m_applicationFolder.empty()) m_applicationFolder = modelNameOfHostPath(m_findFolder());
    return m_applicationFolder;
}

WorkArea QtMachine::workArea() {
    const QRect area = QGuiApplication::primaryScreen()->availableGeometry();
    return {area.left() * twipsPerPixel, area.top() * twipsPerPixel, area.width() * twipsPerPixel,
            area.height() * twipsPerPixel};
}

Date QtMachine::today() {
    const QDate day = QDate::currentDate();
    return {day.day(), day.month(), day.year()};
}

// What the user does meanwhile is done afterwards; the windows are painted as ever.
StartTurn QtMachine::takeStartTurn() {
    return StartTurn::waitFor(hostFolder(), [] {
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        QThread::msleep(betweenQuestions);
    });
}

void QtMachine::startEngine(const std::string& program, const StartedRun& run, StartTurn turn) {
    enginePath(program);
    const QString folder = pathShown(applicationFolder());
    QStringList arguments{"--application-folder", folder};
    arguments += engineWindowArguments(run, turn);
    if (turn.isHeld()) fcntl(turn.descriptor(), F_SETFD, 0); // the window takes it over
    startOwnWindow(arguments, folder);
}

void QtMachine::startEngineAlone(const std::string& program, StartTurn turn) {
    korvel::startEngineAlone(enginePath(program), hostFolder(), std::move(turn));
}

int QtMachine::runEngine(const std::string& program, const std::function<void(std::string_view)>& onOutput,
                         StartTurn turn) {
    return korvel::runEngine(enginePath(program), hostFolder(), onOutput, std::move(turn));
}

// The Explorer keeps to the current folder of whoever started it; the files are named in full.
void QtMachine::startExplorer(const std::vector<std::string>& files) {
    QStringList arguments{"--application-folder", pathShown(applicationFolder()), "explore", "--"};
    for (const std::string& file : files)
        arguments << pathShown(file);
    startOwnWindow(arguments, "");
}

void QtMachine::showFolder(const std::string& folder) {
    QDesktopServices::openUrl(QUrl::fromLocalFile(pathShown(folder)));
}

void QtMachine::openFile(const std::string& file) {
    QDesktopServices::openUrl(QUrl::fromLocalFile(pathShown(file)));
}

std::string QtMachine::guideFile() {
    for (const std::string& place : guidePlaces(QCoreApplication::applicationDirPath().toStdString())) {
        const QFileInfo file(QString::fromStdString(place));
        if (file.isFile()) return file.canonicalFilePath().toStdString();
    }
    return "";
}

bool QtMachine::openGuide(const std::string& guide) {
    return QDesktopServices::openUrl(QUrl::fromLocalFile(QString::fromStdString(guide)));
}

std::string QtMachine::samplesFolder() {
    for (const std::string& place : samplesPlaces(QCoreApplication::applicationDirPath().toStdString())) {
        const QFileInfo folder(QString::fromStdString(place));
        if (folder.isDir()) return modelNameOfHostPath(folder.canonicalFilePath().toStdString());
    }
    return "";
}

std::string QtMachine::homeFolder() {
    return modelNameOfHostPath(QFile::encodeName(QDir::homePath()).toStdString());
}

void QtMachine::makeFolder(const std::string& folder) {
    if (!QDir().mkpath(pathShown(folder))) throw RunTimeError(errors::pathFileAccessError);
}

std::vector<LastRun> QtMachine::lastRuns() {
    return LastRunMemory().runs();
}

void QtMachine::noteRun(const LastRun& run) {
    LastRunMemory().note(run);
}

// The folder, as the file is replaced whole.
void QtMachine::watchLastRuns(std::function<void()> onChange) {
    const QString folder = LastRunMemory().folder();
    QDir().mkpath(folder);
    m_watcher = std::make_unique<QFileSystemWatcher>(QStringList{folder});
    QObject::connect(m_watcher.get(), &QFileSystemWatcher::directoryChanged, std::move(onChange));
}

} // namespace korvel
