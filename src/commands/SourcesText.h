// Where a load comes from, for people.
#pragma once

#include "analysis/Sources.h"
#include "study/Study.h"
#include "tables/TextPage.h"

namespace korvel {

// `what`: the determinand's name, or "Flow".
void describeSources(TextPage& page, const StudyRun& run, const LoadSources& sources,
                     const std::string& what);
void concludeSources(TextPage& page, const LoadSources& sources, const std::string& what);

} // namespace korvel
