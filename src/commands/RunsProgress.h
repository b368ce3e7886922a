// What `korvel runs` shows while it works: one line that is written over at a terminal, a line now and then
// in a file.
#pragma once

#include "many/Tally.h"

#include <chrono>
#include <iosfwd>

namespace korvel {

class RunsProgress {
  public:
    enum class Place { terminal, file };

    RunsProgress(const Tally& tally, std::ostream& out, Place place);

    void show();
    // The line is left, or taken away, so that something else can be printed.
    void end();

  private:
    using Clock = std::chrono::steady_clock;

    const Tally& m_tally;
    std::ostream& m_out;
    Place m_place;
    Clock::time_point m_begun = Clock::now();
    Clock::time_point m_next = m_begun;
    std::string m_shown;
};

} // namespace korvel
