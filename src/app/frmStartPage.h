// The main form's free room: the last runs on the left of the logo, on its right what can be done next with
// the one that is selected. Made and filled after the form has been painted, so that the start waits for none
// of it.
#pragma once

#include "app/LastRunWords.h"
#include "platform/Platform.h"
#include "toolkit/forms/Handlers.h"

#include <QLabel>
#include <QListWidget>
#include <QPushButton>

#include <array>
#include <functional>
#include <vector>

namespace korvel {

class StartPage {
  public:
    // What its buttons do with the selected run.
    struct Deeds {
        std::function<void(const LastRun&)> runAgain, graphs, reports, explore;
        std::function<void()> samples;
    };

    StartPage(QWidget& form, Platform& services, Handlers& handlers, const Deeds& deeds);

    // Points at the factor 1; the widths of buttons grow alike.
    void setLetters(double points, double factor);
    // The room left and right of the logo.
    void setRoom(const QRect& left, const QRect& right);
    // As the machine remembers them, and as their files are now.
    void reload();
    // In Tab's order.
    std::vector<QWidget*> stops() const;

  private:
    struct Listed {
        LastRun run;
        RunToday today;
    };

    QLabel& text(QWidget& in, const char* name);
    QPushButton& button(const char* name, const char* caption, const char* tip);
    void layOutRuns();
    void layOutNext();
    void connectDeeds(Handlers& handlers, const Deeds& deeds);
    RunToday today(const LastRun& run) const;
    void fillList(int selected);
    int rowToSelect(const std::vector<Listed>& before, int row) const;
    const Listed* selected() const;
    void showParts();
    void showSelected();
    void fitTexts();
    void fitFirstSteps();

    Platform& m_services;
    QWidget& m_runs;
    QWidget& m_next;
    QLabel& lblLastRuns;
    QListWidget& lstLastRuns;
    QLabel& lblNoRuns;
    QPushButton& cmdSamples;
    QLabel& lblRun;
    QLabel& lblRunFacts;
    QLabel& lblVerdict;
    QPushButton &cmdRunAgain, &cmdRunGraphs, &cmdRunReports, &cmdRunExplore;
    std::vector<Listed> m_listed;
    bool m_hasRoom = false;
    bool m_hasSamples = false;
};

} // namespace korvel
