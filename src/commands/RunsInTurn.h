// The finished runs of a plan, however many: each is read when its turn has come and forgotten after it; the
// base alone stays.
#pragma once

#include "analysis/TidyTable.h"
#include "commands/Commands.h"

#include <memory>
#include <string>
#include <vector>

namespace korvel {

class RunsInTurn {
  public:
    // Reads the base, the first of the files (model names). Throws RefusedCall.
    RunsInTurn(CommandCall& call, std::vector<std::string> files);

    const StudyRun& base() const { return m_base; }
    const std::vector<std::string>& names() const { return m_names; }
    // Throws RefusedCall where the run can't be read, or can't stand in one study with the base.
    StudyRun run(std::size_t k) const;
    // It refers to this object.
    RunSequence sequence() const;

  private:
    StudyRun read(std::size_t k) const;

    CommandCall& m_call;
    std::vector<std::string> m_files;
    std::vector<std::string> m_names;
    StudyRun m_base;
};

} // namespace korvel
