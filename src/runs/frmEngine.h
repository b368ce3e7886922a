// The engine's window, a process of its own: it starts the engine, shows its output as it comes, and says how
// it ended. It outlives the front end.
#pragma once

#include "runs/EngineOutput.h"
#include "runs/frmEngineNotes.h"
#include "toolkit/forms/Form.h"
#include "toolkit/process/EngineProcess.h"

#include <QElapsedTimer>
#include <QPlainTextEdit>
#include <QTimer>

namespace korvel {

class frmEngine : public Form {
  public:
    // Without data files where the window was called by hand.
    explicit frmEngine(Platform& services, StartedRun run = {}, StartTurn turn = {});

  protected:
    void onActivate() override;
    bool onClose() override;

  private:
    enum class State { running, finished, failed, stopped };

    void layOut();
    void startEngine();
    void warnOfLetters(const std::string& enginePath);
    void showOutput(std::string_view bytes);
    void append(const std::string& text);
    void engineFinished(int status);
    void askedToStop();
    bool wantsToStop();
    void refresh();
    std::vector<std::string> resultsFiles() const;
    std::string stateText() const;
    std::string titleText() const;

    QLabel& lblState = label("lblState", "Running", {}, {.fontSize = 12, .bold = true});
    QLabel& lblTime = label("lblTime", "", {}, {.fontSize = 11});
    QLabel& lblFile = label("lblFile", "", {}, {.fontSize = 11});
    QPlainTextEdit& txtOutput;
    QLabel& lblNext = label("lblNext", "", {}, {.fontSize = 11, .wraps = true});
    QPushButton& cmdExplore = button("cmdExplore", "&Explore the results", {}, {.fontSize = 11});
    QPushButton& cmdOpenFolder = button("cmdOpenFolder", "Open results &folder", {}, {.fontSize = 11});
    QPushButton& cmdStop = button("cmdStop", "&Stop the model", {}, {.fontSize = 11});
    QPushButton& cmdClose = button("cmdClose", "&Close", {}, {.fontSize = 11});

    StartedRun m_run;
    StartTurn m_turn;
    EngineProcess m_engine;
    EngineOutput m_output;
    EngineNotes m_notes{services(), handlers()};
    QElapsedTimer m_clock;
    QTimer m_tick;
    State m_state = State::running;
    int m_status = 0;
    qint64 m_milliseconds = 0;
    bool m_started = false;
    bool m_stopRequested = false;
};

} // namespace korvel
