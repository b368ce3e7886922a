// The runs of an Explorer: taken in, taken away and put in order. What else is shown stays as far as the runs
// that are left allow it.
#pragma once

#include "explore/ExploreState.h"

#include <optional>
#include <string>

namespace korvel {

// Why the run can't join, in words for the user; the state is then as it was. The first run brings a path and
// series with it.
std::optional<std::string> addRun(ExploreState& state, SharedRun run);

// The last one leaves an empty Explorer.
void removeRun(ExploreState& state, std::size_t run);

// Puts a run where another stands; the first place is that of the base.
void moveRun(ExploreState& state, std::size_t run, std::size_t to);
inline void makeBase(ExploreState& state, std::size_t run) {
    moveRun(state, run, 0);
}

// The same run, read anew. Where it can stand with the others no more the state is as it was, and the answer
// says why.
std::optional<std::string> replaceRun(ExploreState& state, std::size_t run, SharedRun fresh);

// What is drawn before the user says so: the flow and the first concentrations.
std::vector<int> firstSeries(const ResultsDataSet& results);

} // namespace korvel
