// The signals by which a user ends a program, taken one by one instead of ending it: Ctrl+C, the end of the
// terminal, a request to end. From the first object on they are blocked in this process and in those forked
// from it.
#pragma once

#include "basic/Descriptor.h"
#include "platform/Tools.h"

namespace korvel {

class StopSignals : public StopWishes {
  public:
    StopSignals();

    StopWish wait(std::chrono::milliseconds atMost) override;
    // Readable where a signal waits; next() takes it.
    int descriptor() const { return m_signals.number(); }
    StopWish next() const;

  private:
    Descriptor m_signals;
};

} // namespace korvel
