// The desktop, the day and the application folder of the running program.
#pragma once

#include "basic/DiskNames.h"
#include "platform/Machine.h"

#include <memory>

class QFileSystemWatcher;

namespace korvel {

class QtMachine : public Machine {
  public:
    // `findFolder`: the host path of the application folder, asked for once, at its first use; its failure is
    // the caller's.
    explicit QtMachine(std::function<std::string()> findFolder);
    ~QtMachine() override;

    std::string applicationFolder() override;
    WorkArea workArea() override;
    Date today() override;
    StartTurn takeStartTurn() override;
    void startEngine(const std::string& program, const StartedRun& run, StartTurn turn) override;
    void startEngineAlone(const std::string& program, StartTurn turn) override;
    int runEngine(const std::string& program, const std::function<void(std::string_view)>& onOutput,
                  StartTurn turn) override;
    void startExplorer(const std::vector<std::string>& files) override;
    void openFile(const std::string& file) override;
    void showFolder(const std::string& folder) override;
    std::string guideFile() override;
    bool openGuide(const std::string& guide) override;
    std::string samplesFolder() override;
    std::string homeFolder() override;
    void makeFolder(const std::string& folder) override;
    std::vector<LastRun> lastRuns() override;
    void noteRun(const LastRun& run) override;
    void watchLastRuns(std::function<void()> onChange) override;

  private:
    std::string hostFolder() { return hostPathOf(applicationFolder()); }

    std::function<std::string()> m_findFolder;
    std::string m_applicationFolder;
    std::unique_ptr<QFileSystemWatcher> m_watcher; // of the last runs, once somebody wants to know
};

} // namespace korvel
