// Reads a results file into a slot of a data set, in one forward pass.
#pragma once

#include "basic/ByteSource.h"
#include "platform/Message.h"
#include "results/ResultsDataSet.h"

#include <functional>
#include <stop_token>

namespace korvel {

enum class LoadEnd { loaded, abandoned, cancelled };

struct LoadWatch {
    std::function<void(const Message&)> show;
    std::function<void(double)> progress; // share read so far, about a hundred times a file; may be empty
    std::stop_token cancel = {};          // asked before each point
};

// What a user is told of a file that can't be read, whatever the reason.
Message unreadableResults();

// What every load begins with, before its file is opened.
void prepareLoad(ResultsDataSet& results, int slot);

// Fails with RunTimeError where the file can't be read, with std::bad_alloc where there is no memory; what
// was read before stays. An abandoned load has shown why.
LoadEnd readResults(ByteSource& file, ResultsDataSet& results, int slot, const LoadWatch& watch);

} // namespace korvel
