// The machine for a program without windows: the engine runs without its own, waited for or not.
#pragma once

#include "platform/Machine.h"

#include <iosfwd>
#include <optional>

namespace korvel {

class ConsoleMachine : public Machine {
  public:
    // `output`: where the engine's own output goes; none: the engine is not waited for.
    ConsoleMachine(Machine& machine, std::ostream* output) : m_machine(machine), m_output(output) {}

    std::string applicationFolder() override { return m_machine.applicationFolder(); }
    WorkArea workArea() override { return m_machine.workArea(); }
    Date today() override { return m_machine.today(); }
    StartTurn takeStartTurn() override { return m_machine.takeStartTurn(); }
    void startEngine(const std::string& program, const StartedRun& run, StartTurn turn) override;
    void startEngineAlone(const std::string& program, StartTurn turn) override {
        m_machine.startEngineAlone(program, std::move(turn));
    }
    int runEngine(const std::string& program, const std::function<void(std::string_view)>& onOutput,
                  StartTurn turn) override {
        return m_machine.runEngine(program, onOutput, std::move(turn));
    }
    void startExplorer(const std::vector<std::string>& files) override { m_machine.startExplorer(files); }
    void openFile(const std::string& file) override { m_machine.openFile(file); }
    void showFolder(const std::string& folder) override { m_machine.showFolder(folder); }
    std::string guideFile() override { return m_machine.guideFile(); }
    bool openGuide(const std::string& guide) override { return m_machine.openGuide(guide); }
    std::string samplesFolder() override { return m_machine.samplesFolder(); }
    std::string homeFolder() override { return m_machine.homeFolder(); }
    void makeFolder(const std::string& folder) override { m_machine.makeFolder(folder); }
    std::vector<LastRun> lastRuns() override { return m_machine.lastRuns(); }
    void noteRun(const LastRun& run) override { m_machine.noteRun(run); }
    void watchLastRuns(std::function<void()> onChange) override {
        m_machine.watchLastRuns(std::move(onChange));
    }

    // Of the engine; 0 for one that was not waited for. Nothing where none was started.
    std::optional<int> engineStatus() const { return m_engineStatus; }

  private:
    Machine& m_machine;
    std::ostream* m_output;
    std::optional<int> m_engineStatus;
};

} // namespace korvel
