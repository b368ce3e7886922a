#include "commands/CommandLine.h"
#include "commands/CommandList.h"
#include "reports/Output.h"

namespace korvel {

namespace {

const char* const help =
    "Usage: korvel listing FILE [--output FILE.pdf]\n\n"
    "Writes a text file of the engine (.SCN, .OUT, .LOD, .SUM) as printed pages, a PDF document, with\n"
    "its boxes drawn as lines.\n\n"
    "  --output FILE         the file to write; FILE.pdf by default\n";

int runListing(CommandCall& call) {
    const CommandLine line(call.arguments, {{"--output", CommandOption::Kind::withValue}});
    const std::string file = modelNameOfTyped(line.onlyOperand("file"));
    const auto output = line.value("--output");
    const std::string pdfFile = output ? modelNameOfTyped(*output) : file + ".pdf";
    refuseOwnInput(call.platform.files, pdfFile, {file});
    return PrintFile(call.platform, file, pdfFile) == OutputEnd::done ? exitStatus::done : exitStatus::failed;
}

} // namespace

const Command listingCommand = {"listing", "a text file of the engine as a PDF document", help, runListing};

} // namespace korvel
