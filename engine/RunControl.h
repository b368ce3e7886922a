// The run-control file RUNDAT.TMP: what to run.
#pragma once

#include "engine/DataRow.h"

#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace korvel::engine {

struct RunRequest {
    std::string dataFile; // model name
    int runType = 0;      // 0 to 9
};

struct RunControl {
    std::string batchTitle; // "" for a single run
    std::vector<RunRequest> requests;
};

// Line 1 is SINGLE or a batch's title; then folder, data file and run type, a line each, for every file. The
// folder is part of the data file's name, and not used. A pure function of any bytes.
std::variant<RunControl, DataError> parseRunControl(std::string_view text);

} // namespace korvel::engine
