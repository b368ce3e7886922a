// The reaches of a run, each once, at the place of its first line, and the points of each.
#pragma once

#include "results/ResultsDataSet.h"

#include <span>
#include <vector>

namespace korvel {

class ReachPoints {
  public:
    ReachPoints() = default;
    explicit ReachPoints(const ResultsDataSet& results);

    int count() const { return static_cast<int>(m_numbers.size()); }
    const std::vector<int>& numbers() const { return m_numbers; } // by place, from 0
    int number(int place) const { return m_numbers[static_cast<std::size_t>(place)]; }
    // -1 for a reach without a line.
    int placeOf(int number) const;
    // Point indices in file order. Points of a reach without a line are in none.
    std::span<const int> pointsOf(int place) const;

  private:
    std::vector<int> m_numbers;
    std::vector<int> m_placeOfNumber;
    std::vector<std::size_t> m_starts; // where the points of each place begin; one more at the end
    std::vector<int> m_points;
};

} // namespace korvel
