// The tables of the page, as the other commands' tables are: columns by name, rows one after another.
#pragma once

#include "analysis/FitTable.h"
#include "publish/PageStudy.h"
#include "tables/Table.h"

namespace korvel {

// What is judged, the worst first: fails before passes, then by the ratio to the target.
Table worstComplianceTable(const PageRun& run);
// Mean values by reach.
Table pageChangesTable(const PageStudy& study, const PageRun& run);
// Sources of all runs side by side: those of the base in its order, then what only others have.
Table comparedSourcesTable(const PageStudy& study, const PageSources& sources);
Table comparedKindsTable(const PageStudy& study, const PageSources& sources);
// What is lost on the way, the largest loss of the base first, then what only others lose.
Table comparedLossesTable(const PageStudy& study, const PageSources& sources);
// Of the mean and of what is judged: series by series, the mean first.
std::vector<FitRow> pageFitRows(const PageStudy& study, const PageRun& run);
Table pageFitTable(const PageStudy& study, const PageRun& run);

// With the name of the reach behind each number of one.
Table withReachNames(const Table& table, const StudyRun& run);

} // namespace korvel
