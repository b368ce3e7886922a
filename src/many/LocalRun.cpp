#include "many/LocalRun.h"

#include "basic/RunTimeError.h"
#include "many/Resume.h"

namespace korvel {

namespace {

using Row = Tally::Row;

constexpr const char* checkWord = "check ";
constexpr const char* runWord = "run ";
constexpr const char* holdsAnswer = "holds";

// A job names its row and, for a run, when it was started.
std::string checkJob(std::size_t row) {
    return checkWord + std::to_string(row);
}
std::string runJob(std::size_t row, const std::string& started) {
    return runWord + std::to_string(row) + ' ' + started;
}

class Here {
  public:
    Here(const LocalRunCall& call, AfterFailure afterFailure) : m_call(call), m_afterFailure(afterFailure) {
        m_rows = call.tally.rowsIn(Row::waiting);
    }

    DealEnd run(Workers& workers) {
        const Dealing dealing{
            [this] { return nextRow(); },
            [this](std::size_t row, const std::string& answer) { take(row, recordOfLine(answer)); },
            [this](std::size_t row, const std::string& how) { takeDeath(row, how); }, m_call.tick};
        const DealEnd end = deal(workers, dealing);
        if (m_problem) throw RunTimeError(*m_problem);
        return end;
    }

  private:
    std::optional<Job> nextRow() {
        const bool failed = m_afterFailure == AfterFailure::stop && m_call.tally.count(Row::failed) > 0;
        if (m_next == m_rows.size() || failed || m_problem) return std::nullopt;
        const std::size_t row = m_rows[m_next++];
        const RunRecord record = startedRecord(m_call.setting, m_call.runs[row]);
        if (!write(record)) return std::nullopt;
        m_call.tally.set(row, record);
        return Job{row, runJob(row, record.started)};
    }

    // Room for the ends of all that runs is there before anything more is started.
    bool write(const RunRecord& record) {
        try {
            if (record.state == RunState::started)
                m_call.record.reserve(m_call.tally.count(Row::running) + 2);
            m_call.record.append(record);
        } catch (const RunTimeError& error) {
            if (!m_problem) m_problem = error;
        }
        return !m_problem;
    }

    void take(std::size_t row, std::optional<RunRecord> record) {
        if (!record) return takeDeath(row, "answered something else");
        record->title = m_call.runs[row].title;
        write(*record);
        m_call.tally.set(row, *record);
    }

    void takeDeath(std::size_t row, const std::string& how) {
        RunRecord record = *m_call.record.lastOf(m_call.runs[row].name);
        record.state = RunState::failed;
        record.ended = timeNow();
        record.message = "The process that watched over this run " + how + '.';
        take(row, record);
    }

    const LocalRunCall& m_call;
    AfterFailure m_afterFailure;
    std::vector<std::size_t> m_rows;
    std::size_t m_next = 0;
    std::optional<RunTimeError> m_problem; // of the record
};

// The record tells the plan's title.
void keep(const LocalRunCall& call, std::size_t row) {
    const PlannedRun& run = call.runs[row];
    RunRecord record = *call.record.lastOf(run.name);
    call.tally.set(row, Row::kept);
    if (record.title == run.title) return;
    record.title = run.title;
    call.record.append(record);
}

std::string runRow(std::size_t row, const std::string& started, const std::vector<PlannedRun>& runs,
                   const RunSetting& setting, EngineRun& engine) {
    RunRecord record = startedRecord(setting, runs[row]);
    record.started = started;
    record = carryOut(setting, runs[row], record, engine);
    record.title.clear(); // however long it is, the answer is short; the plan has it
    return recordLine(record);
}

} // namespace

std::string workOnRow(const std::string& job, const std::vector<PlannedRun>& runs, const RunSetting& setting,
                      const LastRecords& records, EngineRun& engine) {
    const auto first = job.find(' ') + 1;
    const auto second = job.find(' ', first);
    const std::size_t row = std::stoul(job.substr(first, second - first));
    if (job.starts_with(runWord)) return runRow(row, job.substr(second + 1), runs, setting, engine);
    const PlannedRun& run = runs.at(row);
    const bool holds = stillHolds(run, records.at(run.name), setting.engineSum, setting.places.folder);
    return holds ? holdsAnswer : "changed";
}

DealEnd keepWhatHolds(const LocalRunCall& call, Workers& workers) {
    std::vector<std::size_t> rows;
    for (std::size_t row = 0; row < call.runs.size(); ++row) {
        const RunRecord* record = call.record.lastOf(call.runs[row].name);
        if (record && record->state == RunState::done) rows.push_back(row);
    }
    std::size_t next = 0;
    const Dealing dealing{[&]() -> std::optional<Job> {
                              if (next == rows.size()) return std::nullopt;
                              const std::size_t row = rows[next++];
                              return Job{row, checkJob(row)};
                          },
                          [&](std::size_t row, const std::string& answer) {
                              if (answer == holdsAnswer) keep(call, row);
                          },
                          [](std::size_t, const std::string&) {}, call.tick};
    return deal(workers, dealing);
}

DealEnd runHere(const LocalRunCall& call, Workers& workers, AfterFailure afterFailure) {
    return Here(call, afterFailure).run(workers);
}

} // namespace korvel
