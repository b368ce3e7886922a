// The values at the points of a path: one column a series and run.
#pragma once

#include "explore/rows/RowSource.h"
#include "explore/rows/TableScope.h"
#include "panels/StudyPath.h"
#include "study/SeriesValues.h"

#include <vector>

namespace korvel {

// A row is a place where a run has a point; what the cursor stands on.
class ValueRows : public RowSource {
  public:
    explicit ValueRows(const TableScope& scope);

    int rowCount() const override { return static_cast<int>(m_rows.size()); }
    Cell cell(int row, int column) const override;
    std::string note(int row, int column) const override;
    std::optional<ExplorePlace> place(int row, int column) const override;
    std::optional<int> series(int row, int column) const override;
    std::vector<int> rowsAt(const ExplorePlace& place) const override;
    std::string whyEmpty() const override;

  private:
    struct ValueColumn {
        int series = 0;
        std::size_t run = 0;
        SeriesValues values;
    };

    void addValueColumns(const TableScope& scope);
    const PathPlace& placeAt(int row) const { return m_path.places[m_rows[static_cast<std::size_t>(row)]]; }
    const ResultsDataSet& resultsAt(int row) const { return m_study.runs()[placeAt(row).run].results(); }
    ExplorePlace explorePlace(int row) const;
    const ValueColumn* valueColumn(int column) const;
    int pointOf(int row, const ValueColumn& column) const;

    Study m_study; // the base first, whether it is shown or not
    StudyPath m_path;
    Statistic m_statistic;
    bool m_interpolated;
    std::vector<std::size_t> m_rows; // places of the path
    std::vector<ValueColumn> m_values;
};

} // namespace korvel
