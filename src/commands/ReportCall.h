// What the commands that make reports have in common: the results file, and the options that say what of it
// is reported.
#pragma once

#include "commands/CommandLine.h"
#include "commands/Commands.h"
#include "reports/Output.h"

#include <optional>
#include <string>

namespace korvel {

// The part of a command's help that tells of the options below.
std::string selectionHelp();

struct ReportCall {
    std::string resultsFile; // model names
    std::string outputFile;
    ReportSelection selection;
};

// Loads the results file into RESULTS and settles the selection by its lists. Nothing where the load failed,
// which the user has been told; UsageError for words that mean nothing.
std::optional<ReportCall> takeReportCall(CommandCall& call, OutputMode mode);

// Makes the report and returns the exit status.
int makeReport(CommandCall& call, const ReportCall& report, OutputMode mode);

} // namespace korvel
