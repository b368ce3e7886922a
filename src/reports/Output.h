// Output: the report on paper, as a spreadsheet file or as a workbook, with the messages that may come of it.
// PrintFile: a text file of the engine on paper.
#pragma once

#include "platform/Platform.h"
#include "reports/ReportProgress.h"
#include "reports/ReportSelection.h"
#include "results/ResultsDataSet.h"

#include <string>

namespace korvel {

enum class OutputMode { print, spreadsheet, workbook };
enum class OutputEnd { done, cancelled, failed };

// How an output ended; when it is done, the model name of the file made, "" where a printer took it.
struct OutputResult {
    OutputEnd end = OutputEnd::failed;
    std::string file;
    friend bool operator==(const OutputResult& result, OutputEnd end) { return result.end == end; }
};

struct OutputRequest {
    const ResultsDataSet& results;
    const ReportSelection& selection;
    std::string resultsFile; // model name; other names are made from it
    std::string outputFile;  // of the spreadsheet or workbook, or of the PDF where there is no printer
};

// The file that a report of these results makes where the user named none.
std::string reportFile(OutputMode mode, const std::string& resultsFile);

// With the names that the report form uses.
OutputRequest outputRequest(OutputMode mode, const ResultsDataSet& results, const ReportSelection& selection,
                            const std::string& resultsFile);

// A failed or cancelled report leaves nothing behind; a failure has been shown.
OutputResult Output(Platform& platform, OutputMode mode, const OutputRequest& request,
                    const ReportProgress& progress = {});

// `pdfFile`: what is made where there is no printer; "" is the file's name with ".pdf" behind it.
OutputResult PrintFile(Platform& platform, const std::string& fileName, const std::string& pdfFile = "");

} // namespace korvel
