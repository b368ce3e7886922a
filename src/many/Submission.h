// What is handed to a cluster in one go: a folder beside the private ones that names the rows of each task,
// the script that the tasks start, and a record of each task's own. It is there until all of that is in the
// plan's record.
#pragma once

#include "many/Plan.h"
#include "many/PlanPlaces.h"
#include "many/RunRecord.h"

#include <cstddef>
#include <string>
#include <vector>

namespace korvel {

class Submission {
  public:
    explicit Submission(std::string folder) : m_folder(std::move(folder)) {}

    const std::string& folder() const { return m_folder; }
    // The name of the job, which no other has.
    std::string jobName() const;
    std::string script() const { return m_folder + "/task.sh"; }
    std::string record(std::size_t task) const { return numbered(task, ".jsonl"); }
    std::string output(std::size_t task) const { return numbered(task, ".out"); }

    std::size_t tasks() const; // those that have rows
    // Their names, data files, types and titles.
    std::vector<RunRecord> rows(std::size_t task) const;
    std::string job() const; // its number; "" where none was told
    void keepJob(const std::string& number) const;
    // Tasks start no more rows.
    void askToStop() const;
    bool stopAsked() const;
    // Whether it was given up while a task may still be at work, on a node that Slurm has lost.
    bool isGone() const;
    void remove() const;

  private:
    friend Submission makeSubmission(const PlanPlaces&, const std::vector<const PlannedRun*>&, std::size_t,
                                     const std::vector<std::string>&);
    std::string numbered(std::size_t task, const char* extension) const {
        return m_folder + '/' + std::to_string(task) + extension;
    }

    std::string m_folder;
};

// Parts the rows among at most so many tasks, evenly. `program`: the words that start a task; the folder
// follows them. Fails with RunTimeError.
Submission makeSubmission(const PlanPlaces& places, const std::vector<const PlannedRun*>& rows,
                          std::size_t mostTasks, const std::vector<std::string>& program);

// Those that an earlier call has left, oldest first.
std::vector<Submission> submissionsOf(const PlanPlaces& places);

} // namespace korvel
