#include "many/JobDealer.h"

#include <algorithm>
#include <vector>

namespace korvel {

namespace {

constexpr std::chrono::milliseconds tickTime(500);
constexpr std::chrono::seconds patience(15); // for workers that were asked to stop

class Dealer {
  public:
    Dealer(Workers& workers, const Dealing& dealing)
        : m_workers(workers), m_dealing(dealing), m_jobs(workers.count()) {}

    DealEnd run() {
        for (std::size_t worker = 0; worker < m_jobs.size(); ++worker)
            giveNext(worker);
        while (std::ranges::any_of(m_jobs, [](const auto& job) { return job.has_value(); })) {
            take(m_workers.wait(tickTime));
            if (m_dealing.tick) m_dealing.tick();
        }
        return m_stopping ? DealEnd::stopped : DealEnd::all;
    }

  private:
    using Clock = std::chrono::steady_clock;

    void giveNext(std::size_t worker) {
        if (m_stopping) return;
        const std::optional<Job> job = m_dealing.next();
        if (!job) return;
        m_jobs[worker] = job->number;
        m_workers.give(worker, job->text);
    }

    void take(const WorkerEvent& event) {
        switch (event.kind) {
        case WorkerEvent::Kind::answer: return takeEnd(event.worker, event.text, m_dealing.answered);
        case WorkerEvent::Kind::death: return takeEnd(event.worker, event.text, m_dealing.died);
        case WorkerEvent::Kind::stop: return stop();
        case WorkerEvent::Kind::time: break;
        }
        if (m_stopping && Clock::now() > m_killTime) m_workers.kill();
    }

    void takeEnd(std::size_t worker, const std::string& text,
                 const std::function<void(std::size_t, const std::string&)>& tell) {
        const std::size_t number = *m_jobs[worker];
        m_jobs[worker].reset();
        tell(number, text);
        giveNext(worker);
    }

    void stop() {
        if (m_stopping) return m_workers.kill();
        m_stopping = true;
        m_killTime = Clock::now() + patience;
        m_workers.askToStop();
    }

    Workers& m_workers;
    const Dealing& m_dealing;
    std::vector<std::optional<std::size_t>> m_jobs; // by worker: what it has in hand
    bool m_stopping = false;
    Clock::time_point m_killTime;
};

} // namespace

DealEnd deal(Workers& workers, const Dealing& dealing) {
    return Dealer(workers, dealing).run();
}

} // namespace korvel
