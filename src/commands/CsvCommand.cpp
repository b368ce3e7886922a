#include "commands/CommandList.h"
#include "commands/ReportCall.h"

namespace korvel {

namespace {

const std::string help =
    std::string(
        "Usage: korvel csv FILE.SGR [OPTION]...\n\n"
        "Writes the report of a results file as a comma-separated file for a spreadsheet program.\n\n") +
    selectionHelp() +
    "  --output FILE         the file to write; by default it lies beside the results file, with their "
    "name\n";

int runCsv(CommandCall& call) {
    const auto report = takeReportCall(call, OutputMode::spreadsheet);
    return report ? makeReport(call, *report, OutputMode::spreadsheet) : exitStatus::failed;
}

} // namespace

const Command csvCommand = {"csv", "a report as a spreadsheet file", help.c_str(), runCsv};

} // namespace korvel
