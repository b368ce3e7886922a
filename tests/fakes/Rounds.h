// How many rounds a test with random input makes: all of them, or the share of them that the environment
// variable KORVEL_TEST_ROUNDS_SHARE names (0.02 is every fiftieth), for runs under a checker that slows the
// program down.
#pragma once

#include <algorithm>
#include <cstdlib>

namespace korvel {

inline int roundsOf(int all) {
    const char* share = std::getenv("KORVEL_TEST_ROUNDS_SHARE");
    return share ? std::max(1, static_cast<int>(all * std::atof(share))) : all;
}

} // namespace korvel
