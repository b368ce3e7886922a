// Checks the records of a second results file against the first data set, which it leaves as it is.
#pragma once

#include "results/RecordTaker.h"
#include "results/ResultsDataSet.h"

namespace korvel {

class SecondDataSet : public RecordTaker {
  public:
    explicit SecondDataSet(const ResultsDataSet& first) : m_first(first) {}

    void title(std::string_view) override {}
    std::optional<std::string> percentileMode(int mode) override;
    Refusal determinandCount(int count) override;
    Refusal determinand(int number, const DeterminandLine& line) override;
    Refusal reachCount(int count) override;
    Refusal reach(const ReachLine& line) override;
    Refusal point(int index, const PointLine& line) override;
    void pointEnd(int, std::span<const double>) override {}

  private:
    const ResultsDataSet& m_first;
};

// Whether any target of the second data set differs from the first's, over the points there are.
bool targetsDiffer(const ResultsDataSet& results);

} // namespace korvel
