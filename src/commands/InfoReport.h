// What `info` prints of the loads that it made and of the results in memory.
#pragma once

#include "platform/Message.h"
#include "results/ResultsDataSet.h"

#include <iosfwd>
#include <string>
#include <vector>

namespace korvel {

struct LoadReport {
    int slot = 0;
    std::string file; // as typed
    bool loadFailed = false;
    std::vector<Message> messages;
};

struct InfoReport {
    std::vector<LoadReport> loads;
    const ResultsDataSet& results;
    bool plotInterpolatedPoints = false;
    bool withPoints = false;
    bool withValues = false;
};

void printInfoText(const InfoReport& report, std::ostream& out);
void printInfoJson(const InfoReport& report, std::ostream& out);

// Series 0 to the last one that the header names.
int lastSeries(const ResultsDataSet& results);

} // namespace korvel
