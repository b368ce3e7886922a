#include "reports/Output.h"

#include "basic/ModelName.h"
#include "platform/OwnInput.h"
#include "platform/Printing.h"
#include "reports/Listing.h"
#include "reports/PrintedReport.h"
#include "reports/ReportSheet.h"
#include "reports/SpreadsheetReport.h"
#include "tables/Writing.h"

namespace korvel {

namespace {

// The printer takes a document whole, so that whatever it refuses counts as refused at its heading.
Message failureMessage(const RunTimeError& error) {
    if (error.number == errors::printerError) return printerRefused();
    return {"Error number " + std::to_string(error.number) + ": " + error.description, "KORVEL Error",
            Icon::critical, Buttons::ok};
}

OutputResult printReport(Platform& platform, const OutputRequest& request, const ReportProgress& progress) {
    PrintedReport report(request.results, request.selection, dayMonthYear(platform.machine.today()),
                         platform.paper.metrics());
    const auto job =
        platform.paper.begin({fileOf(request.resultsFile), report.orientation(), request.outputFile});
    while (const std::optional<Drawing> page = report.nextPage()) {
        job->page(*page);
        if (!goesOn(progress, report.reachesBegun(), request.selection.reaches.size()))
            return {OutputEnd::cancelled, ""};
    }
    finishPrinting(platform, *job);
    return {OutputEnd::done, job->file()};
}

// Nothing where another program holds the file, which the user has been told.
std::unique_ptr<NewFile> createFile(Platform& platform, const std::string& name) {
    try {
        return platform.files.create(name);
    } catch (const RunTimeError& error) {
        if (error.number != errors::permissionDenied) throw;
        platform.dialogs.show({name + " is already open. Please close the file and try again.", "File Open",
                               Icon::information, Buttons::ok});
        return nullptr;
    }
}

ReportEnd writeFile(NewFile& file, OutputMode mode, const OutputRequest& request,
                    const ReportProgress& progress) {
    if (mode == OutputMode::spreadsheet)
        return writeSpreadsheet(file, request.results, request.selection, progress);
    OutputBytes bytes([&](std::string_view part) { file.write(part); });
    const ReportEnd end = writeReportWorkbook(bytes, request.results, request.selection, progress);
    bytes.flush();
    return end;
}

OutputResult saveFile(Platform& platform, OutputMode mode, const OutputRequest& request,
                      const ReportProgress& progress) {
    if (replacesInput(platform.files, request.outputFile, {request.resultsFile})) {
        platform.dialogs.show(outputWouldReplaceInput());
        return {OutputEnd::failed, ""};
    }
    const auto file = createFile(platform, request.outputFile);
    if (!file) return {OutputEnd::failed, ""};
    if (writeFile(*file, mode, request, progress) == ReportEnd::cancelled) return {OutputEnd::cancelled, ""};
    file->commit();
    return {OutputEnd::done, request.outputFile};
}

OutputResult printListing(Platform& platform, const std::string& fileName, const std::string& pdfFile) {
    const auto file = platform.files.open(fileName);
    Listing listing(*file, platform.paper.metrics());
    const auto job = platform.paper.begin({fileOf(fileName), Orientation::portrait, pdfFile});
    while (const std::optional<Drawing> page = listing.nextPage())
        job->page(*page);
    finishPrinting(platform, *job);
    return {OutputEnd::done, job->file()};
}

template <typename Work>
OutputResult withFailuresShown(Platform& platform, Work work) {
    try {
        return work();
    } catch (const RunTimeError& error) {
        platform.dialogs.show(failureMessage(error));
    } catch (const TableRefused& refused) {
        platform.dialogs.show({refused.what(), "Save as workbook", Icon::exclamation, Buttons::ok});
    }
    return {OutputEnd::failed, ""};
}

} // namespace

std::string reportFile(OutputMode mode, const std::string& resultsFile) {
    switch (mode) {
    case OutputMode::print: return besideResults(resultsFile, "-report.pdf");
    case OutputMode::workbook: return besideResults(resultsFile, "-report.xlsx");
    case OutputMode::spreadsheet: break;
    }
    return spreadsheetFileName(resultsFile);
}

OutputRequest outputRequest(OutputMode mode, const ResultsDataSet& results, const ReportSelection& selection,
                            const std::string& resultsFile) {
    return {results, selection, resultsFile, reportFile(mode, resultsFile)};
}

OutputResult Output(Platform& platform, OutputMode mode, const OutputRequest& request,
                    const ReportProgress& progress) {
    return withFailuresShown(platform, [&] {
        return mode == OutputMode::print ? printReport(platform, request, progress)
                                         : saveFile(platform, mode, request, progress);
    });
}

OutputResult PrintFile(Platform& platform, const std::string& fileName, const std::string& pdfFile) {
    return withFailuresShown(platform, [&] {
        return printListing(platform, fileName, pdfFile.empty() ? fileName + ".pdf" : pdfFile);
    });
}

} // namespace korvel
