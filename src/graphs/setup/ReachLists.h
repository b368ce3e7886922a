// The lists of reaches and series that the set-up form offers.
#pragma once

#include "results/ResultsDataSet.h"

#include <string>
#include <vector>

namespace korvel {

struct ListedReach {
    int number = 0;
    std::string text;
    bool operator==(const ListedReach&) const = default;
};

// One line for each of the counted reaches. Kept so: the count is the one that the level box shares, so that
// a level typed before the load can make the list longer; the lines beyond the last reach are those of reach
// 0.
std::vector<ListedReach> listedReaches(ResultsDataSet& results);

// The reach and every reach below it. The chain ends before a reach that is already in it, and at a number
// that no reach line names.
std::vector<ListedReach> downstreamReaches(const ResultsDataSet& results, int upstreamReach);

std::vector<std::string> listedSeries(const ResultsDataSet& results);

} // namespace korvel
