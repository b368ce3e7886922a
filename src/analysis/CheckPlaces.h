// Where a check found something: gathered series by series, given out point by point.
#pragma once

#include "analysis/Check.h"
#include "study/SeriesValues.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <tuple>
#include <vector>

namespace korvel {

struct FoundPlace {
    int point = 0;
    int series = 0;
    bool operator<(const FoundPlace& other) const {
        return std::tie(point, series) < std::tie(other.point, other.series);
    }
};

// Keeps no more than the first places of each series, so that a file full of findings stays small in memory.
class FoundPlaces {
  public:
    explicit FoundPlaces(std::size_t most) : m_most(most) {}

    void beginSeries(int series) {
        m_series = series;
        m_ofSeries = 0;
    }
    // Points come in file order.
    void take(int point) {
        ++m_count;
        if (m_ofSeries++ < m_most) m_places.push_back({point, m_series});
    }
    int count() const { return m_count; }
    std::vector<FoundPlace> first() {
        std::sort(m_places.begin(), m_places.end());
        m_places.resize(std::min(m_most, m_places.size()));
        return m_places;
    }

  private:
    std::size_t m_most;
    int m_series = 0;
    std::size_t m_ofSeries = 0;
    int m_count = 0;
    std::vector<FoundPlace> m_places;
};

// The points of reaches with a line, in file order.
std::vector<int> pointsOfReaches(const RunFile& run);

CheckPlace pointPlace(const RunFile& run, int point, const std::string& what);

// One series, by statistic.
using StatisticColumns = std::array<SeriesValues, allStatistics.size()>;

StatisticColumns statisticColumns(const RunFile& run, int series);

} // namespace korvel
