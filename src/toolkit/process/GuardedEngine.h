// The engine as a child that does not outlive this process, and that is stopped with all that it has started.
// The signals of StopSignals have to be blocked.
#pragma once

#include "platform/EngineRun.h"

#include <functional>
#include <sys/types.h>

namespace korvel {

class GuardedEngine : public EngineRun {
  public:
    // `giveUp` is asked about once a second; where it says yes, the engine is stopped.
    explicit GuardedEngine(std::function<bool()> giveUp = {});

    EngineEnd run(const std::string& program, const std::string& folder, const std::string& output) override;
    bool stopAsked() override;

  private:
    int waitFor(pid_t engine, bool& stopped) const;
    bool stopComes(bool alreadyStopped) const;
    void stop(pid_t engine) const;

    std::function<bool()> m_giveUp;
    pid_t m_parent; // of this process, when it began
};

} // namespace korvel
