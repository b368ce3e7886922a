// What both harnesses of the results reader do.
#pragma once

#include "fuzz/Fuzzing.h"
#include "fuzz/PlainResults.h"
#include "results/ResultsReader.h"

namespace korvel {

enum class Ending { loaded, abandoned, failed };

struct Load {
    Ending ending = Ending::failed;
    int failure = 0;
    std::vector<std::string> messages;
    bool operator==(const Load&) const = default;
};

Load load(ByteSource&& file, ResultsDataSet& results, int slot);

// Whether the values of a slot are these, bit for bit.
void requireValues(const ResultsDataSet& results, int slot, const PlainResults& plain);

} // namespace korvel
