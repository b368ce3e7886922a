// A world without a disk for commands: every file named *.SGR is the same small river, and what is written is
// only counted.
#pragma once

#include "fakes/FixedTextMetrics.h"
#include "platform/Platform.h"

namespace korvel {

class MemoryPlatform : private Dialogs, private Files, private Machine, private Windows, private Paper {
  public:
    explicit MemoryPlatform(std::string river);
    Platform& platform() { return m_platform; }
    int committed() const { return m_committed; }

  private:
    class CountedFile;
    class CountedJob;

    Answer show(const Message&) override { return Answer::ok; }
    std::optional<ChosenFile> chooseFile(FileDialogKind, const FileDialogSettings&) override { return {}; }
    void choosePrinter(const std::string&) override {}

    std::unique_ptr<ByteSource> open(const std::string& name) override;
    std::unique_ptr<NewFile> create(const std::string& name) override;
    bool exists(const std::string&) override { return true; }
    bool areOne(const std::string& name, const std::string& other) override { return name == other; }
    void remove(const std::string&) override {}
    std::vector<std::string> filesIn(const std::string&) override { return {}; }
    std::string currentFolder() override { return "Z:\\FOLDER"; }
    void setCurrentFolder(const std::string&) override {}

    std::string applicationFolder() override { return "Z:\\APP"; }
    WorkArea workArea() override { return {}; }
    Date today() override { return {}; }
    StartTurn takeStartTurn() override { return {}; }
    void startEngine(const std::string&, const StartedRun&, StartTurn) override {}
    void startEngineAlone(const std::string&, StartTurn) override {}
    int runEngine(const std::string&, const std::function<void(std::string_view)>&, StartTurn) override {
        return 0;
    }
    void startExplorer(const std::vector<std::string>&) override {}
    void openFile(const std::string&) override {}
    void showFolder(const std::string&) override {}
    std::string guideFile() override { return ""; }
    bool openGuide(const std::string&) override { return false; }
    std::string samplesFolder() override { return ""; }
    std::string homeFolder() override { return "Z:\\HOME"; }
    void makeFolder(const std::string&) override {}
    std::vector<LastRun> lastRuns() override { return {}; }
    void noteRun(const LastRun&) override {}
    void watchLastRuns(std::function<void()>) override {}

    void showModal(ShownForm&) override {}
    void showModeless(ShownForm&) override {}
    void close(ShownForm&) override {}
    void endProgram() override {}
    void failProgram(const RunTimeError&) override {}
    void updateScreen() override {}
    void passEvents() override {}

    const TextMetrics& metrics() const override { return m_metrics; }
    std::unique_ptr<PrintJob> begin(const PrintRequest&) override;

    std::string m_river;
    int m_committed = 0;
    FixedTextMetrics m_metrics;
    Platform m_platform;
};

} // namespace korvel
