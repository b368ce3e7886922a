// Who may write the run-control file. An engine gets no arguments and reads the one file of its folder, so
// that starts take turns, whatever process they come from: a turn is taken before the file is written, and
// kept until the engine has opened it. A turn is a lock on the application folder itself: it leaves no file
// behind, needs no right to write there, ends with the last process that holds it, and can be handed on to
// a process that is started.
#pragma once

#include "basic/Descriptor.h"

#include <chrono>
#include <functional>
#include <string>

namespace korvel {

inline constexpr const char* RunControlFileName = "RUNDAT.TMP";
inline constexpr const char* EngineFileName = "korvelf157.exe";

class StartTurn {
  public:
    StartTurn() = default; // held by nobody, as where the file system knows no locks
    // The turn that the process which started this one has handed on, by its descriptor.
    static StartTurn handedOn(int descriptor);
    // Tries until it is this start's turn, calling `pause` in between. `folder`: a host path. A process that
    // was stopped keeps its turn for ever, so that patience ends where the run-control file has stayed the
    // same too long; the start then goes on without a turn.
    static StartTurn waitFor(const std::string& folder, const std::function<void()>& pause,
                             std::chrono::milliseconds patience = std::chrono::seconds(10));

    bool isHeld() const { return m_folder.isOpen(); }
    int descriptor() const { return m_folder.number(); }
    void end() { m_folder.close(); }

  private:
    explicit StartTurn(Descriptor folder) : m_folder(std::move(folder)) {}

    Descriptor m_folder;
};

// A turn while its engine comes up. Made before the engine is started.
class TurnOfEngine {
  public:
    static constexpr std::chrono::milliseconds longest = std::chrono::seconds(3);

    TurnOfEngine() = default;
    TurnOfEngine(StartTurn turn, const std::string& folder);

    bool isHeld() const { return m_turn.isHeld(); }
    // Can be read from once the file has been opened; -1 where nothing tells.
    int watch() const { return m_watch.number(); }
    // Until the turn ends by itself; not negative.
    std::chrono::milliseconds left() const;
    // Ends the turn where the file has been opened or the time is over.
    void look();
    void end();

  private:
    bool wasOpened() const;

    StartTurn m_turn;
    Descriptor m_watch;
    std::chrono::steady_clock::time_point m_end;
};

} // namespace korvel
