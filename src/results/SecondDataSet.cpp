#include "results/SecondDataSet.h"

#include <algorithm>

namespace korvel {

namespace {

Refusal refusedUnless(bool same, const char* words) {
    return same ? Refusal() : Refusal(words);
}

} // namespace

std::optional<std::string> SecondDataSet::percentileMode(int mode) {
    return refusedUnless(mode == m_first.percentileMode, "2nd data set uses different percentile mode.");
}

Refusal SecondDataSet::determinandCount(int count) {
    return refusedUnless(count == m_first.determinandCount, "2nd data set has wrong number of determinands.");
}

// The statistic codes may differ.
Refusal SecondDataSet::determinand(int number, const DeterminandLine& line) {
    const bool same =
        line.type == m_first.determinandTypes[number] && line.name == m_first.determinandNames[number];
    return refusedUnless(same, "2nd data set has different determinands.");
}

// Kept so: a level typed in the set-up form stands where the number of reaches does, and is compared.
Refusal SecondDataSet::reachCount(int count) {
    return refusedUnless(count == m_first.reachCount, "2nd data set has different number of reaches.");
}

Refusal SecondDataSet::reach(const ReachLine& line) {
    const bool same = line.name == m_first.reachNames[line.number] &&
                      line.length == m_first.reachLengths[line.number] &&
                      line.next == m_first.reachNext[line.number];
    return refusedUnless(same, "2nd data set has different reach data.");
}

Refusal SecondDataSet::point(int index, const PointLine& line) {
    const bool same =
        line.reach == m_first.pointReach[index] && line.distance == m_first.pointDistance[index];
    return refusedUnless(same, "2nd data set has different reach or feature data.");
}

bool targetsDiffer(const ResultsDataSet& results) {
    const auto compared = static_cast<std::size_t>(results.pointCount) + 1;
    for (int c = 1; c <= results.seriesCount; ++c) {
        const auto first = results.values[0].column(ValueField::targetValue, c).first(compared);
        const auto second = results.values[1].column(ValueField::targetValue, c).first(compared);
        if (!std::ranges::equal(first, second)) return true;
    }
    return false;
}

} // namespace korvel
