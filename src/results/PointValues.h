// The values of plotting points: their order in the file, and their way from there into the columns of a
// slot.
#pragma once

#include "results/ValueStore.h"

#include <cstddef>
#include <limits>
#include <span>
#include <vector>

namespace korvel {

struct ValuePlace {
    ValueField field;
    int series;
    int level;
};

// Where the values of one point belong, in the file's order.
std::vector<ValuePlace> valuePlacesOfPoint(int determinands);

// The values that follow each caption of one point, in the file's order.
std::vector<int> valuesByCaption(int determinands);

// No file holds it.
inline constexpr double notReadYet = std::numeric_limits<double>::quiet_NaN();

// Takes points a row at a time and writes them to the columns a few points together, so that a column is
// touched by whole cache lines.
class PointValues {
  public:
    PointValues(ValueStore& store, int determinands);

    // Room for the values of the next point, the index following the last one; each is notReadYet.
    std::span<double> nextPoint(int index);
    // Writes the points that are still in hand, also one that was cut short: its values read so far. Called
    // at the end.
    void write();

  private:
    static constexpr std::size_t rows = 8; // the doubles of a cache line

    ValueStore& m_store;
    std::vector<double*> m_columns; // by place
    std::vector<double> m_rows;
    std::size_t m_first = 0; // index of the first row's point
    std::size_t m_count = 0;
};

} // namespace korvel
