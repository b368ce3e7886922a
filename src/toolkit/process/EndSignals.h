// The signals that ask a program to end, as a call from the event loop. One at a time.
#pragma once

#include "basic/Descriptor.h"

#include <QObject>

#include <functional>

namespace korvel {

class EndSignals : public QObject {
  public:
    // `onSignal` gets the signal's number: SIGTERM, SIGINT or SIGHUP.
    explicit EndSignals(std::function<void(int)> onSignal);
    ~EndSignals() override;

  private:
    Descriptor m_readEnd, m_writeEnd;
};

} // namespace korvel
