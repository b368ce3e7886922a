// The values at the points of a path: one column a series and run.
#pragma once

#include "explore/rows/MergedPoints.h"
#include "explore/rows/RowSource.h"
#include "explore/rows/TableScope.h"
#include "study/SeriesValues.h"

#include <vector>

namespace korvel {

// A row is a point of the base, or of another run where it has no partner there.
class ValueRows : public RowSource {
  public:
    ValueRows(const TableScope& scope, MatchedRuns& matched);

    int rowCount() const override { return static_cast<int>(m_rows.size()); }
    Cell cell(int row, int column) const override;
    std::string note(int row, int column) const override;
    std::optional<ExplorePlace> place(int row, int column) const override;
    std::optional<int> series(int row, int column) const override;
    std::vector<int> rowsAt(const ExplorePlace& place) const override;
    std::string whyEmpty() const override;

  private:
    // A point, of the first run that has it.
    struct Row {
        std::size_t run = 0;
        int point = 0;
        std::size_t reach = 0; // of the path
    };
    struct PathReach {
        int number = 0;
        std::string name;
        double above = 0; // km from the path's beginning to its upper end
        int firstRow = 0, endRow = 0;
    };
    struct ValueColumn {
        int series = 0;
        std::size_t run = 0;
        SeriesValues values;
    };

    void addReach(int place, MergedPoints& merged);
    void takeRows(const MergedPoints& merged);
    void addValueColumns(const TableScope& scope);
    bool isListed(const StudyRun& run, int point) const;
    const ResultsDataSet& resultsOf(const Row& row) const { return m_runs[row.run].results(); }
    const Row& rowAt(int row) const { return m_rows[static_cast<std::size_t>(row)]; }
    const ValueColumn* valueColumn(int column) const;
    int pointOf(int row, const ValueColumn& column) const;

    std::vector<StudyRun> m_runs; // the base first, whether it is shown or not
    std::vector<std::shared_ptr<const RunChange>> m_changes;
    Statistic m_statistic;
    bool m_interpolated;
    std::vector<Row> m_rows;
    std::vector<int> m_points; // by row and run; 0 for none
    std::vector<PathReach> m_reaches;
    std::vector<ValueColumn> m_values;
};

} // namespace korvel
