#include "basic/DiskNames.h"
#include "basic/ModelName.h"
#include "basic/Product.h"
#include "basic/RunTimeError.h"
#include "commands/CommandLine.h"
#include "commands/CommandList.h"
#include "commands/RunsProgress.h"
#include "commands/SingleRunRules.h"
#include "commands/Words.h"
#include "many/ClusterRun.h"
#include "many/ClusterTask.h"
#include "many/LocalRun.h"
#include "platform/DiskFiles.h"
#include "toolkit/process/ForkedWorkers.h"
#include "toolkit/process/GuardedEngine.h"
#include "toolkit/process/ToolCalls.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <sched.h>
#include <unistd.h>

namespace korvel {

namespace {

const char* const help =
    "Usage: korvel runs PLAN.csv [--jobs N | --slurm] [--sbatch \"OPTIONS\"] [--resume] "
    "[--stop-on-failure]\n\n"
    "Carries out a plan: a CSV with a heading and one row for each run of the model, with the columns name,\n"
    "data_file (relative to the plan), type (0 to 9, as for korvel run) and, if wanted, title. Each run has "
    "a\n"
    "folder of its own beside the plan, PLAN.runs/NAME, which is kept where the run fails. The results are\n"
    "written beside the data files. PLAN.runs.jsonl beside the plan tells what became of each row: a JSON "
    "object\n"
    "a line, of which the last one of a row holds.\n\n"
    "  --jobs N           runs side by side; as many as there are processors where it is not given\n"
    "  --slurm            hand the runs to a Slurm cluster and follow them; plan, data files and program lie "
    "on a\n"
    "                     file system that all nodes share\n"
    "  --sbatch OPTIONS   more options for sbatch: \"-p long -t 30\"\n"
    "  --resume           skip the rows that are done, as long as engine, data file and results are those of "
    "then\n"
    "  --stop-on-failure  start no more after a row has failed\n\n"
    "The exit status is 0 where every row is done, else 1, and the rows that failed are named at the end.\n"
    "Ctrl+C stops what runs and can be resumed. On a cluster, runs go on where the terminal is closed: "
    "--slurm\n"
    "--resume then follows them.\n";

constexpr std::chrono::seconds lockPatience(5); // longer than what a killed call leaves behind takes to end
constexpr int mostJobs = 500;                   // each takes an open file
constexpr const char* taskOption = "--slurm-task"; // for the jobs themselves

std::size_t processors() {
    cpu_set_t set;
    if (sched_getaffinity(0, sizeof set, &set) != 0) return 1;
    return static_cast<std::size_t>(std::max(1, CPU_COUNT(&set)));
}

std::size_t givenJobs(const CommandLine& line) {
    const auto text = line.value("--jobs");
    if (!text) return processors();
    const auto jobs = wholeNumber(*text);
    if (!jobs || *jobs < 1 || *jobs > mostJobs) throw UsageError("no number of jobs '" + *text + "'");
    return static_cast<std::size_t>(*jobs);
}

Message runsMessage(const std::string& text, const char* title) {
    return {text, title, Icon::exclamation, Buttons::ok};
}

std::string nameOf(const std::string& path) {
    return path.substr(path.rfind('/') + 1);
}

Plan planAt(const PlanPlaces& places, const EngineRules& rules) {
    try {
        return readPlan(DiskFiles().readAll(modelNameOfHostPath(places.plan)), places.folder, rules);
    } catch (const RunTimeError& error) {
        throw RunTimeError(error.number, nameOf(places.plan) + " can't be read: " + error.description);
    }
}

// One call with a plan that has been found good.
class Runs {
  public:
    Runs(CommandCall& call, const CommandLine& line, RunSetting setting, std::vector<PlannedRun> runs)
        : m_call(call),
          m_line(line),
          m_setting(std::move(setting)),
          m_runs(std::move(runs)),
          m_record(m_setting.places.record, lockPatience),
          m_tally(m_runs.size()),
          m_progress(m_tally, call.errors,
                     isatty(STDERR_FILENO) == 1 ? RunsProgress::Place::terminal : RunsProgress::Place::file) {
    }

    int carryOut() {
        if (!takeUpEarlierCalls()) return tellEnd();
        m_tally = Tally(m_runs.size());
        ForkedWorkers workers(
            std::min(givenJobs(m_line), m_runs.size()), [this](const std::string& job) { return work(job); },
            m_signals);
        const LocalRunCall here{m_runs, m_setting, m_record, m_tally, [this] { m_progress.show(); }};
        if (m_line.has("--resume") && keepWhatHolds(here, workers) == DealEnd::stopped) return tellEnd();
        if (m_line.has("--slurm"))
            noteEnd(runOnCluster(clusterCall()));
        else
            runHere(here, workers, afterFailure());
        return tellEnd();
    }

