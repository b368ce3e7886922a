// Which rows of a plan are done already: those whose sums still hold.
#pragma once

#include "many/Plan.h"
#include "many/RunRecord.h"

namespace korvel {

// Whether the record tells that this row, as the plan has it now, was done by this engine, and data file and
// results are still those of then. `folder`: of the plan.
bool stillHolds(const PlannedRun& run, const RunRecord& record, const std::string& engineSum,
                const std::string& folder);

// The host path of what a record names, relative to the plan's folder.
std::string pathFromPlan(const std::string& folder, const std::string& name);

} // namespace korvel
