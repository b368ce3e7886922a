// The line under everything: what the values at the cursor are, what was written where, and how far long work
// has come.
#pragma once

#include "toolkit/forms/DoneLine.h"

#include <QLabel>
#include <QProgressBar>
#include <QStatusBar>

#include <vector>

namespace korvel {

class StatusLine : public QObject {
  public:
    StatusLine(QStatusBar& bar, Machine& machine, Handlers& handlers);

    // The last of the texts; who points at it, and who hears it, is told the first, which is whole.
    void showReadout(const std::vector<QString>& texts);
    bool fits(const QString& text) const;
    // As many lines as the values of all runs may need, so that nothing moves while the cursor does; fewer in
    // a low window.
    void giveRoom(std::size_t runs, int windowHeight);
    // What is told while there are no values.
    void setHint(const QString& hint);

    DoneLine& done() { return m_done; }

    void tellProgress(const QString& words, double share);
    void endProgress();

  private:
    class ReadoutLabel;

    ReadoutLabel* lblReadout;
    QLabel* lblDone;
    DoneLine m_done;
    QLabel* m_progressText;
    QProgressBar* m_progress;
};

} // namespace korvel
