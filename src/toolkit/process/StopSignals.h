// The signals by which a user ends a program, taken one by one instead of ending it: Ctrl+C, the end of the
// terminal, a request to end. From the first object on they are blocked in this process and in those forked
// from it.
#pragma once

#include "platform/Tools.h"

namespace korvel {

class StopSignals : public StopWishes {
  public:
    StopSignals();
    ~StopSignals() override;
    StopSignals(const StopSignals&) = delete;
    StopSignals& operator=(const StopSignals&) = delete;

    StopWish wait(std::chrono::milliseconds atMost) override;
    // Readable where a signal waits; next() takes it.
    int descriptor() const { return m_descriptor; }
    StopWish next() const;

  private:
    int m_descriptor = -1;
};

} // namespace korvel
