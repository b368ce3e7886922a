// The processes of one run of the engine: the engine and what it has started, however far away. They are
// known by a setting that they inherit. Wine's own helpers inherit it too where the engine was the first of
// the user's Windows programs, and serve the others: they are never among them.
#pragma once

#include <string>
#include <sys/types.h>
#include <vector>

namespace korvel {

class OwnProcesses {
  public:
    OwnProcesses();

    // The setting that the engine is started with.
    const std::string& name() const { return m_name; }
    const std::string& value() const { return m_value; }

    std::vector<pid_t> running() const;
    void signal(int number) const;

  private:
    std::string m_name = "KORVEL_ENGINE_RUN";
    std::string m_value;
};

// What a process was called with tells whether it is one of Wine's own.
bool isWinesOwn(const std::string& firstArgument, const std::string& program);

} // namespace korvel
