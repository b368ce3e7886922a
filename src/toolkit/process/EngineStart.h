// The engine started without a window, by a program that has no event loop. Host paths. Both fail with a
// RunTimeError where the engine can't be started.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace korvel {

// Returns at once; the engine goes on by itself, and what it says is dropped.
void startEngineAlone(const std::string& enginePath, const std::string& folder);

// Waits for the engine and hands on what it says as it comes. The exit status, or 128 + the signal's number
// for a killed engine.
int runEngine(const std::string& enginePath, const std::string& folder,
              const std::function<void(std::string_view)>& onOutput);

} // namespace korvel
