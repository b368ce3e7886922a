// The engine as a child that does not outlive this process, and that is stopped with all that it has started.
// The signals of StopSignals have to be blocked.
#pragma once

#include "platform/EngineRun.h"

#include <sys/types.h>

namespace korvel {

class GuardedEngine : public EngineRun {
  public:
    GuardedEngine();

    EngineEnd run(const std::string& program, const std::string& folder, const std::string& output) override;
    bool stopAsked() override;

  private:
    int waitFor(pid_t engine, bool& stopped) const;

    pid_t m_parent; // of this process, when it began
};

} // namespace korvel
