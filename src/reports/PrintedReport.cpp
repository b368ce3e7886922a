#include "reports/PrintedReport.h"

#include "basic/Numbers.h"
#include "reports/QuickNumber.h"

namespace korvel {

namespace {

// The lines of the heading block, from the top of the page; one stays empty above the table.
constexpr int groupNameLine = 4;
constexpr int groupKindLine = 5;
constexpr int statisticLine = 6;
constexpr int holdsLine = 7;
constexpr int headingEnd = ReportPages::headingLines;

constexpr double besideTitle = 0.1; // inches kept between the title and what stands to the right of it

void centredText(PrintedPage& page, double left, double right, double y, const std::string& text) {
    double nextLine = 0;
    page.font.bold = true;
    Ptext(page, left + ((right - left) - page.fitted(text).size.width) / 2, y, text, nextLine, "b");
}

} // namespace

PrintedReport::PrintedReport(const ResultsDataSet& results, const ReportSelection& selection,
                             std::string date, const TextMetrics& metrics)
    : m_report(results, selection),
      m_date(std::move(date)),
      m_metrics(metrics, reportFont),
      m_table(tableGeometry(m_report.columns().count())),
      m_lineHeight(PrintedPage(m_table.orientation, m_metrics).lineHeight()),
      m_pages(m_report, m_table.lowestLine, m_lineHeight) {}

std::optional<Drawing> PrintedReport::nextPage() {
    const std::optional<PlannedPage> plan = m_pages.next();
    if (!plan) return std::nullopt;
    PrintedPage page(m_table.orientation, m_metrics);
    PageHeader(page, plan->number);
    for (const PlannedReach& reach : plan->reaches)
        paintReach(page, reach);
    ruleAcross(page, plan->end);
    return std::move(page.drawing());
}

void PrintedReport::PageHeader(PrintedPage& page, int number) const {
    headTitle(page, number);
    ruleAcross(page, groupNameLine);
    headLabels(page);
    for (const ReportGroup& group : m_report.columns().groups)
        headGroup(page, group);
    for (int k = 1; k <= m_report.columns().count(); ++k)
        headColumn(page, k);
}

void PrintedReport::headTitle(PrintedPage& page, int number) const {
    const std::string program = "KORVEL RESULTS";
    double y = 0;
    page.room = {m_table.right - page.widthOf(program) - besideTitle - m_table.left, TooWide::cut};
    page.font = {"Arial", 10, false};
    Ptext(page, m_table.left, TableGeometry::top, m_report.title(), y, "b");
    page.room = {};
    page.font = reportFont;
    Ptext(page, m_table.right, TableGeometry::top, program, y, "r");
    Ptext(page, m_table.right, y, m_date, y, "r");
    Ptext(page, m_table.right, y, "Page" + withLeadingBlank(number), y, "r");
}

void PrintedReport::headLabels(PrintedPage& page) const {
    page.room = m_table.labelRoom();
    centredText(page, m_table.left, TableGeometry::labelRight, lineTop(groupNameLine), "Feature");
    ruleDown(page, m_table.left, groupNameLine, headingEnd);
    ruleDown(page, TableGeometry::labelRight, groupNameLine, headingEnd);
}

void PrintedReport::headGroup(PrintedPage& page, const ReportGroup& group) const {
    const double begin = m_table.columnEnd(group.firstColumn - 1);
    const double end = m_table.columnEnd(group.lastColumn);
    page.room = {end - begin - 2 * m_table.inset, TooWide::cut};
    centredText(page, begin, end, lineTop(groupNameLine), group.name);
    centredText(page, begin, end, lineTop(groupKindLine), group.kind);
    ruleDown(page, end, groupNameLine, statisticLine);
}

void PrintedReport::headColumn(PrintedPage& page, int k) const {
    const ReportColumn& column = m_report.columns().columns[static_cast<std::size_t>(k - 1)];
    const double textEnd = m_table.columnEnd(k) - m_table.inset;
    double nextLine = 0;
    page.room = m_table.valueRoom();
    Ptext(page, textEnd, lineTop(statisticLine), column.statistic, nextLine, "br");
    Ptext(page, textEnd, lineTop(holdsLine), column.holds, nextLine, "br");
    ruleDown(page, m_table.columnEnd(k), statisticLine, headingEnd);
}

// The rules between the cells of a reach's rows are drawn in one piece.
void PrintedReport::paintReach(PrintedPage& page, const PlannedReach& reach) const {
    double nextLine = 0;
    page.room = {m_table.right - m_table.left - m_table.inset, TooWide::cut};
    ruleAcross(page, reach.headingLine);
    Ptext(page, m_table.left + m_table.inset / 2, lineTop(reach.headingLine), reach.heading, nextLine, "b");
    for (std::size_t i = 0; i < reach.points.size(); ++i)
        paintRow(page, reach.points[i], lineTop(reach.firstRow() + static_cast<int>(i)));
    ruleDown(page, m_table.left, reach.firstRow(), reach.end());
    for (int k = 0; k <= m_report.columns().count(); ++k)
        ruleDown(page, m_table.columnEnd(k), reach.firstRow(), reach.end());
}

void PrintedReport::paintRow(PrintedPage& page, int point, double y) const {
    double nextLine = 0;
    page.room = m_table.labelRoom();
    Ptext(page, m_table.left + m_table.inset, y, m_report.label(point), nextLine, "");
    page.room = m_table.valueRoom();
    for (int k = 1; k <= m_report.columns().count(); ++k) {
        const double value =
            m_report.values()[static_cast<std::size_t>(k - 1)][static_cast<std::size_t>(point)];
        Ptext(page, m_table.columnEnd(k) - m_table.inset, y, quickNumber(value), nextLine, "r");
    }
}

void PrintedReport::ruleAcross(PrintedPage& page, int line) const {
    const double y = lineTop(line) - TableGeometry::ruleAbove;
    page.rule({m_table.left, y}, {m_table.right, y});
}

void PrintedReport::ruleDown(PrintedPage& page, double x, int fromLine, int toLine) const {
    page.rule({x, lineTop(fromLine) - TableGeometry::ruleAbove},
              {x, lineTop(toLine) - TableGeometry::ruleAbove});
}

} // namespace korvel
