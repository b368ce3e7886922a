#include "reports/ReportSheet.h"

#include "reports/ReportData.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

class ShownRows : public RowTaker {
  public:
    void row(std::span<const Cell> cells) override {
        for (const Cell& cell : cells) {
            if (const auto* const number = std::get_if<double>(&cell))
                text += std::to_string(*number);
            else
                text += std::get<std::string_view>(cell);
            text += '|';
        }
        text += '\n';
    }
    ReadyCells ready(std::size_t, std::span<const Cell>) override { return {}; }
    void row(const ReadyCells&, const ReadyCells&, std::span<const Cell> last) override { row(last); }

    std::string text;
};

std::string rowsOf(const Table& table) {
    ShownRows rows;
    table.rows(rows);
    return rows.text;
}

std::string headingsOf(const Table& table) {
    std::string headings;
    for (const Column& column : table.columns)
        headings += column.name + "|";
    return headings;
}

} // namespace

TEST(ReportSheet, HasTheColumnsOfThePrintedReport) {
    const LoadedRiver river;
    const ReportSelection selection = {
        {Statistic::mean, Statistic::p95}, true, true, true, false, {1, 4}, {1}};
    const ReportTable report(river.results, selection);
    EXPECT_EQ(
        headingsOf(tableOf(report)),
        "Reach|Feature|BOD (Conc) Mean|BOD (Conc) Mean LCL|BOD (Conc) Mean UCL|BOD (Conc) 95%-ile|BOD (Conc) "
        "95%-ile LCL|BOD (Conc) 95%-ile UCL|BOD (Conc) Target|BOD (Conc) Mean (Obs)|BOD (Conc) 95%-ile "
        "(Obs)|Ammonia (Load) Mean|Ammonia (Load) Mean LCL|Ammonia (Load) Mean UCL|Ammonia (Load) "
        "95%-ile|Ammonia (Load) 95%-ile LCL|Ammonia (Load) 95%-ile UCL|Ammonia (Load) Target|Ammonia (Load) "
        "Mean (Obs)|Ammonia (Load) 95%-ile (Obs)|");
}

TEST(ReportSheet, HasEveryRowOfTheReport) {
    const LoadedRiver river;
    const ReportSelection selection = {{Statistic::mean}, false, false, false, false, {1}, {1, 12}};
    const ReportTable report(river.results, selection);
    const std::string rows = rowsOf(tableOf(report));
    std::size_t expected = 0;
    for (ReportRows each = report.rows(); !each.atEnd(); each.next())
        ++expected;
    EXPECT_EQ(static_cast<std::size_t>(std::ranges::count(rows, '\n')), expected);
    EXPECT_NE(rows.find("Upper Mill|Gauge by \"old\" mill|0.567850|\n"), std::string::npos) << rows;
    EXPECT_NE(rows.find("Lower Mill||-0.250000|\n"), std::string::npos) << rows;
}

TEST(ReportSheet, EndsWhereItIsCancelled) {
    ResultsFileBuilder river20000;
    river20000.determinand(1, "BOD").reach(1, "A").points(20000);
    const LoadedRiver river(river20000);
    const ReportSelection selection = {{Statistic::mean}, false, false, false, true, {1}, {1}};
    std::string text;
    OutputBytes bytes([&](std::string_view part) { text += part; });
    EXPECT_EQ(writeReportWorkbook(bytes, river.results, selection, [](double) { return false; }),
              ReportEnd::cancelled);
    EXPECT_EQ(text, "");
    EXPECT_EQ(writeReportWorkbook(bytes, river.results, selection), ReportEnd::done);
    bytes.flush();
    EXPECT_TRUE(text.starts_with("PK"));
}

} // namespace korvel
