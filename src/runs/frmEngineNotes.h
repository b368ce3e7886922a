// What the engine's window leaves for the main form's list of last runs: at once that a run has ended, and a
// little later what its results say about the targets, read beside the window's own life.
#pragma once

#include "platform/LastRun.h"
#include "platform/Platform.h"
#include "study/RunFile.h"
#include "toolkit/forms/Handlers.h"

#include <QTimer>

#include <deque>
#include <memory>

namespace korvel {

enum class RunEnd { withResults, without };

class EngineNotes {
  public:
    EngineNotes(Platform& services, Handlers& handlers);

    // The engine is started: results that are older are not this run's.
    void begin();
    void note(const StartedRun& run, const std::string& state, RunEnd end);
    bool isReading() const { return m_reading != nullptr; }
    // Reads what there is still to read.
    void finish();

  private:
    void readNext();
    void look();
    void takeVerdict();

    Platform& m_services;
    QTimer m_tick;
    long long m_begun = 0;       // milliseconds since 1970
    std::deque<LastRun> m_queue; // one at a time, as each may take much memory; the first is being read
    std::unique_ptr<RunReading> m_reading;
};

} // namespace korvel
