#include "reports/ReportSheet.h"

#include "basic/Text.h"
#include "tables/Workbook.h"

namespace korvel {

namespace {

std::string withWord(std::string words, const std::string& word) {
    const std::string more = trim(word);
    if (!words.empty() && !more.empty()) words += ' ';
    return words + more;
}

// The four heading lines of the printed report in one: "BOD (Conc) 95%-ile LCL".
std::vector<Column> headings(const ReportColumns& report) {
    std::vector<Column> columns = {{"Reach"}, {"Feature"}};
    for (const ReportGroup& group : report.groups) {
        const std::string words = withWord(trim(group.name), group.kind);
        for (int k = group.firstColumn; k <= group.lastColumn; ++k) {
            const ReportColumn& column = report.columns[static_cast<std::size_t>(k - 1)];
            columns.push_back({withWord(withWord(words, column.statistic), column.holds)});
        }
    }
    return columns;
}

void giveRows(const ReportTable& report, RowTaker& taker) {
    std::vector<Cell> cells(report.values().size() + 2);
    for (ReportRows rows = report.rows(); !rows.atEnd(); rows.next()) {
        const int point = rows.row().point;
        const std::string reach = trim(report.reachName(rows.row())), label = report.label(point);
        cells[0] = std::string_view(reach);
        cells[1] = std::string_view(label);
        for (std::size_t k = 0; k < report.values().size(); ++k)
            cells[k + 2] = report.values()[k][static_cast<std::size_t>(point)];
        taker.row(cells);
    }
}

} // namespace

Table tableOf(const ReportTable& report) {
    return {"report", headings(report.columns()), [&report](RowTaker& taker) { giveRows(report, taker); }};
}

ReportEnd writeReportWorkbook(OutputBytes& out, const ResultsDataSet& results,
                              const ReportSelection& selection, const ReportProgress& progress) {
    const ReportTable report(results, selection);
    try {
        writeWorkbook({{report.title(), {}}, {sheetOf(tableOf(report))}}, {{}, progress}, out);
    } catch (const WritingStopped&) {
        return ReportEnd::cancelled;
    }
    return ReportEnd::done;
}

} // namespace korvel
