// The profile of the main river: a value along it, run by run, for a chart.
#pragma once

#include "analysis/TidyTable.h"
#include "tables/Sheets.h"

namespace korvel {

// The first series and statistic of the request, along the river that ends at the mouth with the largest
// flow, of the first `most` runs. A run whose reaches run in a circle has no rows.
ChartedTable mainRiverProfile(const RunSequence& runs, const StudyRun& base, const TidyRequest& request,
                              std::size_t most);

} // namespace korvel
