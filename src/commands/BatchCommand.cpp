#include "basic/ModelName.h"
#include "basic/Text.h"
#include "commands/CommandList.h"
#include "commands/EngineCall.h"
#include "runs/BatchRun.h"
#include "runs/DataFileName.h"

namespace korvel {

namespace {

const char* const help =
    "Usage: korvel batch [--title TEXT] [--type 0|4|6|7|8|9] [--wait] FILE.DAT...\n\n"
    "Starts the engine once on several data files of one folder, at most 300, as the batch form does. The\n"
    "results are written beside the files.\n\n"
    "  --title TEXT   title of the run\n"
    "  --type N       run type; 0 where it is not given\n"
    "                 0  basic run, no gap filling     7  seek to meet river standards\n"
    "                 4  use flow and quality gap      8  as 7 with no deterioration\n"
    "                    filling                       9  as 7 with mid-class upstream quality\n"
    "                 6  set up flow and quality gap filling\n"
    "  --wait         wait for the engine and show its output; status 1 where a file fails\n\n"
    "Without --wait the engine goes on by itself and its output is dropped.\n";

std::vector<std::string> modelNames(const CommandLine& line) {
    if (line.operands().empty()) throw UsageError("no data file given");
    std::vector<std::string> names;
    for (const std::string& file : line.operands())
        names.push_back(modelNameOfTyped(file));
    for (const std::string& name : names)
        if (folderOf(name) != folderOf(names.front()))
            throw UsageError("the data files lie in more than one folder");
    return names;
}

std::string runTitle(const CommandLine& line) {
    std::string title = line.value("--title").value_or("");
    if (title.find_first_of("\r\n") != std::string::npos) throw UsageError("the title is longer than a line");
    return title;
}

int optionOfRunType(int runType) {
    int option = 0;
    while (batchRunType(option) != runType)
        ++option;
    return option;
}

int runBatch(CommandCall& call) {
    using Kind = CommandOption::Kind;
    const CommandLine line(
        call.arguments, {{"--title", Kind::withValue}, {"--type", Kind::withValue}, {"--wait", Kind::flag}});
    const int runType = givenRunType(line, "046789");
    const std::string title = runTitle(line);
    const std::vector<std::string> names = modelNames(line);

    EngineCall engine(call, line, call.dialogs);
    BatchRun batch(engine.platform(), [] {});
    for (const std::string& name : names) {
        const std::string file = fileOf(name);
        if (!isListedInBatch(file)) {
            call.dialogs.show(refusedExtension());
            return exitStatus::failed;
        }
        batch.state().names.push_back(upperCase(file));
    }
    call.platform.files.setCurrentFolder(withoutLast(folderOf(names.front()), 1));
    batch.takeCurrentFolder();
    batch.state().title = title;
    batch.chooseOption(optionOfRunType(runType));
    batch.CarryOutBatchRun();
    return engine.exitStatus();
}

} // namespace

const Command batchCommand = {"batch", "run the model on several data files", help, runBatch};

} // namespace korvel
