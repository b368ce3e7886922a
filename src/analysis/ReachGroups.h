// What figures are gathered over: a reach, a river, or the whole file.
#pragma once

#include "study/Network.h"
#include "study/ReachChoice.h"

#include <string>
#include <vector>

namespace korvel {

struct ReachGroup {
    int reach = 0;           // number, of a single reach
    std::string river;       // name, of a river
    std::vector<int> places; // in the run's ReachPoints, from the head down
    bool isRiver = false;
};

std::vector<ReachGroup> groupsByReach(const RunFile& run, const ReachChoice& reaches);

// All rivers, each with those of its reaches that are chosen.
std::vector<ReachGroup> groupsByRiver(const RunFile& run, const Network& network, const ReachChoice& reaches);

ReachGroup wholeGroup(const RunFile& run, const ReachChoice& reaches);

} // namespace korvel
