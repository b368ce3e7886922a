#include "graphs/setup/ReachLists.h"

#include "basic/Numbers.h"

#include <unordered_set>

namespace korvel {

namespace {

ListedReach listed(const ResultsDataSet& results, int number, const char* pattern) {
    return {number, formatPattern(number, pattern) + " " + results.reachNames[number]};
}

} // namespace

std::vector<ListedReach> listedReaches(ResultsDataSet& results) {
    std::vector<ListedReach> lines;
    const std::vector<int>& order = results.reachOrder;
    for (int i = 0; i < results.reachCount; ++i) {
        const auto position = static_cast<std::size_t>(i);
        lines.push_back(listed(results, position < order.size() ? order[position] : 0, "####"));
    }
    return lines;
}

std::vector<ListedReach> downstreamReaches(const ResultsDataSet& results, int upstreamReach) {
    // A reach leaves the set when it joins the chain.
    std::unordered_set<int> free(results.reachOrder.begin(), results.reachOrder.end());
    free.erase(upstreamReach);
    std::vector<ListedReach> chain = {listed(results, upstreamReach, "###")};
    for (int next = results.reachNext[upstreamReach]; next != 0 && free.erase(next) == 1;
         next = results.reachNext[next])
        chain.push_back(listed(results, next, "###"));
    return chain;
}

std::vector<std::string> listedSeries(const ResultsDataSet& results) {
    std::vector<std::string> names;
    for (int series = 0; series <= results.seriesCount; ++series)
        names.push_back(results.seriesNames[series]);
    return names;
}

} // namespace korvel
