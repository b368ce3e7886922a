// The sources of a load as tables: one by one, or by their kinds, and the losses on the way.
#pragma once

#include "analysis/Sources.h"
#include "tables/Table.h"

namespace korvel {

Table sourcesTable(const LoadSources& sources);
Table kindsTable(const LoadSources& sources);
Table lossesTable(const LoadSources& sources);
// The sources, and the losses as rows of a kind of their own.
Table sourcesAndLosses(const LoadSources& sources);

} // namespace korvel
