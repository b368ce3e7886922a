// Runs in a database, as its schema tells: points, values, observed values and targets of any number of runs
// in one file, with the tidy table as a view.
#pragma once

#include "analysis/TidyTable.h"
#include "tables/Database.h"

namespace korvel {

extern const DatabaseKind runDatabase;

// Takes the runs one after another; one of a name that is there already replaces it whole.
DatabaseContent runDatabaseContent(const RunSequence& runs, const TidyRequest& request);

} // namespace korvel
