#include "toolkit/process/EngineProcess.h"

#include <QFile>
#include <QStandardPaths>
#include <QTimer>

namespace korvel {

namespace {

constexpr int patienceMilliseconds = 2000;
constexpr int signalBase = 128;

std::string firstTwoBytes(const std::string& path) {
    QFile file(QFile::decodeName(path.c_str()));
    return file.open(QIODevice::ReadOnly) ? file.read(2).toStdString() : std::string();
}

} // namespace

EngineCommand engineCommand(const std::string& enginePath, const std::string& firstBytes,
                            const std::string& wine) {
    if (firstBytes != "MZ") return {enginePath, std::nullopt, ""};
    if (wine.empty())
        return {"", std::nullopt, "The engine is a Windows program. Install wine to run it on this machine."};
    return {wine, enginePath, ""};
}

EngineCommand engineCommandOf(const std::string& enginePath) {
    const QString wine = QStandardPaths::findExecutable("wine");
    return engineCommand(enginePath, firstTwoBytes(enginePath), QFile::encodeName(wine).toStdString());
}

EngineProcess::EngineProcess() {
    m_process.setProcessChannelMode(QProcess::MergedChannels);
    m_process.setStandardInputFile(QProcess::nullDevice());
    connect(&m_process, &QProcess::readyRead, this, [this] { readOutput(); });
    connect(&m_process, &QProcess::finished, this, [this](int code, QProcess::ExitStatus how) {
        readOutput();
        onFinished(how == QProcess::NormalExit ? code : signalBase + code);
    });
}

EngineProcess::~EngineProcess() {
    m_process.disconnect(this);
    if (running()) {
        m_process.kill();
        m_process.waitForFinished(patienceMilliseconds);
    }
}

std::optional<std::string> EngineProcess::start(const std::string& enginePath, const std::string& folder) {
    const EngineCommand command = engineCommandOf(enginePath);
    if (command.program.empty()) return command.problem;
    m_process.setWorkingDirectory(QFile::decodeName(folder.c_str()));
    m_process.setProgram(QFile::decodeName(command.program.c_str()));
    if (command.argument) m_process.setArguments({QFile::decodeName(command.argument->c_str())});
    m_process.start(QIODevice::ReadOnly);
    if (m_process.waitForStarted()) return std::nullopt;
    return "The engine can't be started: " + m_process.errorString().toStdString() + ".";
}

bool EngineProcess::running() const {
    return m_process.state() != QProcess::NotRunning;
}

void EngineProcess::stop() {
    m_process.terminate();
    QTimer::singleShot(patienceMilliseconds, this, [this] {
        if (running()) m_process.kill();
    });
}

void EngineProcess::readOutput() {
    const QByteArray bytes = m_process.readAll();
    if (!bytes.isEmpty()) onOutput({bytes.constData(), static_cast<std::size_t>(bytes.size())});
}

} // namespace korvel
