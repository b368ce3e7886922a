// A report as a table: its columns, and its rows with their labels and values. Whatever a report is made into
// (pages, a spreadsheet file) goes through it row by row.
#pragma once

#include "reports/ReportColumns.h"
#include "reports/ReportRows.h"

#include <span>
#include <string>
#include <vector>

namespace korvel {

class ReportTable {
  public:
    // The data set and the selection must outlive it.
    ReportTable(const ResultsDataSet& results, const ReportSelection& selection)
        : m_results(results),
          m_selection(selection),
          m_columns(reportColumns(results, selection)),
          m_values(valueColumns(results, m_columns)) {}

    const std::string& title() const { return m_results.resultsTitle; }
    const ReportColumns& columns() const { return m_columns; }
    std::size_t reachesSelected() const { return m_selection.reaches.size(); }

    ReportRows rows() const { return {m_results, m_selection}; }
    const std::string& reachName(const ReportRow& row) const { return m_results.reachNames[row.reach]; }
    // Behind what stands in `text`.
    void appendLabel(std::string& text, int point) const {
        appendRowLabel(text, m_results, m_selection, point);
    }
    std::string label(int point) const { return rowLabel(m_results, m_selection, point); }
    // By column, each by point.
    std::span<const ValueColumn> values() const { return m_values; }

  private:
    const ResultsDataSet& m_results;
    const ReportSelection& m_selection;
    ReportColumns m_columns;
    std::vector<ValueColumn> m_values;
};

} // namespace korvel