  private:
    bool takeUpEarlierCalls() {
        const bool follows = m_line.has("--slurm") && m_line.has("--resume");
        return noteEnd(takeLeftovers(clusterCall(), follows ? Leftovers::follow : Leftovers::refuse));
    }

    // Whether all were seen to their end.
    bool noteEnd(ClusterEnd end) {
        m_leftRunning = end == ClusterEnd::leftRunning;
        return end == ClusterEnd::all;
    }

    ClusterCall clusterCall() {
        return {m_runs,
                m_setting.places,
                m_record,
                m_tally,
                m_slurm,
                m_signals,
                {std::filesystem::canonical("/proc/self/exe").string(), "--application-folder",
                 m_setting.applicationFolder, "runs", m_setting.places.plan, taskOption},
                *wordsOf(m_line.value("--sbatch").value_or("")),
                afterFailure(),
                [this] { m_progress.show(); }};
    }

    // In a copy of this process.
    std::string work(const std::string& job) {
        GuardedEngine engine;
        return workOnRow(job, m_runs, m_setting, m_record.last(), engine);
    }

    AfterFailure afterFailure() const {
        return m_line.has("--stop-on-failure") ? AfterFailure::stop : AfterFailure::goOn;
    }

    int tellEnd() {
        m_progress.end();
        rmdir(m_setting.places.runs.c_str()); // where nothing is left in it
        m_call.out << m_tally.summary() << '\n';
        if (m_leftRunning) m_call.out << "Slurm goes on with the runs. --slurm --resume follows them.\n";
        for (const Tally::Row state : {Tally::Row::failed, Tally::Row::stopped})
            for (const std::size_t row : m_tally.rowsIn(state))
                m_call.dialogs.show(runsMessage(m_runs[row].name + ": " + m_tally.message(row), "Runs"));
        return m_tally.allDone() ? exitStatus::done : exitStatus::failed;
    }

    CommandCall& m_call;
    const CommandLine& m_line;
    StopSignals m_signals;
    RunSetting m_setting;
    std::vector<PlannedRun> m_runs;
    RecordFile m_record;
    Tally m_tally;
    RunsProgress m_progress;
    ToolCalls m_tools;
    Slurm m_slurm{m_tools};
    bool m_leftRunning = false;
};

RunSetting settingOf(CommandCall& call, const PlanPlaces& places) {
    return runSetting(places, rulesOfSingleRuns(), hostPathOf(call.platform.machine.applicationFolder()),
                      productVersion);
}

// What a job on the cluster starts, by the script of a submission.
int runTask(CommandCall& call, const PlanPlaces& places, const std::string& folder) {
    const char* number = std::getenv("SLURM_ARRAY_TASK_ID");
    const auto task = wholeNumber(number != nullptr ? number : "");
    if (!task) throw UsageError("this is no task of a job array");
    const StopSignals blocked;
    const Submission submission(folder);
    GuardedEngine engine([&] { return submission.isGone(); });
    const TaskEnd end =
        carryOutTask(submission, static_cast<std::size_t>(*task), settingOf(call, places), engine);
    return end == TaskEnd::allDone ? exitStatus::done : exitStatus::failed;
}

void checkUsage(const CommandLine& line) {
    givenJobs(line);
    if (line.has("--jobs") && line.has("--slurm")) throw UsageError("--jobs and --slurm exclude each other");
    if (line.has("--sbatch") && !line.has("--slurm")) throw UsageError("--sbatch goes with --slurm");
    if (!wordsOf(line.value("--sbatch").value_or("")))
        throw UsageError("a quote in --sbatch is never closed");
}

int runPlan(CommandCall& call, const CommandLine& line, const PlanPlaces& places) {
    Plan plan = planAt(places, rulesOfSingleRuns());
    if (plan.problemCount > 0) {
        for (const std::string& problem : problemLines(plan, nameOf(places.plan)))
            call.dialogs.show(runsMessage(problem, "Plan"));
        return exitStatus::failed;
    }
    try {
        return Runs(call, line, settingOf(call, places), std::move(plan.runs)).carryOut();
    } catch (const SlurmError& error) {
        call.dialogs.show(runsMessage(error.what(), "Slurm"));
        return exitStatus::failed;
    }
}

int runRuns(CommandCall& call) {
    using Kind = CommandOption::Kind;
    const CommandLine line(call.arguments, {{"--jobs", Kind::withValue},
                                            {"--slurm", Kind::flag},
                                            {"--sbatch", Kind::withValue},
                                            {"--resume", Kind::flag},
                                            {"--stop-on-failure", Kind::flag},
                                            {taskOption, Kind::withValue}});
    const PlanPlaces places = placesOfPlan(line.onlyOperand("plan"));
    checkUsage(line);
    if (const auto folder = line.value(taskOption)) return runTask(call, places, *folder);
    return runPlan(call, line, places);
}

} // namespace

const Command runsCommand = {"runs", "carry out a plan of many runs", help, runRuns};

} // namespace korvel
