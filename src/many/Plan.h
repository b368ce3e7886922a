// A plan: a CSV with one row for each run of the model. Its columns are name, data_file, type and, if wanted,
// title, in any order. The whole plan is checked before anything is done with it.
#pragma once

#include "many/CsvRecords.h"
#include "many/EngineRules.h"

#include <string>
#include <vector>

namespace korvel {

inline constexpr std::size_t LongestRunName = 60; // characters as shown

struct PlannedRun {
    std::string name;
    std::string dataFile; // as the plan names it, relative to the plan's folder
    int type = 0;         // 0 to 9
    std::string title;
    std::string dataPath; // host path
    RunFiles files;
};

struct PlanProblem {
    PlaceInText place;
    std::string text;
};

struct Plan {
    std::vector<PlannedRun> runs;
    std::vector<PlanProblem> problems; // the first of them; where there are any, the runs are not to be used
    std::size_t problemCount = 0;
};

// `folder`: absolute host path of the plan's folder.
Plan readPlan(std::string_view text, const std::string& folder, const EngineRules& rules);

// The same for a plan whose runs are over: the data files are not looked at, and no outputs are compared.
Plan readFinishedPlan(std::string_view text, const std::string& folder);

// "plan.csv, line 3, column 9: ..." for each problem kept, and how many more there are.
std::vector<std::string> problemLines(const Plan& plan, const std::string& fileName);

} // namespace korvel
