// The values of one slot: for each field and series one column of 60000 numbers by point index, in one
// anonymous mapping. It is made when the first column is written to, and its pages stay untouched until they
// are written: the memory taken follows the points that are kept. The columns of a series are neighbours, so
// that a file's columns are the beginning of the mapping.
#pragma once

#include "results/ValueField.h"

#include <cstddef>
#include <span>

namespace korvel {

class ValueStore {
  public:
    ValueStore() = default;
    ~ValueStore();
    ValueStore(const ValueStore&) = delete;
    ValueStore& operator=(const ValueStore&) = delete;
    ValueStore(ValueStore&& other) noexcept;
    ValueStore& operator=(ValueStore&& other) noexcept;

    static constexpr int points = 60000; // indices 0..59999

    // A whole column; error 9 for a series or level outside its extent. Without memory for the first one to
    // be written, std::bad_alloc.
    std::span<double> column(ValueField field, int series, int level = 0);
    // All zeros where nothing was ever written.
    std::span<const double> column(ValueField field, int series, int level = 0) const;
    double at(ValueField field, int point, int series, int level = 0) const;

    bool everWritten() const; // a load has stored values here
    void markWritten();
    // Tells about how many points will be written: with many, whole columns are touched and large pages save
    // time; with few, they would take memory for nothing.
    void expectPoints(std::size_t count);
    // Gives the memory back; every value is 0 again.
    void reset();

  private:
    static std::size_t offsetOf(ValueField field, int series, int level);
    void map();

    void* m_mapping = nullptr;
    double* m_values = nullptr; // in the mapping, at the first large page's start
    bool m_everWritten = false;
};

} // namespace korvel
