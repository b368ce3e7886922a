// What the tests of the graph forms share: results to load, and a clean start.
#pragma once

#include "global/GLOBAL.h"
#include "results/ResultsDataSet.h"

#include <gtest/gtest.h>

#include <string>

namespace korvel {

// The shared state as at the program's start, before any member of the test's own is made.
class CleanGlobals : public testing::Test {
  protected:
    CleanGlobals() {
        GLOBAL = {};
        RESULTS = ResultsDataSet();
    }
    ~CleanGlobals() override {
        GLOBAL = {};
        RESULTS = ResultsDataSet();
    }
};

// Eight reaches, 1 to 8, of which 1 to 7 follow each other and 8 joins at 7; three points each, the middle
// one interpolated; four determinands. `lastReach`: points are there down to this one.
std::string longRiver(int lastReach = 8, const std::string& title = "Long river");

} // namespace korvel
