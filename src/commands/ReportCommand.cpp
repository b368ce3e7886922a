#include "commands/CommandList.h"
#include "commands/ReportCall.h"
#include "reports/ReportColumns.h"
#include "tables/TableFormats.h"

namespace korvel {

namespace {

const std::string help =
    std::string("Usage: korvel report FILE.SGR [OPTION]...\n\n"
                "Writes the report of a results file as ruled pages, a PDF document, or as a workbook.\n\n") +
    selectionHelp() +
    "  --output FILE         the file to write, a workbook where it ends in .xlsx; RIVER-report.pdf beside\n"
    "                        RIVER.SGR by default\n";

int runReport(CommandCall& call) {
    const auto report = takeReportCall(call, OutputMode::print);
    if (!report) return exitStatus::failed;
    if (formatOfExtension(report->outputFile) == &workbookFormat())
        return makeReport(call, *report, OutputMode::workbook);
    const ColumnVerdict verdict = verdictOn(CountCols(report->selection));
    if (verdict.fit != PageFit::tooWide) return makeReport(call, *report, OutputMode::print);
    call.dialogs.show(
        {verdict.countText + ". " + verdict.fitText + ".", "Korvel Reports", Icon::exclamation, Buttons::ok});
    return exitStatus::failed;
}

} // namespace

const Command reportCommand = {"report", "a report as a PDF document or a workbook", help.c_str(), runReport};

} // namespace korvel
