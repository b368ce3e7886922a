// The tidy table: one row a run, point, series and statistic, for other programs.
#pragma once

#include "results/Statistics.h"
#include "study/Network.h"
#include "study/ReachChoice.h"
#include "study/Study.h"
#include "tables/Table.h"

#include <functional>
#include <optional>
#include <vector>

namespace korvel {

struct TidyRequest {
    std::vector<int> series;
    std::vector<Statistic> statistics;
    ReachChoice reaches;
    bool interpolated = false; // points of type 99, too
};

// Runs that may be read only when their turn has come, and forgotten after it.
struct RunSequence {
    std::size_t count = 0;
    std::function<StudyRun(std::size_t)> run;
};

RunSequence sequenceOf(const Study& study);

// Whether the point has rows.
bool isInTidyTable(const ResultsDataSet& results, const TidyRequest& request, int point);

// Nothing in a file with circles, and for a reach without a line.
std::optional<double> wayToMouth(const StudyRun& run, const Network& network, int point);

Table tidyTable(const RunSequence& runs, const TidyRequest& request);

} // namespace korvel
