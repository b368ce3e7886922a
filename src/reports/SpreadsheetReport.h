// The report as a comma-separated file. Kept so: every line but the title ends in a comma; row labels are
// quoted, reach names are not; nothing within them is escaped.
#pragma once

#include "platform/Files.h"
#include "reports/ReportProgress.h"
#include "reports/ReportSelection.h"
#include "results/ResultsDataSet.h"

#include <string>

namespace korvel {

// The results file's name with its last three characters replaced.
std::string spreadsheetFileName(const std::string& resultsFile);

// Leaves the commit to the caller.
ReportEnd writeSpreadsheet(NewFile& file, const ResultsDataSet& results, const ReportSelection& selection,
                           const ReportProgress& progress = {});

} // namespace korvel
