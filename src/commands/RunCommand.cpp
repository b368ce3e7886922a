#include "commands/CommandList.h"
#include "commands/EngineCall.h"
#include "global/GLOBAL.h"
#include "runs/RunModel.h"

namespace korvel {

namespace {

const char* const help =
    "Usage: korvel run FILE.DAT [--type 0-9] [--wait]\n\n"
    "Starts the engine on a data file, as the run menu does. The results are written beside the file.\n\n"
    "  --type N   run type; 0, the basic run, where it is not given\n"
    "             0  basic run                     5  options 1 and 3 in sequence\n"
    "             1  gap filling of river flows    6  options 1, 3 and 4 in sequence\n"
    "             2  use the gap filled flows      7  set effluent standards to meet river targets\n"
    "             3  gap filling of quality        8  as 7 with aspects of no deterioration\n"
    "             4  the full gap filled model     9  as 8 assuming mid-class upstream quality\n"
    "  --wait     wait for the engine and show its output; status 1 where it fails\n\n"
    "Without --wait the engine goes on by itself and its output is dropped.\n";

// Answers the open dialog with the file that was typed.
class TypedDataFile : public Dialogs {
  public:
    TypedDataFile(Dialogs& dialogs, ChosenFile file) : m_dialogs(dialogs), m_file(std::move(file)) {}
    Answer show(const Message& message) override { return m_dialogs.show(message); }
    std::optional<ChosenFile> chooseFile(FileDialogKind, const FileDialogSettings&) override {
        return m_file;
    }
    void choosePrinter(const std::string&) override {}

  private:
    Dialogs& m_dialogs;
    ChosenFile m_file;
};

int runRun(CommandCall& call) {
    using Kind = CommandOption::Kind;
    const CommandLine line(call.arguments, {{"--type", Kind::withValue}, {"--wait", Kind::flag}});
    const std::string& file = line.onlyOperand("data file");
    GLOBAL.RunType = givenRunType(line, "0123456789");
    TypedDataFile typed(call.dialogs, {modelNameOfTyped(file, NameUse::inUpperCase), {}});
    EngineCall engine(call, line, typed);
    DataFiles dataFiles(engine.platform(), {[] {}, [] {}});
    RunModel(engine.platform(), dataFiles);
    return engine.exitStatus();
}

} // namespace

const Command runModelCommand = {"run", "run the model on a data file", help, runRun};

} // namespace korvel
