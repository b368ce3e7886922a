// One run on one data file: read, model, write every output beside it.
#pragma once

#include "engine/RunControl.h"
#include "engine/Screen.h"

#include <string>

namespace korvel::engine {

inline constexpr const char* engineName = "KORVEL demonstration engine 1.0";

// True when it is done; otherwise one line on the screen says why, and the old outputs are untouched.
bool runDataFile(const RunRequest& request, const std::string& batchTitle, Screen& screen);

// "ALDER" of "Z:\RIVERS\Alder.dat"; what follows the last point, if it is .DAT, is dropped.
std::string baseOf(const std::string& dataFile);

} // namespace korvel::engine
