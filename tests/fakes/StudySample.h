// Runs and studies from results files in memory.
#pragma once

#include "fakes/ResultsFileBuilder.h"
#include "study/Study.h"

namespace korvel {

// As if read from a file of this name.
SharedRun runOf(const ResultsFileBuilder& file, const std::string& name = "Z:\\a.sgr");

// Runs named a.sgr, b.sgr and so on. They must be able to stand together.
Study studyOf(const std::vector<ResultsFileBuilder>& files);

} // namespace korvel
