// How runs differ from the base, reach by reach: a row a run, reach and series.
#pragma once

#include "explore/rows/RowSource.h"
#include "explore/rows/TableScope.h"

#include <memory>
#include <vector>

namespace korvel {

// A row is summed up when it is first looked at.
class ChangeRows : public RowSource {
  public:
    ChangeRows(const TableScope& scope, MatchedRuns& matched);

    int rowCount() const override { return static_cast<int>(m_rows.size()); }
    Cell cell(int row, int column) const override;
    std::string note(int row, int column) const override;
    std::optional<ExplorePlace> place(int row, int column) const override;
    std::optional<int> series(int row, int column) const override;
    std::vector<int> rowsAt(const ExplorePlace& place) const override;
    std::string whyEmpty() const override;

  private:
    struct ComparedTo {
        StudyRun run;
        std::shared_ptr<const RunChange> change;
    };
    struct Row {
        std::size_t run = 0;
        int place = 0; // of the reach
        int series = 0;
    };

    const Row& rowAt(int row) const { return m_rows[static_cast<std::size_t>(row)]; }
    const ChangeSummary& summaryOf(int row) const;
    Cell largestCell(const std::optional<LargestChange>& largest, int part) const;

    StudyRun m_base;
    Statistic m_statistic;
    std::vector<int> m_series;
    std::vector<ComparedTo> m_runs;
    std::vector<std::string> m_reachNames; // by place
    std::vector<Row> m_rows;
    mutable std::vector<ChangeSummary> m_summaries; // by row
    mutable std::vector<bool> m_isSummedUp;
};

} // namespace korvel
