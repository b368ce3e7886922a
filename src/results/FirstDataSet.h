// Keeps header, reaches and points of the first data set, and the largest value of each series.
#pragma once

#include "results/PointValues.h"
#include "results/RecordTaker.h"
#include "results/ResultsDataSet.h"

#include <vector>

namespace korvel {

class FirstDataSet : public RecordTaker {
  public:
    explicit FirstDataSet(ResultsDataSet& results) : m_results(results) {}

    void title(std::string_view line) override;
    std::optional<std::string> percentileMode(int mode) override;
    Refusal determinandCount(int count) override;
    Refusal determinand(int number, const DeterminandLine& line) override;
    void determinandsEnd() override;
    Refusal reachCount(int count) override;
    Refusal reach(const ReachLine& line) override;
    void pointsBegin() override;
    Refusal point(int index, const PointLine& line) override;
    void pointEnd(int index, std::span<const double> values) override;
    void pointsEnd() override;

  private:
    void raiseMaxima(std::span<const double> values);
    void makeLabel(int index);

    ResultsDataSet& m_results;
    std::vector<double> m_largest; // by place in the file's order; gathered by series at the end
};

// A determinand's name as shown: blanks around it and points at its end dropped.
std::string shownDeterminandName(std::string_view name);

} // namespace korvel
