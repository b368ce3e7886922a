// A whole run of the engine, single or batch.
#pragma once

#include <ostream>
#include <string>

namespace korvel::engine {

// Runs what RUNDAT.TMP in this host folder asks for and tells its progress line by line. The exit status: 0,
// or 1 where anything failed; the other files of a batch are run all the same.
int runEngine(const std::string& folder, std::ostream& output);

} // namespace korvel::engine
