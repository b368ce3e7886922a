#include "many/ClusterRun.h"

#include "basic/RunTimeError.h"
#include "basic/Text.h"

#include <algorithm>
#include <fstream>
#include <set>
#include <unordered_map>

namespace korvel {

namespace {

using Clock = std::chrono::steady_clock;
using Row = Tally::Row;

constexpr std::chrono::seconds betweenLooks(1);
constexpr std::chrono::seconds leastBetweenQuestions(1);
constexpr std::chrono::seconds mostBetweenQuestions(30);
// A shared file system may show a file late; of a task that went well there is more to come for sure.
constexpr std::chrono::seconds graceAfterSuccess(60);
constexpr std::chrono::seconds grace(5);
constexpr std::size_t longestMessage = 200;

// What a task has written since the last look, by whole lines.
class TaskLines {
  public:
    explicit TaskLines(std::string path) : m_path(std::move(path)) {}

    std::vector<RunRecord> next() {
        std::ifstream file(m_path, std::ios::binary);
        file.seekg(m_read);
        std::vector<RunRecord> records;
        for (std::string line; std::getline(file, line) && !file.eof();) {
            m_read += static_cast<std::streamoff>(line.size() + 1);
            if (auto record = recordOfLine(line)) records.push_back(std::move(*record));
        }
        return records;
    }

  private:
    std::string m_path;
    std::streamoff m_read = 0;
};

std::string lastLineOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::string last;
    for (std::string line; std::getline(file, line);)
        if (!trim(line).empty()) last = trim(line);
    return firstShown(shownUtf8(last), longestMessage);
}

// In sbatch's file names "%" begins a symbol.
std::string outputPattern(const std::string& folder) {
    std::string pattern;
    for (const char c : folder)
        pattern += c == '%' ? std::string("%%") : std::string(1, c);
    return pattern + "/%a.out";
}

// One submission, until its rows are in the record.
class Follower {
  public:
    Follower(const ClusterCall& call, Submission submission)
        : m_call(call), m_submission(std::move(submission)), m_job(m_submission.job()) {
        for (std::size_t row = 0; row < call.runs.size(); ++row)
            m_rowOf.emplace(call.runs[row].name, row);
        const std::size_t tasks = m_submission.tasks();
        for (std::size_t task = 0; task < tasks; ++task)
            m_tasks.emplace_back(m_submission.record(task), m_submission.rows(task));
    }

    // Asks Slurm; whether any task is not over.
    bool isAlive() {
        m_states = m_call.slurm.states(m_submission.jobName());
        return std::ranges::any_of(m_states, [](const auto& state) { return !isOver(state.second); });
    }

    void mergeAll() {
        for (Task& task : m_tasks)
            merge(task);
    }

    bool everyRowEnded() const {
        return std::ranges::all_of(m_tasks, [](const Task& task) { return task.open.empty(); });
    }

    // Nothing more comes: rows without an end get one, and the submission goes.
    void close() {
        for (std::size_t number = 0; number < m_tasks.size(); ++number)
            if (!m_tasks[number].open.empty()) endWithout(number);
        m_submission.remove();
    }

    ClusterEnd follow() {
        for (;;) {
            look();
            if (everyTaskIsOver()) break;
            if (m_call.tick) m_call.tick();
            const StopWish wish = m_call.stop.wait(betweenLooks);
            if (wish == StopWish::hangUp || (wish == StopWish::stop && m_stopping))
                return ClusterEnd::leftRunning;
            if (wish == StopWish::stop) stop();
        }
        close();
        return m_stopping ? ClusterEnd::stopped : ClusterEnd::all;
    }

    const Submission& submission() const { return m_submission; }

  private:
    struct Task {
        Task(const std::string& path, const std::vector<RunRecord>& taskRows) : lines(path), rows(taskRows) {
            for (const RunRecord& row : taskRows)
                open.insert(row.name);
        }
        TaskLines lines;
        std::vector<RunRecord> rows;
        std::set<std::string> open; // names of rows without an end
        std::optional<Clock::time_point> missedSince;
    };

    void look() {
        askSlurm();
        for (std::size_t number = 0; number < m_tasks.size(); ++number)
            if (!m_tasks[number].open.empty() && stateOf(number) != "PENDING") merge(m_tasks[number]);
        if (m_call.afterFailure == AfterFailure::stop && m_call.tally.count(Row::failed) > 0) startNoMore();
    }

    // The longer it takes, the more seldom. Slurm that can't be asked now may answer later.
    void askSlurm() {
        const Clock::time_point now = Clock::now();
        if (now < m_nextQuestion) return;
        const auto pause = std::chrono::duration_cast<std::chrono::seconds>((now - m_begun) / 20);
        m_nextQuestion = now + std::clamp(pause, leastBetweenQuestions, mostBetweenQuestions);
        try {
            m_states = m_call.slurm.states(m_submission.jobName());
            m_asked = true;
        } catch (const SlurmError&) {
            m_asked = false;
        }
    }

    std::string stateOf(std::size_t task) const {
        const auto found = m_states.find(task);
        return found == m_states.end() ? "" : found->second;
    }

