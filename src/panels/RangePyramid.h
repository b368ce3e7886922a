// The lowest and the highest of any stretch of a long list of numbers, without going through it.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace korvel {

struct NumberRange {
    double lowest = 0;
    double highest = 0;
    bool operator==(const NumberRange&) const = default;
};

class RangePyramid {
  public:
    RangePyramid() = default;
    explicit RangePyramid(std::span<const double> numbers);

    // Of the numbers from `begin` to before `end`, at least one. `numbers` are those that it was made from.
    NumberRange range(std::span<const double> numbers, std::size_t begin, std::size_t end) const;

    // The first place there of a number that is the lowest or the highest of that stretch.
    std::size_t find(std::span<const double> numbers, std::size_t begin, std::size_t end,
                     double number) const;

  private:
    std::vector<std::vector<NumberRange>> m_levels; // each of blocks of the one before, the first of numbers
};

} // namespace korvel
