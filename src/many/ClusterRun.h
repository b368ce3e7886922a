// The rows of a plan on a Slurm cluster: handed over as one array of tasks, and followed until all are over.
// Each task writes a record of its own on the shared file system; the follower puts them into the plan's.
#pragma once

#include "many/LocalRun.h"
#include "many/Slurm.h"
#include "many/Submission.h"

#include <functional>
#include <string>
#include <vector>

namespace korvel {

struct ClusterCall {
    const std::vector<PlannedRun>& runs;
    const PlanPlaces& places;
    RecordFile& record;
    Tally& tally;
    Slurm& slurm;
    StopWishes& stop;
    std::vector<std::string> program; // the words that start a task
    std::vector<std::string> options; // of the user, for sbatch
    AfterFailure afterFailure = AfterFailure::goOn;
    std::function<void()> tick; // may be empty
};

enum class ClusterEnd {
    all,
    stopped,    // the jobs are cancelled
    leftRunning // the user has gone, the jobs go on
};

// Hands over the rows that wait, and follows them. Fails with RunTimeError where a file can't be written, and
// with SlurmError where Slurm takes nothing; what was handed over before goes on.
ClusterEnd runOnCluster(const ClusterCall& call);

enum class Leftovers { refuse, follow };

// Takes in what an earlier call has handed over and did not see the end of. Where some of it still runs, it
// is followed or refused with SlurmError, in words for the user.
ClusterEnd takeLeftovers(const ClusterCall& call, Leftovers leftovers);

} // namespace korvel
