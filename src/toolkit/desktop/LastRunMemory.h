// The last runs in the user's configuration folder. Each run has keys of its own, so that engine windows that
// end at the same time do not undo each other's.
#pragma once

#include "platform/LastRun.h"

#include <QSettings>
#include <QString>

#include <vector>

namespace korvel {

class LastRunMemory {
  public:
    // Of this user; or in a file of one's own (host path).
    LastRunMemory();
    explicit LastRunMemory(const QString& file);

    QString folder() const;
    // The last first, MostLastRuns at most. What can't be read is left out.
    std::vector<LastRun> runs();
    // In place of the run of the same data file, where there is one.
    void note(const LastRun& run);

  private:
    LastRun read(const QString& group);
    void forgetOldest();

    QSettings m_settings;
};

} // namespace korvel
