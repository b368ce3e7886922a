// The report as ruled pages, made one at a time.
#pragma once

#include "reports/PrintedPage.h"
#include "reports/RememberedMetrics.h"
#include "reports/ReportPages.h"

#include <optional>
#include <string>

namespace korvel {

class PrintedReport {
  public:
    // All that is given must outlive the report. `date` as it is to be printed.
    PrintedReport(const ResultsDataSet& results, const ReportSelection& selection, std::string date,
                  const TextMetrics& metrics);

    Orientation orientation() const { return m_table.orientation; }
    std::optional<Drawing> nextPage(); // nothing after the last page
    int reachesBegun() const { return m_pages.reachesBegun(); }

  private:
    void PageHeader(PrintedPage& page, int number) const;
    void headTitle(PrintedPage& page, int number) const;
    void headGroup(PrintedPage& page, const ReportGroup& group) const;
    void headColumn(PrintedPage& page, int k) const;
    void headLabels(PrintedPage& page) const;
    void paintReach(PrintedPage& page, const PlannedReach& reach) const;
    void paintRow(PrintedPage& page, int point, double y) const;
    void ruleAcross(PrintedPage& page, int line) const;
    void ruleDown(PrintedPage& page, double x, int fromLine, int toLine) const;
    double lineTop(int line) const { return TableGeometry::top + line * m_lineHeight; }

    ReportTable m_report;
    std::string m_date;
    RememberedMetrics m_metrics;
    TableGeometry m_table;
    double m_lineHeight; // inches
    ReportPages m_pages;
};

} // namespace korvel
