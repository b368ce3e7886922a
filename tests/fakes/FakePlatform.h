// The outside world for tests. What the user will do is queued beforehand, in the order in which it will be
// asked for; what the program does is written down, one line a call. A question that nobody queued an answer
// for fails the test at once, and so does an answer that nobody asked for, at the end.
//
// Files are real ones, in a temporary application folder that is removed at the end; in the transcript its
// model name is written "{app}", or "{APP}" in upper case. The current folder is the fake's own: the
// process's stays.
#pragma once

#include "fakes/FixedTextMetrics.h"
#include "platform/DiskFiles.h"
#include "platform/Platform.h"

#include <deque>
#include <functional>
#include <stdexcept>
#include <string>
#include <variant>
#include <vector>

namespace korvel {

struct UnexpectedQuestion : std::logic_error {
    using std::logic_error::logic_error;
};

enum class PrintStep { begin, page, finish };

struct PrintedJob {
    PrintRequest request;
    std::vector<Drawing> pages;
    bool finished = false;
};

class FakePlatform : private Dialogs, private DiskFiles, private Machine, private Windows, private Paper {
  public:
    FakePlatform();
    ~FakePlatform() override;
    FakePlatform(const FakePlatform&) = delete;
    FakePlatform& operator=(const FakePlatform&) = delete;

    Platform& platform() { return m_platform; }
    operator Platform&() { return m_platform; }

    // What the user will do.
    void willAnswer(Answer answer);
    void willChoose(const std::string& modelName);
    void willChooseFiles(const std::vector<std::string>& modelNames); // in a dialog that takes several
    void willChooseRefused(const std::string& modelName, const std::string& refusal);
    void willCancel(); // a file dialog
    void willFailDialog(const RunTimeError& error);
    void willChoosePrinter();
    void willFailPrinterDialog(const RunTimeError& error);
    // On the modal form of this name, between its activation and its closing.
    void willActOn(const std::string& formName, std::function<void(ShownForm&)> action);
    // The next print job fails here, once.
    void willFailPrinting(PrintStep step, const RunTimeError& error = RunTimeError(errors::printerError));
    // Fails the test where something queued was never asked for, and forgets it.
    void expectDone();

    // What the program did since the last call.
    std::string takeTranscript();

    // The form below all modal ones; it is activated when the last of them has closed.
    void setBottomForm(ShownForm& form) { m_bottomForm = &form; }
    bool ended() const { return m_ended; }

    std::string folder() const { return m_folder; } // the application folder's model name
    std::string pathOf(const std::string& file) const;
    void putFile(const std::string& name, const std::string& bytes); // a name without folder lies in {app}
    void putEngine();
    std::string fileText(const std::string& name);
    bool hasFile(const std::string& name);
    const std::vector<PrintedJob>& printed() const { return m_printed; }

    // What closing a form does besides being written down; the forms' tests close its window.
    std::function<void(ShownForm&)> closesForm;

    // What the user sees when a message is shown.
    std::function<void()> onMessage;

    // What the user does while a long piece of work lets events pass.
    std::function<void()> onPassEvents;

    std::string guide = "/share/guide.html";
    bool opensGuide = true;
    std::string samples = "Z:\\share\\examples";
    bool makesFolders = true; // false: 75

    std::vector<LastRun> rememberedRuns;   // what the machine has of the user's last runs
    std::vector<LastRun> notedRuns;        // what the program gave it to remember
    std::function<void()> lastRunsChanged; // what it asked to be called then

    WorkArea desktop;
    Date day{5, 11, 2026};
    StartedRun startedRun;    // what the engine's window was started with last
    std::string engineOutput; // of an engine that is waited for, and its exit status
    int engineStatus = 0;
    std::string printedTo; // what a finished job returns: the file that the user could not know of

  private:
    struct Choice {
        ChosenFile file;
    };
    struct Choices {
        std::vector<ChosenFile> files;
    };
    struct Cancel {};
    struct PrinterChoice {};
    struct Failure {
        RunTimeError error;
    };
    struct PrinterFailure {
        RunTimeError error;
    };
    struct FormAction {
        std::string formName;
        std::function<void(ShownForm&)> action;
    };
    using Deed =
        std::variant<Answer, Choice, Choices, Cancel, Failure, PrinterChoice, PrinterFailure, FormAction>;

    Answer show(const Message& message) override;
    std::optional<ChosenFile> chooseFile(FileDialogKind kind, const FileDialogSettings& settings) override;
    std::vector<ChosenFile> chooseFiles(const FileDialogSettings& settings) override;
    void choosePrinter(const std::string& objectName) override;

    std::string currentFolder() override { return m_currentFolder; }
    void setCurrentFolder(const std::string& folder) override;

    std::string applicationFolder() override { return m_folder; }
    WorkArea workArea() override { return desktop; }
    Date today() override { return day; }
    StartTurn takeStartTurn() override { return {}; }
    void startEngine(const std::string& program, const StartedRun& run, StartTurn turn) override;
    void startEngineAlone(const std::string& program, StartTurn turn) override;
    int runEngine(const std::string& program, const std::function<void(std::string_view)>& onOutput,
                  StartTurn turn) override;
    void startExplorer(const std::vector<std::string>& files) override;
    void openFile(const std::string& file) override { note("open " + file); }
    void showFolder(const std::string& folder) override { note("show folder " + folder); }
    std::string guideFile() override { return guide; }
    bool openGuide(const std::string& file) override {
        note("guide " + file);
        return opensGuide;
    }
    std::string samplesFolder() override { return samples; }
    std::string homeFolder() override { return m_folder; }
    void makeFolder(const std::string& folder) override;
    std::vector<LastRun> lastRuns() override { return rememberedRuns; }
    void noteRun(const LastRun& run) override { notedRuns.push_back(run); }
    void watchLastRuns(std::function<void()> onChange) override { lastRunsChanged = std::move(onChange); }

    void showModal(ShownForm& form) override;
    void showModeless(ShownForm& form) override;
    void close(ShownForm& form) override;
    void endProgram() override;
    void failProgram(const RunTimeError& error) override;
    void updateScreen() override {}
    void passEvents() override {
        if (onPassEvents) onPassEvents();
    }

    const TextMetrics& metrics() const override { return m_metrics; }
    std::unique_ptr<PrintJob> begin(const PrintRequest& request) override;

    class Job;
    struct PrintFailure {
        PrintStep step;
        RunTimeError error;
    };
    void failIfTold(PrintStep step);

    void note(const std::string& line);
    void noteEngine(const std::string& how, const std::string& program);
    Deed nextDeed(const std::string& question);
    [[noreturn]] void failUnexpected(const std::string& question);

    std::deque<Deed> m_deeds;
    std::string m_transcript;
    std::string m_folder;
    std::string m_currentFolder;
    ShownForm* m_bottomForm = nullptr;
    std::vector<ShownForm*> m_modalForms;
    bool m_ended = false;
    std::vector<PrintedJob> m_printed;
    std::optional<PrintFailure> m_printFailure;
    FixedTextMetrics m_metrics;
    Platform m_platform;
};

} // namespace korvel
