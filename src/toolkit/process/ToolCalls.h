// Calls other programs of this machine and waits for them. A Ctrl+C at the terminal is not theirs.
#pragma once

#include "platform/Tools.h"

namespace korvel {

class ToolCalls : public Tools {
  public:
    std::optional<ToolEnd> run(const std::vector<std::string>& words) override;
};

} // namespace korvel
