// The line under everything: what the values at the cursor are, and how far long work has come.
#pragma once

#include <QLabel>
#include <QProgressBar>
#include <QStatusBar>

namespace korvel {

class StatusLine : public QObject {
  public:
    explicit StatusLine(QStatusBar& bar);

    void showReadout(const QString& text);
    // As many lines as the values of all runs may need, so that nothing moves while the cursor does.
    void giveRoom(std::size_t runs);

    void tellProgress(const QString& words, double share);
    void endProgress();

  private:
    QLabel* lblReadout;
    QLabel* m_progressText;
    QProgressBar* m_progress;
};

} // namespace korvel
