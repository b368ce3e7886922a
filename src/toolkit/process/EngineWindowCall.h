// The call of the engine's window, between the program that starts it and the one that it becomes:
// --engine-window [--turn DESCRIPTOR] [RUN-TYPE DATA-FILE...]
#pragma once

#include "platform/Machine.h"

#include <QStringList>

namespace korvel {

QStringList engineWindowArguments(const StartedRun& run, const StartTurn& turn);

struct EngineWindowCall {
    StartedRun run; // without files where the window was called by hand
    StartTurn turn;
};

bool isEngineWindowCall(const std::vector<std::string>& arguments);
// Takes over what was handed on.
EngineWindowCall takeEngineWindowCall(const std::vector<std::string>& arguments);

} // namespace korvel
