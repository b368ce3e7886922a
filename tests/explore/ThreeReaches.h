// A small catchment for the Explorer's tests: two heads run into a lower reach, and a brook of its own.
#pragma once

#include "explore/RunList.h"
#include "fakes/StudySample.h"

namespace korvel {

inline ResultsFileBuilder threeReaches(const std::string& firstName = "BOD") {
    return ResultsFileBuilder()
        .determinand(1, firstName)
        .determinand(2, "Ammonia")
        .determinand(1, "DO")
        .determinand(2, "Phosphate")
        .reach(9, "Brook", 2, 0)
        .reach(1, "Upper", 10, 3)
        .reach(2, "Side", 5, 3)
        .reach(3, "Lower", 8, 0)
        .point(9, 0, "Spring")
        .set(ValueField::meanValue, 0, 1)
        .point(1, 0, "Head")
        .set(ValueField::meanValue, 0, 2)
        .point(2, 0, "Other head")
        .set(ValueField::meanValue, 0, 1)
        .point(3, 4, "Weir")
        .set(ValueField::meanValue, 0, 3);
}

// Runs of this catchment named a.sgr, b.sgr and so on.
inline SharedRun runOfThreeReaches(char letter) {
    return runOf(threeReaches(), std::string("Z:\\data\\") + letter + ".sgr");
}

inline ExploreState stateOf(const std::string& letters) {
    ExploreState state;
    for (const char letter : letters)
        if (const auto refusal = addRun(state, runOfThreeReaches(letter)))
            throw std::invalid_argument(*refusal);
    return state;
}

// "abc": the runs' letters in their order, hidden ones in upper case.
inline std::string lettersOf(const ExploreState& state) {
    std::string letters;
    if (state.isEmpty()) return letters;
    for (std::size_t run = 0; run < state.study->runs().size(); ++run) {
        const char letter = state.study->runs()[run].name.front();
        letters += state.isShown(run) ? letter : static_cast<char>(letter - 'a' + 'A');
    }
    return letters;
}

} // namespace korvel
