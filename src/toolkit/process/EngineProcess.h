// The calculation engine as a running program: started by its path, without arguments, never through a shell.
#pragma once

#include <QObject>
#include <QProcess>

#include <functional>
#include <optional>
#include <string>

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

    // Host paths. What went wrong at once, or nothing.
    std::optional<std::string> start(const std::string& enginePath, const std::string& folder);
    bool running() const;
    // Asks the engine to end, and kills it where it does not within two seconds.
    void stop();

  private:
    void readOutput();

    QProcess m_process;
};

} // namespace korvel
