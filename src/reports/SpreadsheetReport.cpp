#include "reports/SpreadsheetReport.h"

#include "basic/Text.h"
#include "reports/CellOutput.h"
#include "reports/ReportTable.h"

namespace korvel {

namespace {

constexpr int rowsBetweenQuestions = 1000;

void groupLine(CellOutput& out, const ReportColumns& columns, std::string ReportGroup::*heading) {
    for (const ReportGroup& group : columns.groups) {
        const std::string text = trim(group.*heading);
        for (int column = group.firstColumn; column <= group.lastColumn; ++column)
            out.cell(text);
    }
    out.endLine();
}

void columnLine(CellOutput& out, const ReportColumns& columns, std::string ReportColumn::*heading) {
    for (const ReportColumn& column : columns.columns)
        out.cell(column.*heading);
    out.endLine();
}

void PageHeader(CellOutput& out, const ReportTable& report) {
    const ReportColumns& columns = report.columns();
    out.text(report.title());
    out.endLine();
    out.text("Reach,Feature,");
    groupLine(out, columns, &ReportGroup::name);
    out.text(",,");
    groupLine(out, columns, &ReportGroup::kind);
    out.text(",,");
    columnLine(out, columns, &ReportColumn::statistic);
    out.text(",,");
    columnLine(out, columns, &ReportColumn::holds);
}

// As many as are made together.
std::vector<ReportRow> nextRows(ReportRows& rows) {
    std::vector<ReportRow> block;
    for (; !rows.atEnd() && block.size() < NumberBlock::mostRows; rows.next())
        block.push_back(rows.row());
    return block;
}

} // namespace

std::string spreadsheetFileName(const std::string& resultsFile) {
    return withoutLast(resultsFile, 3) + "csv";
}

ReportEnd writeSpreadsheet(NewFile& file, const ResultsDataSet& results, const ReportSelection& selection,
                           const ReportProgress& progress) {
    const ReportTable report(results, selection);
    NumberBlock numbers(report.values());
    CellOutput out(file);
    PageHeader(out, report);
    std::string label;
    int reachesBegun = 0, rowCount = 0;
    for (ReportRows rows = report.rows(); !rows.atEnd();) {
        numbers.take(nextRows(rows));
        for (std::size_t i = 0; i < numbers.rows().size(); ++i) {
            const ReportRow& row = numbers.rows()[i];
            reachesBegun += row.newReach ? 1 : 0;
            if (rowCount++ % rowsBetweenQuestions == 0 &&
                !goesOn(progress, reachesBegun, report.reachesSelected()))
                return ReportEnd::cancelled;
            out.cell(report.reachName(row));
            label.clear();
            report.appendLabel(label, row.point);
            out.quotedCell(label);
            out.numbers(numbers, i);
            out.endLine();
        }
    }
    out.flush();
    return ReportEnd::done;
}

} // namespace korvel
