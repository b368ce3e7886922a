// What the main form says of a run of the past, and what can be done with it now.
#pragma once

#include "platform/LastRun.h"

#include <string>

namespace korvel {

// What of a run is there today.
struct RunToday {
    bool hasData = true;
    bool hasResults = true;
    bool resultsAreOthers = false; // changed since they were judged
};

// "ALDER.DAT"
std::string nameOf(const LastRun& run);
// "run type 0, basic run": the menu's words.
std::string runTypeWords(int runType);
// A few words: the verdict, or why there is none.
std::string briefVerdict(const LastRun& run, const RunToday& today);
// The same in full, with what is missing.
std::string fullVerdict(const LastRun& run, const RunToday& today);

} // namespace korvel
