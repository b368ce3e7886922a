// The fit to what was observed, for people.
#pragma once

#include "analysis/FitTable.h"
#include "tables/TextPage.h"

namespace korvel {

void describeFit(TextPage& page, const StudyRun& run, const FitRequest& request);
// Of rows over the whole file: a sentence each.
void concludeFit(TextPage& page, const StudyRun& run, const std::vector<FitRow>& whole);

} // namespace korvel
