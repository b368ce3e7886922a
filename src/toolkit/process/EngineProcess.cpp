#include "toolkit/process/EngineProcess.h"

#include "basic/Text.h"
#include "toolkit/process/Spawning.h"

#include <QFile>
#include <QFileInfo>
#include <QProcessEnvironment>
#include <QStandardPaths>

#include <csignal>

namespace korvel {

namespace {

constexpr int patienceMilliseconds = 2000;
const char* const windowsBeginning = "MZ";

std::string firstTwoBytes(const std::string& path) {
    QFile file(QFile::decodeName(path.c_str()));
    return file.open(QIODevice::ReadOnly) ? file.read(2).toStdString() : std::string();
}

// Wine makes a folder of its own for each user, at the first start of any Windows program.
bool isWinesFirstStart() {
    const QString own = qEnvironmentVariable("HOME") + "/.wine";
    return !QFileInfo::exists(qEnvironmentVariable("WINEPREFIX", own) + "/system.reg");
}

} // namespace

EngineCommand engineCommand(const std::string& enginePath, const std::string& firstBytes,
                            const std::string& wine) {
    if (firstBytes != windowsBeginning) return {enginePath, std::nullopt, ""};
    if (wine.empty())
        return {"", std::nullopt, "The engine is a Windows program. Install wine to run it on this machine."};
    return {wine, enginePath, ""};
}

bool isProgramFile(const std::string& path) {
    return QFileInfo(QFile::decodeName(path.c_str())).isFile();
}

std::vector<std::pair<std::string, std::string>> wineSettings() {
    std::vector<std::pair<std::string, std::string>> settings;
    if (!qEnvironmentVariableIsSet("WINEDEBUG")) settings.emplace_back("WINEDEBUG", "-all");
    if (isWinesFirstStart() && !qEnvironmentVariableIsSet("WINEDLLOVERRIDES"))
        settings.emplace_back("WINEDLLOVERRIDES", "mscoree,mshtml=");
    return settings;
}

bool isWindowsProgram(const std::string& path) {
    return isProgramFile(path) && firstTwoBytes(path) == windowsBeginning;
}

// <activeCodePage xmlns="...">UTF-8</activeCodePage>
bool declaresUtf8(std::string_view program) {
    const std::string_view element = "<activeCodePage";
    const std::size_t begin = program.find(element);
    if (begin == std::string_view::npos) return false;
    const std::size_t value = program.find('>', begin), end = program.find('<', value);
    if (end == std::string_view::npos) return false;
    std::string name(program.substr(value + 1, end - value - 1));
    std::erase_if(name, [](char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; });
    return upperCase(name) == "UTF-8";
}

bool isUtf8Program(const std::string& path) {
    QFile file(QFile::decodeName(path.c_str()));
    if (!file.open(QIODevice::ReadOnly)) return false;
    const uchar* const bytes = file.map(0, file.size());
    return bytes != nullptr &&
           declaresUtf8({reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(file.size())});
}

EngineCommand engineCommandOf(const std::string& enginePath) {
    if (!isProgramFile(enginePath))
        return {"", std::nullopt, "The engine can't be started: there is no file " + enginePath + "."};
    const QString wine = QStandardPaths::findExecutable("wine");
    return engineCommand(enginePath, firstTwoBytes(enginePath), QFile::encodeName(wine).toStdString());
}

EngineProcess::EngineProcess() {
    m_process.setProcessChannelMode(QProcess::MergedChannels);
    m_process.setStandardInputFile(QProcess::nullDevice());
    connect(&m_process, &QProcess::readyRead, this, [this] { readOutput(); });
    connect(&m_process, &QProcess::finished, this, [this](int code, QProcess::ExitStatus how) {
        readOutput();
        endTurn();
        onFinished(how == QProcess::NormalExit ? code : signalBase + code);
    });
}

EngineProcess::~EngineProcess() {
    m_process.disconnect(this);
    if (!running()) return;
    m_own.signal(SIGTERM);
    if (m_process.waitForFinished(patienceMilliseconds)) return;
    m_own.signal(SIGKILL);
    m_process.kill();
    m_process.waitForFinished(patienceMilliseconds);
}

std::optional<std::string> EngineProcess::start(const std::string& enginePath, const std::string& folder,
                                                StartTurn turn) {
    const EngineCommand command = engineCommandOf(enginePath);
    if (command.program.empty()) return command.problem;
    m_process.setWorkingDirectory(QFile::decodeName(folder.c_str()));
    m_process.setProgram(QFile::decodeName(command.program.c_str()));
    if (command.argument) m_process.setArguments({QFile::decodeName(command.argument->c_str())});
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(m_own.name().c_str(), m_own.value().c_str());
    if (command.argument && isWinesFirstStart())
        onOutput("Wine prepares itself for its first start. This takes about half a minute.\n");
    if (command.argument)
        for (const auto& [name, value] : wineSettings())
            environment.insert(name.c_str(), value.c_str());
    m_process.setProcessEnvironment(environment);
    keepTurn(std::move(turn), folder);
    m_process.start(QIODevice::ReadOnly);
    if (m_process.waitForStarted()) return std::nullopt;
    return "The engine can't be started: " + m_process.errorString().toStdString() + ".";
}

void EngineProcess::keepTurn(StartTurn turn, const std::string& folder) {
    m_turn = TurnOfEngine(std::move(turn), folder);
    if (!m_turn.isHeld()) return;
    m_turnEnd.setSingleShot(true);
    connect(&m_turnEnd, &QTimer::timeout, this, [this] { endTurn(); });
    m_turnEnd.start(m_turn.left());
    if (m_turn.watch() < 0) return;
    m_opened = std::make_unique<QSocketNotifier>(m_turn.watch(), QSocketNotifier::Read);
    connect(m_opened.get(), &QSocketNotifier::activated, this, [this] { endTurn(); });
}

void EngineProcess::endTurn() {
    if (m_opened) m_opened->setEnabled(false);
    m_turn.end();
}

bool EngineProcess::running() const {
    return m_process.state() != QProcess::NotRunning;
}

void EngineProcess::stop() {
    m_own.signal(SIGTERM);
    QTimer::singleShot(patienceMilliseconds, this, [this] {
        m_own.signal(SIGKILL);
        if (running()) m_process.kill();
    });
}

void EngineProcess::readOutput() {
    const QByteArray bytes = m_process.readAll();
    if (!bytes.isEmpty()) onOutput({bytes.constData(), static_cast<std::size_t>(bytes.size())});
}

} // namespace korvel
