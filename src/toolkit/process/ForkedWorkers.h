// Workers that are copies of this process. A copy ends when this process closes its way to it, or ends; and
// where it is in the middle of something then, it is told by a signal.
#pragma once

#include "platform/Workers.h"
#include "toolkit/process/StopSignals.h"

#include <functional>
#include <sys/types.h>
#include <vector>

namespace korvel {

class ForkedWorkers : public Workers {
  public:
    // Called in the copy, for one job after the other. What it throws ends the copy.
    using Work = std::function<std::string(const std::string& job)>;

    // Each is started with its first job. No other thread may run.
    ForkedWorkers(std::size_t count, Work work, StopSignals& signals);
    ~ForkedWorkers() override;
    ForkedWorkers(const ForkedWorkers&) = delete;
    ForkedWorkers& operator=(const ForkedWorkers&) = delete;

    std::size_t count() const override { return m_copies.size(); }
    void give(std::size_t worker, const std::string& job) override;
    WorkerEvent wait(std::chrono::milliseconds atMost) override;
    void askToStop() override;
    void kill() override;

  private:
    struct Copy {
        pid_t process = 0;
        int socket = -1;
        bool busy = false;
    };

    void start(Copy& copy);
    [[noreturn]] void work(int socket);
    WorkerEvent receive(std::size_t worker);
    std::string endOf(Copy& copy);
    void signalBusy(int signal) const;

    Work m_work;
    StopSignals& m_signals;
    std::vector<Copy> m_copies;
};

} // namespace korvel
