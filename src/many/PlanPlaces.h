// Where the things of a plan lie, beside it: PLAN.csv has the record PLAN.runs.jsonl and the private folders
// PLAN.runs/NAME. Host paths.
#pragma once

#include <string>
#include <string_view>

namespace korvel {

struct PlanPlaces {
    std::string plan;   // absolute
    std::string folder; // of the plan
    std::string record;
    std::string runs;    // folder of the private folders
    std::string cluster; // in it, what is handed to a cluster
};

// Whether a file that was typed is taken for a plan: by its extension, .csv in any case.
bool isPlan(const std::string& file);

// `plan`: as typed, relative to the current folder.
PlanPlaces placesOfPlan(const std::string& plan);

// The private folder of a run. A name that is none for a folder is spelt with "%" and two digits for a
// character.
std::string privateFolderOf(const PlanPlaces& places, std::string_view runName);

} // namespace korvel
