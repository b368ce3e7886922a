// How many reaches of a run meet their targets, all determinands taken together, and that in words.
#pragma once

#include "analysis/ComplianceTable.h"

#include <string>
#include <vector>

namespace korvel {

struct ReachTally {
    int sureFails = 0;
    int unsureFails = 0; // the value fails, its limits don't
    int unsurePasses = 0;
    int surePasses = 0;
    int unjudged = 0;

    int fails() const { return sureFails + unsureFails; }
    int judged() const { return fails() + unsurePasses + surePasses; }
};

ReachTally tallyOf(const std::vector<OverallRow>& reaches);

// "9 of 14 reaches miss at least one target, 6 of them for sure; 5 pass for sure."
std::string tallyWords(const ReachTally& tally);

// What a run says about its targets, for whoever has not looked at it yet. Judged as long as nobody has said
// otherwise: what is bad when low goes by its name.
struct RunVerdict {
    std::string brief; // "9 of 14 reaches miss a target"
    std::string words; // the tally's, and what was taken as bad when low
};

RunVerdict verdictOf(const SharedRun& run);

} // namespace korvel
