// What the commands that start the engine have in common.
#pragma once

#include "commands/CommandLine.h"
#include "commands/Commands.h"
#include "commands/ConsoleMachine.h"

#include <string_view>

namespace korvel {

// The value of --type, one of the digits allowed, or 0; UsageError for anything else.
int givenRunType(const CommandLine& line, std::string_view allowed);

// The services of a call whose engine has no window; with `--wait` its output is the command's.
class EngineCall {
  public:
    EngineCall(CommandCall& call, const CommandLine& line, Dialogs& dialogs);

    Platform& platform() { return m_platform; }
    // Failed where no engine was started, or the one that was waited for has failed.
    int exitStatus() const;

  private:
    ConsoleMachine m_machine;
    Platform m_platform;
};

} // namespace korvel
