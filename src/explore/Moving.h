// Moving about: which stretch of the path is seen, and the way back to what was seen before.
#pragma once

#include "explore/ExploreState.h"

#include <optional>
#include <vector>

namespace korvel {

// Nothing where the stretch is all of the path.
using VisibleStretch = std::optional<ExploreStretch>;

// What is seen, on a path of this length, km.
ExploreStretch seenOf(const VisibleStretch& visible, double length);

// Nearer (a factor above 1) or farther, with one place where it was.
VisibleStretch zoomedAbout(const VisibleStretch& visible, double length, double km, double factor);
// Downstream where `by` is above 0, as far as the path goes.
VisibleStretch scrolledBy(const VisibleStretch& visible, double length, double by);
// A box that was drawn, its ends in any order; nothing changes for one without width.
VisibleStretch zoomedTo(const VisibleStretch& visible, double length, double one, double other);
// So that a place is seen: as little moved as can be.
VisibleStretch scrolledTo(const VisibleStretch& visible, double length, double km);

// Where one has been. Turns of the wheel and keys that follow each other quickly are one step.
class ViewHistory {
  public:
    enum class Move { turn, jump };

    // Before a change of what is seen; `milliseconds` of any steady clock.
    void leave(const VisibleStretch& visible, Move move, long long milliseconds);
    bool canGoBack() const { return !m_left.empty(); }
    // What was seen before; there is something.
    VisibleStretch goBack();
    // On another path what was seen on this one means nothing.
    void clear();

  private:
    std::vector<VisibleStretch> m_left;
    std::optional<long long> m_lastTurn;
};

} // namespace korvel
