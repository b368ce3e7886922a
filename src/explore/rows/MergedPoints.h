// The points of several runs along a reach, as one list.
#pragma once

#include "study/RunFile.h"

#include <map>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

namespace korvel {

// The base's points in its order; a point that has no partner there follows the one before it in its own run,
// and is one row with those of the same place in other runs.
class MergedPoints {
  public:
    MergedPoints(std::size_t runs, int basePoints);

    void beginReach(std::span<const int> pointsOfBase);
    // The same reach in another run; `ofRun` tells the partner of each point in the base, 0 for none.
    void addRun(std::size_t run, const RunFile& file, std::span<const int> points,
                std::span<const int> ofRun);

    // By run the point of each row, 0 for none; the rows of the reach in order.
    std::vector<int> rowsInOrder() const;
    int point(int row, std::size_t run) const { return m_points[at(row) * m_runs + run]; }
    // The first run that has the row's point.
    std::size_t firstRun(int row) const;

  private:
    static std::size_t at(int index) { return static_cast<std::size_t>(index); }
    int addRow(int after);
    int joined(std::size_t run, const RunFile& file, int point) const;

    using Place = std::pair<double, std::string_view>;

    std::size_t m_runs;
    std::vector<int> m_rowOfBase; // by the base's point
    std::vector<int> m_points;    // by row and run
    std::vector<int> m_next;      // the row below; -1 for none
    int m_first = -1;
    std::multimap<Place, int> m_apart; // rows without a point of the base
};

} // namespace korvel
