// RunModel: asks for a data file, tells the engine of it and starts the engine, which is not waited for.
// GLOBAL.RunType is set by the caller.
#pragma once

#include "runs/DataFiles.h"

namespace korvel {

void RunModel(Platform& platform, DataFiles& dataFiles);

} // namespace korvel
