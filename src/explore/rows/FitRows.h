// How well runs fit what was observed: a row a run, group of reaches, series and statistic.
#pragma once

#include "analysis/Fit.h"
#include "analysis/ReachGroups.h"
#include "explore/rows/RowSource.h"
#include "explore/rows/TableScope.h"
#include "panels/FitScatter.h"

#include <vector>

namespace korvel {

enum class FitBy { whole, river, reach };

// Figures are found when a row is first looked at.
class FitRows : public RowSource {
  public:
    FitRows(const TableScope& scope, FitBy by);

    int rowCount() const override { return static_cast<int>(m_rows.size()); }
    Cell cell(int row, int column) const override;
    std::string note(int row, int column) const override;
    std::optional<ExplorePlace> place(int row, int column) const override;
    std::optional<int> series(int row, int column) const override;
    std::vector<int> rowsAt(const ExplorePlace& place) const override;
    std::string whyEmpty() const override;

    // The points behind a row, and what they are points of.
    using Points = FittedPoints;
    Points pointsOf(int row) const;

  private:
    struct Row {
        std::size_t run = 0;
        std::size_t group = 0; // of the run's
        int series = 0;
        Statistic statistic = Statistic::mean;
    };

    const Row& rowAt(int row) const { return m_rows[static_cast<std::size_t>(row)]; }
    const StudyRun& runOf(int row) const { return m_runs[rowAt(row).run]; }
    const ReachGroup& groupOf(int row) const { return m_groups[rowAt(row).run][rowAt(row).group]; }
    std::vector<ReachGroup> groupsOf(const StudyRun& run);
    void addRows(std::size_t run, const std::vector<int>& series);
    const FitFigures& figuresOf(int row) const;
    Cell groupCell(int row, int part) const;

    FitBy m_by;
    std::vector<StudyRun> m_runs;
    bool m_hasSeries;
    bool m_hasCircles = false;
    std::vector<std::vector<ReachGroup>> m_groups; // by run
    std::vector<std::string> m_reachNames;         // by row, of a reach
    std::vector<Row> m_rows;
    mutable std::vector<FitFigures> m_figures; // by row
    mutable std::vector<bool> m_isFigured;
};

// "24.3 km, Holcombe STW, reach 3 Upper Alder: observed 5.1, simulated 5.42"
std::string wordsOf(const FitScatter& scatter, const ScatterPoint& point);

} // namespace korvel
