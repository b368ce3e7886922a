// What has changed against the base, for people.
#pragma once

#include "analysis/ChangeTable.h"
#include "tables/TextPage.h"

#include <string>
#include <vector>

namespace korvel {

// What was taken, on top of every page about changes.
void describeChanges(TextPage& page, const StudyRun& base, const ChangeRequest& request);
void describeMatching(TextPage& page, const ComparedRun& run, const ReachChoice& reaches);

// The largest changes first; what has not changed is only counted.
void showChangeRows(TextPage& page, const ComparedRun& run, const std::vector<ChangeRow>& rows);

// What it comes to, a sentence a series.
void concludeChanges(TextPage& page, const ComparedRun& run, const std::vector<ChangeRow>& rows);

} // namespace korvel
