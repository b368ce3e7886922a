// What a plan has to show: its finished runs, for whoever reads results.
#pragma once

#include <string>
#include <vector>

namespace korvel {

struct FinishedRun {
    std::string name;
    std::string title;   // "" for none
    std::string results; // host path
};

struct FinishedRuns {
    std::vector<FinishedRun> runs;     // in the plan's order
    std::size_t planned = 0;           // rows of the plan
    std::vector<std::string> problems; // lines for the user; the plan or its record can't be read then
};

// The rows of the plan whose last line in the record is "done", and that the plan has not changed since. The
// files themselves are not looked at. `plan`: as typed.
FinishedRuns finishedRuns(const std::string& plan);

} // namespace korvel
