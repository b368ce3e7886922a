// Workers that do their work when they are waited for, the last one that was given something first.
#pragma once

#include "platform/Workers.h"

#include <deque>
#include <functional>
#include <optional>
#include <stdexcept>
#include <vector>

namespace korvel {

class FakeWorkers : public Workers {
  public:
    FakeWorkers(std::size_t count, std::function<std::string(const std::string&)> doWork)
        : work(std::move(doWork)), m_count(count) {}

    std::function<std::string(const std::string& job)> work; // one that throws is a worker that dies
    std::vector<std::string> given;
    std::optional<std::size_t> stopAfter; // events; the user wants to stop then
    std::size_t mostBusy = 0;
    int stops = 0;
    int kills = 0;

    std::size_t count() const override { return m_count; }
    void give(std::size_t worker, const std::string& job) override {
        given.push_back(job);
        m_busy.push_back({worker, job});
        mostBusy = std::max(mostBusy, m_busy.size());
    }
    WorkerEvent wait(std::chrono::milliseconds) override {
        if (stopAfter && *stopAfter == m_events++) return {WorkerEvent::Kind::stop, 0, ""};
        if (m_busy.empty()) throw std::logic_error("nobody is busy");
        const auto [worker, job] = m_busy.back();
        m_busy.pop_back();
        try {
            return {WorkerEvent::Kind::answer, worker, work(job)};
        } catch (const std::exception& error) {
            return {WorkerEvent::Kind::death, worker, error.what()};
        }
    }
    void askToStop() override { ++stops; }
    void kill() override { ++kills; }

  private:
    std::size_t m_count;
    std::deque<std::pair<std::size_t, std::string>> m_busy;
    std::size_t m_events = 0;
};

} // namespace korvel
