// Processes of this program that do one job at a time for it, side by side. They end with it, however it
// ends.
#pragma once

#include <chrono>
#include <cstddef>
#include <string>

namespace korvel {

struct WorkerEvent {
    enum class Kind {
        answer, // a worker has done its job; `text` is what it says
        death,  // a worker ended in the middle of its job; `text` tells how
        stop,   // the user wants to stop
        time    // nothing happened for as long as was waited
    };
    Kind kind = Kind::time;
    std::size_t worker = 0;
    std::string text;
};

class Workers {
  public:
    virtual ~Workers() = default;
    virtual std::size_t count() const = 0;
    // To a worker without a job; one that died before is started anew.
    virtual void give(std::size_t worker, const std::string& job) = 0;
    virtual WorkerEvent wait(std::chrono::milliseconds atMost) = 0;
    // Asks the busy ones to give up what they do; each then answers, or dies.
    virtual void askToStop() = 0;
    virtual void kill() = 0; // the busy ones
};

} // namespace korvel
