// A run of the model as it is remembered for the main form, which lists the last ones.
#pragma once

#include <string>

namespace korvel {

struct LastRun {
    std::string dataFile; // model name; one that is run again takes its own place
    std::string resultsFile;
    int runType = 0;
    std::string state;          // "Finished", "Failed (status 3)", "Stopped"
    long long ended = 0;        // milliseconds since 1970
    std::string verdict;        // of the results, in a few words; "" where there is none
    std::string verdictInFull;  // in a sentence or two
    long long resultsStamp = 0; // when the results file that the verdict is of was changed, likewise

    bool operator==(const LastRun&) const = default;
};

inline constexpr std::size_t MostLastRuns = 10;

} // namespace korvel
