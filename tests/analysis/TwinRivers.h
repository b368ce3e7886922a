// A river at random and what became of it, both as plain lists and as runs.
#pragma once

#include "analysis/PlainRiver.h"
#include "fakes/Rounds.h"

#include <random>

namespace korvel {

struct TwinRivers {
    static constexpr int rounds = 60;

    PlainRiver base, run;
    SharedRun baseFile, runFile;

    explicit TwinRivers(int seed) {
        std::mt19937 random(static_cast<unsigned>(seed));
        base = randomRiver(random);
        run = changedRiver(base, random);
        baseFile = runOf(base);
        runFile = runOf(run);
    }
};

} // namespace korvel
