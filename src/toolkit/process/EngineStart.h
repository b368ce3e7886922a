// The engine started without a window, by a program that has no event loop. Host paths. Both fail with a
// RunTimeError where the engine can't be started. The turn ends once the engine has opened the run-control
// file, has ended, or has had its time.
#pragma once

#include "platform/StartTurn.h"

#include <functional>
#include <string>
#include <string_view>

namespace korvel {

// Returns at once; the engine goes on by itself, and what it says is dropped.
void startEngineAlone(const std::string& enginePath, const std::string& folder, StartTurn turn);

// Waits for the engine and hands on what it says as it comes. Its end counts, whoever keeps its output open:
// what stands there then is read, for at most a second. The exit status, or 128 + the signal's number for a
// killed engine.
int runEngine(const std::string& enginePath, const std::string& folder,
              const std::function<void(std::string_view)>& onOutput, StartTurn turn);

} // namespace korvel
