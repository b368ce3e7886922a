// The rows of a report: which points give one, where a reach's rows begin, and how a row is labelled.
#pragma once

#include "reports/ReportSelection.h"
#include "results/ResultsDataSet.h"

#include <string>
#include <vector>

namespace korvel {

struct ReportRow {
    int point = 0;
    int reach = 0;
    bool newReach = false; // another reach than the row before, or the first row
};

// Goes through the rows in results order. The data set and the selection must outlive it.
class ReportRows {
  public:
    ReportRows(const ResultsDataSet& results, const ReportSelection& selection);

    bool atEnd() const { return m_row.point > m_results.pointCount; }
    const ReportRow& row() const { return m_row; }
    void next();

  private:
    bool isReported(int point) const;

    const ResultsDataSet& m_results;
    const ReportSelection& m_selection;
    std::vector<bool> m_isSelected; // by reach number
    ReportRow m_row;
};

std::string rowLabel(const ResultsDataSet& results, const ReportSelection& selection, int point);
// The same behind what stands in `text`.
void appendRowLabel(std::string& text, const ResultsDataSet& results, const ReportSelection& selection,
                    int point);

} // namespace korvel
