// The rows of a plan on this machine, side by side.
#pragma once

#include "many/JobDealer.h"
#include "many/RecordFile.h"
#include "many/RowRun.h"
#include "many/Tally.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace korvel {

enum class AfterFailure { goOn, stop };

struct LocalRunCall {
    const std::vector<PlannedRun>& runs;
    const RunSetting& setting;
    RecordFile& record;
    Tally& tally;
    std::function<void()> tick; // may be empty
};

// What a worker is given to do, and its answers. `runs` are the plan's.
std::string workOnRow(const std::string& job, const std::vector<PlannedRun>& runs, const RunSetting& setting,
                      const LastRecords& records, EngineRun& engine);

// Marks as kept the rows that are done and still hold; a title that the plan has changed since is put into
// the record. Fails with RunTimeError where the record can't be written.
DealEnd keepWhatHolds(const LocalRunCall& call, Workers& workers);

// Runs the rows that wait. Fails with RunTimeError where the record can't be written; what was under way is
// ended before.
DealEnd runHere(const LocalRunCall& call, Workers& workers, AfterFailure afterFailure);

} // namespace korvel
