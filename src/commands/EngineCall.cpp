#include "commands/EngineCall.h"

namespace korvel {

int givenRunType(const CommandLine& line, std::string_view allowed) {
    const std::string type = line.value("--type").value_or("0");
    if (type.size() != 1 || allowed.find(type[0]) == std::string_view::npos)
        throw UsageError("no run type '" + type + "' here");
    return type[0] - '0';
}

EngineCall::EngineCall(CommandCall& call, const CommandLine& line, Dialogs& dialogs)
    : m_machine(call.platform.machine, line.has("--wait") ? &call.out : nullptr),
      m_platform{dialogs,
                 call.platform.files,
                 m_machine,
                 call.platform.windows,
                 call.platform.paper,
                 call.platform.screenMetrics} {}

int EngineCall::exitStatus() const {
    return m_machine.engineStatus() == 0 ? korvel::exitStatus::done : korvel::exitStatus::failed;
}

} // namespace korvel
