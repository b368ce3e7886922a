// The fit of a run to what was observed, as tables.
#pragma once

#include "analysis/Fit.h"
#include "analysis/ReachGroups.h"
#include "study/Study.h"
#include "tables/Table.h"

namespace korvel {

struct FitRequest {
    std::vector<int> series; // flow and concentrations
    std::vector<Statistic> statistics;
    ReachChoice reaches;
};

struct FitRow {
    ReachGroup group;
    int series = 0;
    Statistic statistic = Statistic::mean;
    FitFigures figures;
};

// Of each group, series and statistic with something observed.
std::vector<FitRow> fitRows(const StudyRun& run, const std::vector<ReachGroup>& groups,
                            const FitRequest& request);

Table fitOfWhole(const StudyRun& run, const FitRequest& request);
Table fitByReach(const StudyRun& run, const FitRequest& request);
Table fitByRiver(const StudyRun& run, const Network& network, const FitRequest& request);
Table fitByPoint(const StudyRun& run, const FitRequest& request);

} // namespace korvel
