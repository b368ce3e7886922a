// The calculation engine as a running program: started by its path, without arguments, never through a shell.
#pragma once

#include "platform/StartTurn.h"
#include "toolkit/process/OwnProcesses.h"

#include <QObject>
#include <QProcess>
#include <QSocketNotifier>
#include <QTimer>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace korvel {

// How a program file is started: itself, or through `wine` where it is a Windows program ("MZ").
struct EngineCommand {
    std::string program; // host path; "" where the engine can't be started
    std::optional<std::string> argument;
    std::string problem; // why not, for the user
};

// `firstBytes`: what the program file begins with. `wine`: host path of wine, "" where there is none.
EngineCommand engineCommand(const std::string& enginePath, const std::string& firstBytes,
                            const std::string& wine);

// Whether there is a file at this host path; a folder or a pipe is no program.
bool isProgramFile(const std::string& path);

// Settings for Wine that the user has not made: its remarks are not the engine's, and what it would fetch for
// browsers at its first start is not needed.
std::vector<std::pair<std::string, std::string>> wineSettings();

bool isWindowsProgram(const std::string& path);

// Whether a Windows program's manifest says that its names are UTF-8, as those of the run-control file are;
// Windows and Wine then give it such a code page.
bool declaresUtf8(std::string_view program);
// The same for the program file at this host path.
bool isUtf8Program(const std::string& path);

// The same for the program file at this host path, on this machine.
EngineCommand engineCommandOf(const std::string& enginePath);

class EngineProcess : public QObject {
  public:
    // Both are called from the event loop. `status`: the exit status, 128 + the signal's number for a killed
    // engine.
    std::function<void(std::string_view bytes)> onOutput;
    std::function<void(int status)> onFinished;

    EngineProcess();
    ~EngineProcess() override;

    // Host paths. What went wrong at once, or nothing. The turn ends once the engine has opened the
    // run-control file, has ended, or has had its time.
    std::optional<std::string> start(const std::string& enginePath, const std::string& folder,
                                     StartTurn turn);
    bool running() const;
    // Asks the engine and all that it has started to end, and kills what does not within two seconds.
    void stop();

  private:
    void readOutput();
    void keepTurn(StartTurn turn, const std::string& folder);
    void endTurn();

    QProcess m_process;
    OwnProcesses m_own;
    TurnOfEngine m_turn;
    std::unique_ptr<QSocketNotifier> m_opened;
    QTimer m_turnEnd;
};

} // namespace korvel
