// What the Explorer's tables are about.
#pragma once

#include "analysis/Change.h"
#include "explore/ExploreState.h"

#include <memory>
#include <set>
#include <string>
#include <vector>

namespace korvel {

struct TableScope {
    StudyRun base;
    std::vector<StudyRun> runs; // those that are shown, the base first where it is among them
    std::shared_ptr<const Network> network;
    std::vector<int> path; // reaches by their places in the base, from the head down
    std::vector<int> series;
    Statistic statistic = Statistic::mean;
    std::set<int> lowIsBad;    // determinands by number
    bool interpolated = false; // points of type 99 among the values
};

// Of a state that isn't empty.
TableScope scopeOf(const ExploreState& state);

bool isBase(const TableScope& scope, const StudyRun& run);

// Which points of runs are the same as the base's, each pair of runs compared once.
class MatchedRuns {
  public:
    std::shared_ptr<const RunChange> between(const StudyRun& base, const StudyRun& run);
    // Forgets all pairs of other runs.
    void keepOnly(const StudyRun& base, const std::vector<StudyRun>& runs);

  private:
    struct Pair {
        SharedRun base, run;
        std::shared_ptr<const RunChange> change;
    };
    std::vector<Pair> m_pairs;
};

// "12 Upper Alder"
std::string reachTitle(const RunFile& run, int number);

// "24.3 km, Holcombe STW"
std::string pointTitle(const ResultsDataSet& results, int point);

ExplorePlace placeOf(const ResultsDataSet& results, int point);
// Its first point, or its upper end where it has none.
ExplorePlace placeOfReach(const RunFile& run, int number);

} // namespace korvel
