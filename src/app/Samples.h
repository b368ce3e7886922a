// The sample catchment for a beginner: copied into a folder of his own, since results are written beside a
// data file and the installed samples can't be written to.
#pragma once

#include "basic/RunTimeError.h"
#include "platform/Platform.h"

#include <string>

namespace korvel {

// What is asked before anything is copied.
Message samplesQuestion(const std::string& folder);

// What is told where that fails.
Message samplesRefusal(const RunTimeError& error);

// Where the copy lies or shall lie; a model name.
std::string copiedSamplesFolder(Machine& machine);

// Copies the data files that are not there yet: what was changed stays. The name of the one to begin with.
// A failure is a RunTimeError.
std::string copySamples(Platform& platform);

} // namespace korvel
