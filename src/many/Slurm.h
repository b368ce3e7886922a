// The Slurm cluster, through its own commands: sbatch, squeue, scancel, scontrol for its limits, and sacct
// where accounting is on.
#pragma once

#include "platform/Tools.h"

#include <cstddef>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace korvel {

// Slurm refuses, or can't be asked. The words are for the user.
struct SlurmError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

struct ArrayJob {
    std::string name;
    std::size_t tasks = 0;            // numbered from 0
    std::vector<std::string> options; // the user's
    std::string folder;               // the current one of the tasks; host paths, on every node
    std::string output;               // "%a" stands for the task's number, "%%" for "%"
    std::string script;
};

class Slurm {
  public:
    explicit Slurm(Tools& tools) : m_tools(tools) {}

    // Tasks that one array may have here.
    std::size_t mostTasks();
    // The job's number.
    std::string submit(const ArrayJob& job);
    // The states ("PENDING", "RUNNING", "NODE_FAIL" ...) of the tasks of the job with this name that Slurm
    // still knows.
    std::map<std::size_t, std::string> states(const std::string& name);
    // Of a task that it knows no more: what the accounting tells; "" where there is none.
    std::string accountedState(const std::string& job, std::size_t task);
    enum class Which { all, pending };
    void cancel(const std::string& name, Which which);

  private:
    std::string ask(const std::vector<std::string>& words);
    const std::map<std::string, std::string>& configuration();

    Tools& m_tools;
    std::optional<std::map<std::string, std::string>> m_configuration;
};

// Whether a task in this state is over for good.
bool isOver(const std::string& state);

// The words of options in one text, as a shell parts them: blanks, quotes, backslashes. Nothing where a quote
// is never closed.
std::optional<std::vector<std::string>> wordsOf(const std::string& text);

} // namespace korvel
