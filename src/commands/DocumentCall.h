// What commands that hand a study on as one document have in common.
#pragma once

#include "commands/CommandLine.h"
#include "commands/Commands.h"
#include "study/Study.h"

#include <set>
#include <string>
#include <vector>

namespace korvel {

struct DocumentCall {
    Study study;
    std::string title; // UTF-8; "" for the base's own
    std::vector<int> series;
    std::set<int> lowIsBad; // determinands by number
    std::string output;     // model name
};

// Takes --title, --series, --low-is-bad and --output; without the latter the output is beside the first file,
// with this ending. Throws UsageError and RefusedCall.
DocumentCall documentCall(CommandCall& call, const std::string& ending);

} // namespace korvel
