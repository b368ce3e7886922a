// One run of a plan, from its private folder to what the record says of it.
#pragma once

#include "many/Plan.h"
#include "many/PlanPlaces.h"
#include "many/ResultsCheck.h"
#include "many/RunRecord.h"
#include "platform/EngineRun.h"

#include <string>
#include <vector>

namespace korvel {

// What all runs of a call share.
struct RunSetting {
    PlanPlaces places;
    EngineRules rules;
    std::string applicationFolder; // host path
    std::vector<std::string> engineFiles;
    std::string engine; // host path
    FileStamp engineStamp;
    std::string engineSum;
    std::string host;
    std::string korvel; // version
};

// Fails with RunTimeError where there is no engine (53), or it can't be read.
RunSetting runSetting(const PlanPlaces& places, const EngineRules& rules,
                      const std::string& applicationFolder, const std::string& korvelVersion);

// The record of a run that begins now.
RunRecord startedRecord(const RunSetting& setting, const PlannedRun& run);

// Does the run and tells its end; `record` is what startedRecord gave.
RunRecord carryOut(const RunSetting& setting, const PlannedRun& run, RunRecord record, EngineRun& engine);

} // namespace korvel
