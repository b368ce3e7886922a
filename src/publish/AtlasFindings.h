// What the runs of an atlas come to, in words and as verdicts.
#pragma once

#include "analysis/ComplianceTable.h"

#include <string>
#include <vector>

namespace korvel {

// A run judged reach by reach, once for all pages.
struct RunJudgement {
    std::vector<ComplianceRow> rows;
    std::vector<OverallRow> overall;
};

struct RunFindings {
    std::vector<Verdict> verdicts;      // with confidence, by place of the run's reaches
    std::vector<std::string> sentences; // UTF-8
};

RunJudgement judgementOf(const Study& study, std::size_t run, const ComplianceRequest& request);
RunFindings findingsOf(const Study& study, std::size_t run, const std::vector<RunJudgement>& judged);

// "BOD by the 95 percentile; Dissolved oxygen by the 95 percentile, low is bad."
std::string judgedWords(const StudyRun& run, const ComplianceRequest& request);

} // namespace korvel
