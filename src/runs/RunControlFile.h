// The run-control file RUNDAT.TMP, through which the engine is told what to run. One value a line.
#pragma once

#include "platform/StartTurn.h"

#include <string>
#include <string_view>
#include <vector>

namespace korvel {

// One data file to run. The folder ends in a backslash.
struct ControlledRun {
    std::string folder;
    std::string base; // without ".DAT"
    int runType = 0;  // 0 to 9
};

// As the engine finds it.
std::string dataFileOf(const ControlledRun& run);

// The run mode ("SINGLE") and one run.
std::string singleRunText(std::string_view runMode, const ControlledRun& run);

// The title ("-" for an empty one) and the runs in order; one without a base name writes nothing. There is no
// count and no end mark.
std::string batchRunText(std::string_view title, const std::vector<ControlledRun>& runs);

} // namespace korvel
