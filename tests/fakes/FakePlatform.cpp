#include "fakes/FakePlatform.h"

#include "basic/ModelName.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

namespace korvel {

namespace {

std::string newFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "korvel-test-XXXXXX").string();
    if (!mkdtemp(pattern.data())) throw std::runtime_error("no temporary folder");
    return modelNameOfHostPath(std::filesystem::canonical(pattern).string());
}

std::string replaced(std::string text, const std::string& part, const std::string& by) {
    for (std::size_t at = 0; (at = text.find(part, at)) != std::string::npos; at += by.size())
        text.replace(at, part.size(), by);
    return text;
}

std::string nameOf(Icon icon) {
    switch (icon) {
    case Icon::exclamation: return "exclamation";
    case Icon::question: return "question";
    case Icon::critical: return "critical";
    case Icon::information: return "information";
    }
    return "";
}

std::string nameOf(Answer answer) {
    switch (answer) {
    case Answer::ok: return "ok";
    case Answer::yes: return "yes";
    case Answer::no: return "no";
    case Answer::save: return "save";
    case Answer::discard: return "discard";
    case Answer::cancel: return "cancel";
    }
    return "";
}

std::string quoted(const std::string& text) {
    return '"' + text + '"';
}

bool suits(Answer answer, Buttons buttons) {
    switch (buttons) {
    case Buttons::ok: return answer == Answer::ok;
    case Buttons::yesNo: return answer == Answer::yes || answer == Answer::no;
    case Buttons::saveDiscardCancel:
        return answer == Answer::save || answer == Answer::discard || answer == Answer::cancel;
    }
    return false;
}

// The folder as a dialog leaves it: without a backslash at the end, but for a root.
std::string currentFolderAfter(const std::string& chosenName) {
    const std::string folder = folderOf(chosenName);
    return folder.size() > 3 ? withoutLast(folder, 1) : folder;
}

} // namespace

FakePlatform::FakePlatform()
    : m_folder(newFolder()), m_currentFolder(m_folder), m_platform{*this, *this, *this,
                                                                   *this, *this, m_metrics} {}

FakePlatform::~FakePlatform() {
    expectDone();
    std::error_code ignored;
    std::filesystem::remove_all(hostPathOf(m_folder), ignored);
}

void FakePlatform::willAnswer(Answer answer) {
    m_deeds.emplace_back(answer);
}
void FakePlatform::willChoose(const std::string& modelName) {
    m_deeds.emplace_back(Choice{{modelName, {}}});
}
void FakePlatform::willChooseFiles(const std::vector<std::string>& modelNames) {
    Choices choices;
    for (const std::string& name : modelNames)
        choices.files.push_back({name, {}});
    m_deeds.emplace_back(std::move(choices));
}
void FakePlatform::willChooseRefused(const std::string& modelName, const std::string& refusal) {
    m_deeds.emplace_back(Choice{{modelName, refusal}});
}
void FakePlatform::willCancel() {
    m_deeds.emplace_back(Cancel{});
}
void FakePlatform::willFailDialog(const RunTimeError& error) {
    m_deeds.emplace_back(Failure{error});
}
void FakePlatform::willChoosePrinter() {
    m_deeds.emplace_back(PrinterChoice{});
}
void FakePlatform::willFailPrinterDialog(const RunTimeError& error) {
    m_deeds.emplace_back(PrinterFailure{error});
}
void FakePlatform::willActOn(const std::string& formName, std::function<void(ShownForm&)> action) {
    m_deeds.emplace_back(FormAction{formName, std::move(action)});
}

void FakePlatform::willFailPrinting(PrintStep step, const RunTimeError& error) {
    m_printFailure = PrintFailure{step, error};
}

void FakePlatform::expectDone() {
    EXPECT_FALSE(m_printFailure) << "the failure of the printer never came";
    m_printFailure.reset();
    EXPECT_TRUE(m_deeds.empty()) << m_deeds.size() << " of the queued deeds never asked for";
    m_deeds.clear();
}

std::string FakePlatform::takeTranscript() {
    return std::exchange(m_transcript, {});
}

std::string FakePlatform::pathOf(const std::string& file) const {
    return inFolder(m_folder, file);
}

void FakePlatform::putFile(const std::string& name, const std::string& bytes) {
    const std::string file = fileOf(name) == name ? pathOf(name) : name;
    std::filesystem::create_directories(hostPathOf(folderOf(file)));
    writeWhole(file, bytes);
}

void FakePlatform::makeFolder(const std::string& folder) {
    if (!makesFolders) throw RunTimeError(errors::pathFileAccessError);
    std::filesystem::create_directories(hostPathOf(folder));
}

void FakePlatform::putEngine() {
    putFile("korvelf157.exe", "engine");
}

std::string FakePlatform::fileText(const std::string& name) {
    return readAll(fileOf(name) == name ? pathOf(name) : name);
}

bool FakePlatform::hasFile(const std::string& name) {
    return exists(fileOf(name) == name ? pathOf(name) : name);
}

void FakePlatform::note(const std::string& line) {
    const std::string shown = replaced(replaced(line, m_folder, "{app}"), upperCase(m_folder), "{APP}");
    m_transcript += shown + "\n";
}

void FakePlatform::failUnexpected(const std::string& question) {
    ADD_FAILURE() << "Nobody queued what the user does here: " << question;
    throw UnexpectedQuestion(question);
}

FakePlatform::Deed FakePlatform::nextDeed(const std::string& question) {
    if (m_deeds.empty()) failUnexpected(question);
    Deed deed = std::move(m_deeds.front());
    m_deeds.pop_front();
    return deed;
}

