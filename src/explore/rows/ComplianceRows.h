// Whether runs meet their targets, as a grid: reaches by determinands, one block of columns a run.
#pragma once

#include "analysis/Compliance.h"
#include "explore/rows/RowSource.h"
#include "explore/rows/TableScope.h"

#include <vector>

namespace korvel {

// The verdict with confidence; where no value has limits, the one by the values alone.
Verdict shownVerdict(Verdict verdict, Verdict confident);

// A cell is judged when it is first looked at.
class ComplianceRows : public RowSource {
  public:
    ComplianceRows(const TableScope& scope, std::shared_ptr<MatchedRuns> matched);

    int rowCount() const override;
    Cell cell(int row, int column) const override;
    Cell sortedBy(int row, int column) const override;
    std::string note(int row, int column) const override;
    std::optional<ExplorePlace> place(int row, int column) const override;
    std::optional<int> series(int row, int column) const override;
    std::vector<int> rowsAt(const ExplorePlace& place) const override;
    std::string whyEmpty() const override;

  private:
    struct Block {
        StudyRun run;
        std::vector<JudgedDeterminand> judged;
    };
    struct Judged {
        bool isDone = false;
        ReachCompliance reach;
    };
    // Which block and which of its determinands a column shows; -1 stands for all of them together.
    struct Shown {
        std::size_t block = 0;
        int determinand = -1;
    };

    void addColumns();
    bool isVerdict(int column) const;
    Shown shownIn(int column) const;
    int runPlace(int row, const Block& block) const;
    const ReachCompliance& judged(int row, std::size_t block, std::size_t determinand) const;
    Verdict verdictAt(int row, const Shown& shown) const;
    OverallVerdict overallAt(int row, std::size_t block) const;
    std::string overallNote(int row, const Shown& shown) const;
    std::string determinandNote(int row, const Shown& shown) const;
    std::string changeNote(int row, const Shown& shown) const;

    StudyRun m_base;
    std::shared_ptr<MatchedRuns> m_matched;
    std::vector<Block> m_blocks;
    std::size_t m_determinands = 0; // of each block
    std::vector<std::string> m_reachNames;
    mutable std::vector<Judged> m_cells; // by row, block and determinand
};

} // namespace korvel
