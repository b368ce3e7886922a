// Stands for the engine: does what the test says, in the private folder.
#pragma once

#include "platform/EngineRun.h"

#include <functional>

namespace korvel {

class FakeEngineRun : public EngineRun {
  public:
    std::function<EngineEnd(const std::string& folder, const std::string& output)> what;
    bool stop = false;
    int runs = 0;

    EngineEnd run(const std::string&, const std::string& folder, const std::string& output) override {
        ++runs;
        return what(folder, output);
    }
    bool stopAsked() override { return stop; }
};

} // namespace korvel