    // A task whose rows all have an end, or that Slurm ended so long ago that no more will come of it.
    bool isOverFor(std::size_t number) {
        Task& task = m_tasks[number];
        if (task.open.empty()) return true;
        if (!m_asked) return false;
        const std::string state = stateOf(number);
        if (!state.empty() && !isOver(state)) {
            task.missedSince.reset();
            return false;
        }
        if (!task.missedSince) task.missedSince = Clock::now();
        return Clock::now() - *task.missedSince >= (state == "COMPLETED" ? graceAfterSuccess : grace);
    }

    bool everyTaskIsOver() {
        bool every = true;
        for (std::size_t number = 0; number < m_tasks.size(); ++number)
            every = isOverFor(number) && every;
        return every;
    }

    void merge(Task& task) {
        for (const RunRecord& record : task.lines.next()) {
            if (!m_call.record.holds(record)) m_call.record.append(record);
            if (record.state != RunState::started) task.open.erase(record.name);
            tell(record.name, record);
        }
    }

    void tell(const std::string& name, const RunRecord& record) {
        const auto row = m_rowOf.find(name);
        if (row != m_rowOf.end()) m_call.tally.set(row->second, record);
    }

    // What Slurm says of a task that has left rows without an end. Those that had not begun keep what they
    // had.
    void endWithout(std::size_t number) {
        const Task& task = m_tasks[number];
        const std::string state = endOf(number);
        if (state.empty() && m_job.empty()) return; // never handed over
        std::string message = "Slurm ended the job" + (state.empty() ? "." : ": " + state + ".");
        const std::string said = lastLineOf(m_submission.output(number));
        if (!said.empty()) message += ' ' + said;
        for (const RunRecord& row : task.rows)
            if (task.open.contains(row.name)) endRow(row, state, message);
    }

    void endRow(const RunRecord& row, const std::string& state, const std::string& message) {
        const RunRecord* last = m_call.record.lastOf(row.name);
        RunRecord record = last && last->state == RunState::started ? *last : row;
        record.state = state.starts_with("CANCELLED") ? RunState::stopped : RunState::failed;
        record.ended = timeNow();
        record.message = message;
        tell(row.name, record);
        const bool keepsAnEarlierEnd = last != nullptr && last->state == RunState::done;
        if (!keepsAnEarlierEnd) m_call.record.append(record);
    }

    std::string endOf(std::size_t number) {
        const std::string state = stateOf(number);
        return state.empty() && !m_job.empty() ? m_call.slurm.accountedState(m_job, number) : state;
    }

    void startNoMore() {
        if (m_startsNoMore) return;
        m_startsNoMore = true;
        m_submission.askToStop();
        m_call.slurm.cancel(m_submission.jobName(), Slurm::Which::pending);
    }

    void stop() {
        m_stopping = true;
        m_submission.askToStop();
        m_call.slurm.cancel(m_submission.jobName(), Slurm::Which::all);
        m_nextQuestion = Clock::now();
    }

    const ClusterCall& m_call;
    Submission m_submission;
    std::string m_job;
    std::unordered_map<std::string, std::size_t> m_rowOf;
    std::vector<Task> m_tasks;
    std::map<std::size_t, std::string> m_states;
    bool m_asked = false; // the states are Slurm's last word
    bool m_stopping = false;
    bool m_startsNoMore = false;
    Clock::time_point m_begun = Clock::now();
    Clock::time_point m_nextQuestion = m_begun;
};

[[noreturn]] void refuseLeftovers(const Submission& submission) {
    const std::string name = submission.jobName();
    throw SlurmError(
        "Runs of an earlier call are still with Slurm. --slurm --resume follows them, 'scancel --name=" +
        name + "' ends them.");
}

ClusterEnd takeLeftover(const ClusterCall& call, const Submission& submission, Leftovers leftovers) {
    Follower follower(call, submission);
    follower.mergeAll();
    bool alive = false;
    try {
        alive = !follower.everyRowEnded() && follower.isAlive();
    } catch (const SlurmError& error) {
        throw SlurmError(std::string("Runs of an earlier call may still be with Slurm. ") + error.what() +
                         " If none runs any more, remove " + submission.folder());
    }
    if (alive && leftovers == Leftovers::refuse) refuseLeftovers(submission);
    if (alive) return follower.follow();
    follower.mergeAll(); // what came between the first look and Slurm's answer
    follower.close();
    return ClusterEnd::all;
}

} // namespace

ClusterEnd runOnCluster(const ClusterCall& call) {
    std::vector<const PlannedRun*> rows;
    for (const std::size_t row : call.tally.rowsIn(Row::waiting))
        rows.push_back(&call.runs[row]);
    if (rows.empty()) return ClusterEnd::all;
    const Submission submission = makeSubmission(call.places, rows, call.slurm.mostTasks(), call.program);
    try {
        const std::size_t tasks = submission.tasks();
        submission.keepJob(call.slurm.submit({submission.jobName(), tasks, call.options, call.places.folder,
                                              outputPattern(submission.folder()), submission.script()}));
    } catch (const SlurmError&) {
        submission.remove();
        throw;
    }
    return Follower(call, submission).follow();
}

ClusterEnd takeLeftovers(const ClusterCall& call, Leftovers leftovers) {
    for (const Submission& submission : submissionsOf(call.places)) {
        const ClusterEnd end = takeLeftover(call, submission, leftovers);
        if (end != ClusterEnd::all) return end;
    }
    return ClusterEnd::all;
}

} // namespace korvel
