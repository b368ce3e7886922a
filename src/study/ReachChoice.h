// Which reaches are looked at: all of them, or those named.
#pragma once

#include <optional>
#include <set>
#include <utility>

namespace korvel {

class ReachChoice {
  public:
    ReachChoice() = default; // all
    explicit ReachChoice(std::set<int> numbers) : m_numbers(std::move(numbers)) {}

    bool holds(int number) const { return !m_numbers || m_numbers->contains(number); }

  private:
    std::optional<std::set<int>> m_numbers;
};

} // namespace korvel
