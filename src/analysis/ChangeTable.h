// Changes against the base as tables: by reach, by river, by point.
#pragma once

#include "analysis/Change.h"
#include "analysis/ReachGroups.h"
#include "study/Study.h"
#include "tables/Table.h"

#include <memory>
#include <vector>

namespace korvel {

struct ChangeRequest {
    std::vector<int> series;
    Statistic statistic = Statistic::mean;
    ReachChoice reaches;
    bool interpolated = false; // points of type 99 among the points, too
};

struct ChangeRow {
    ReachGroup group;
    int series = 0;
    ChangeSummary summary;
};

// One run of a study held against its base.
struct ComparedRun {
    StudyRun base, run;
    std::shared_ptr<const RunChange> change;
};

ComparedRun compared(const StudyRun& base, const StudyRun& run);

// Groups of reaches of the base, each with every series.
std::vector<ChangeRow> changeRows(const ComparedRun& run, const std::vector<ReachGroup>& groups,
                                  const ChangeRequest& request);

Table changesByReach(const ComparedRun& run, const ChangeRequest& request);
Table changesByRiver(const ComparedRun& run, const Network& ofBase, const ChangeRequest& request);
Table changesByPoint(const ComparedRun& run, const ChangeRequest& request);

std::string_view nameOf(ClearChange change); // "rise", "fall", "unclear"

} // namespace korvel