Answer FakePlatform::show(const Message& message) {
    const std::string question = "box [" + nameOf(message.icon) + "] " + message.title + ": " + message.text;
    const Deed deed = nextDeed(question);
    const Answer* answer = std::get_if<Answer>(&deed);
    if (!answer || !suits(*answer, message.buttons)) failUnexpected(question);
    note(question + " -> " + nameOf(*answer));
    if (onMessage) onMessage();
    return *answer;
}

std::optional<ChosenFile> FakePlatform::chooseFile(FileDialogKind kind, const FileDialogSettings& settings) {
    const std::string question = std::string(kind == FileDialogKind::open ? "open" : "save") + " dialog " +
                                 quoted(settings.title) + " filter " + quoted(settings.filter) + " folder " +
                                 quoted(settings.initialFolder) + " overwritePrompt " +
                                 (settings.overwritePrompt ? "yes" : "no");
    const Deed deed = nextDeed(question);
    if (std::holds_alternative<Cancel>(deed)) {
        note(question + " -> cancel");
        return std::nullopt;
    }
    if (const Failure* failure = std::get_if<Failure>(&deed)) {
        note(question + " -> error " + std::to_string(failure->error.number));
        throw failure->error;
    }
    const Choice* choice = std::get_if<Choice>(&deed);
    if (!choice) failUnexpected(question);
    note(question + " -> " + choice->file.name);
    m_currentFolder = currentFolderAfter(choice->file.name);
    return choice->file;
}

std::vector<ChosenFile> FakePlatform::chooseFiles(const FileDialogSettings& settings) {
    if (m_deeds.empty() || !std::holds_alternative<Choices>(m_deeds.front()))
        return Dialogs::chooseFiles(settings);
    const std::vector<ChosenFile> files = std::get<Choices>(nextDeed("open dialog")).files;
    std::string line = "open dialog " + quoted(settings.title) + " ->";
    for (const ChosenFile& file : files)
        line += " " + file.name;
    note(line);
    return files;
}

void FakePlatform::choosePrinter(const std::string& objectName) {
    const std::string question = "printer dialog " + objectName;
    const Deed deed = nextDeed(question);
    note(question);
    if (const PrinterFailure* failure = std::get_if<PrinterFailure>(&deed)) throw failure->error;
    if (!std::holds_alternative<PrinterChoice>(deed)) failUnexpected(question);
}

void FakePlatform::setCurrentFolder(const std::string& folder) {
    note("current folder " + folder);
    m_currentFolder = folder;
}

void FakePlatform::noteEngine(const std::string& how, const std::string& program) {
    note(how + " " + program);
    if (!exists(trimRight(program))) throw RunTimeError(errors::fileNotFound);
}

void FakePlatform::startEngine(const std::string& program, const StartedRun& run, StartTurn) {
    startedRun = run;
    noteEngine("start engine", program);
}

void FakePlatform::startExplorer(const std::vector<std::string>& files) {
    std::string line = "explore";
    for (const std::string& file : files)
        line += " " + file;
    note(line);
}

void FakePlatform::startEngineAlone(const std::string& program, StartTurn) {
    noteEngine("start engine alone", program);
}

int FakePlatform::runEngine(const std::string& program, const std::function<void(std::string_view)>& onOutput,
                            StartTurn) {
    noteEngine("run engine", program);
    onOutput(engineOutput);
    return engineStatus;
}

void FakePlatform::showModal(ShownForm& form) {
    const std::string question = "show modal " + form.formName();
    const Deed deed = nextDeed(question);
    const FormAction* act = std::get_if<FormAction>(&deed);
    if (act == nullptr || act->formName != form.formName()) failUnexpected(question);
    note(question);
    m_modalForms.push_back(&form);
    form.activate();
    if (!m_ended && act->action) act->action(form);
    m_modalForms.pop_back();
    if (m_ended) return;
    note("closed " + form.formName());
    ShownForm* below = m_modalForms.empty() ? m_bottomForm : m_modalForms.back();
    if (below) below->activate();
}

void FakePlatform::showModeless(ShownForm& form) {
    note("show modeless " + form.formName());
    form.activate();
}

void FakePlatform::close(ShownForm& form) {
    note("close " + form.formName());
    if (closesForm) closesForm(form);
}

void FakePlatform::endProgram() {
    note("end program");
    m_ended = true;
}

void FakePlatform::failProgram(const RunTimeError& error) {
    note("fail program: Run-time error '" + std::to_string(error.number) + "': " + error.description);
    m_ended = true;
}

class FakePlatform::Job : public PrintJob {
  public:
    Job(FakePlatform& platform, std::size_t number) : m_platform(platform), m_number(number) {}
    void page(const Drawing& drawing) override {
        m_platform.note("page");
        m_platform.failIfTold(PrintStep::page);
        m_platform.m_printed[m_number].pages.push_back(drawing);
    }
    std::string finish() override {
        m_platform.note("finish");
        m_platform.failIfTold(PrintStep::finish);
        m_platform.m_printed[m_number].finished = true;
        return m_platform.printedTo;
    }
    std::string file() const override { return m_platform.printedTo; }

  private:
    FakePlatform& m_platform;
    std::size_t m_number;
};

std::unique_ptr<PrintJob> FakePlatform::begin(const PrintRequest& request) {
    note(std::string("print ") + (request.orientation == Orientation::portrait ? "portrait" : "landscape") +
         ' ' + quoted(request.title));
    failIfTold(PrintStep::begin);
    m_printed.push_back({request, {}, false});
    return std::make_unique<Job>(*this, m_printed.size() - 1);
}

void FakePlatform::failIfTold(PrintStep step) {
    if (!m_printFailure || m_printFailure->step != step) return;
    const RunTimeError error = m_printFailure->error;
    m_printFailure.reset();
    throw error;
}

} // namespace korvel
