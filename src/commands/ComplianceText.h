// Whether targets are met, for people.
#pragma once

#include "analysis/ComplianceTable.h"
#include "tables/TextPage.h"

#include <vector>

namespace korvel {

// What was taken: each determinand's statistic and bad side.
void describeJudging(TextPage& page, const StudyRun& run, const ComplianceRequest& request);

// The worst first; what is not judged is only counted.
void showComplianceRows(TextPage& page, const JudgedRun& run, const std::vector<ComplianceRow>& rows);
void concludeCompliance(TextPage& page, const StudyRun& run, const std::vector<ComplianceRow>& rows);

void concludeStations(TextPage& page, const std::vector<StationRow>& rows);

} // namespace korvel
