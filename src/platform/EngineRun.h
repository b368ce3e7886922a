// One run of the engine that is waited for, in a folder of its own.
#pragma once

#include <optional>
#include <string>

namespace korvel {

struct EngineEnd {
    std::optional<int>
        status;           // 128 + the signal's number for a killed engine; nothing where it did not start
    bool stopped = false; // because somebody asked for it
    std::string problem;  // why it did not start
};

class EngineRun {
  public:
    virtual ~EngineRun() = default;
    // Host paths. What the engine says goes to the file `output`.
    virtual EngineEnd run(const std::string& program, const std::string& folder,
                          const std::string& output) = 0;
    // Whether somebody asked to stop.
    virtual bool stopAsked() = 0;
};

} // namespace korvel
