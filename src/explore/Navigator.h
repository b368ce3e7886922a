// The cursor and what is seen: how they answer to the pointer and to keys.
#pragma once

#include "explore/Moving.h"
#include "explore/Scene.h"

#include <cstddef>
#include <optional>

namespace korvel {

// What has to be shown anew.
enum class Changed { nothing, cursor, view };

enum class CursorStep { left, right, featureLeft, featureRight, first, last, panelUp, panelDown };

class Navigator {
  public:
    // Both must outlive it; the scene shows the state whenever something is asked for.
    Navigator(ExploreState& state, const ExploreScene& scene) : m_state(state), m_scene(scene) {}

    // The place of the way on which the cursor stands.
    std::optional<std::size_t> place() const;
    // The panel whose values are told first.
    std::size_t panel() const { return m_panel; }

    // The pointer, in a panel or in none. A pinned cursor stays.
    Changed pointAt(double km, std::optional<std::size_t> panel);
    // A click holds the cursor there; one where it is held already lets it go.
    Changed click(double km, std::optional<std::size_t> panel);
    // A second click right after: all is shown, and what the first one did to the cursor is undone.
    Changed doubleClick();
    Changed pointerLeft();
    Changed letGo();
    Changed step(CursorStep step);
    // A place chosen elsewhere, in a table or the network: held, and brought into view.
    Changed goTo(const ExplorePlace& place);

    // `milliseconds`: of any steady clock.
    Changed zoom(double km, double factor, long long milliseconds);
    Changed zoomAtCursor(double factor, long long milliseconds); // or in the middle
    Changed scroll(double byKm, long long milliseconds);
    Changed zoomTo(double oneKm, double otherKm);
    Changed showAll();
    Changed goBack();
    // A drag moves what is seen with the pointer; what was seen before it is one step back.
    void beginDrag();
    Changed drag(double byKm);

    // Another way is looked at.
    void wayChanged();

  private:
    Interpolated interpolated() const;
    Changed stand(std::size_t place);
    Changed see(const VisibleStretch& visible);
    std::optional<std::size_t> stepFrom(std::size_t place, CursorStep step) const;
    std::size_t placeInView(CursorStep step) const;
    Changed stepPanel(int by);
    ExploreStretch seen() const { return seenOf(m_state.visible, m_scene.length()); }

    ExploreState& m_state;
    const ExploreScene& m_scene;
    ViewHistory m_history;
    VisibleStretch m_dragged; // from which a drag began
    std::size_t m_panel = 0;
    std::optional<ExplorePlace> m_cursorBeforeClick;
    bool m_wasPinned = false; // before the last click

    // The cursor's place, looked up once.
    struct Known {
        ExplorePlace place;
        const StudyPath* path = nullptr;
        std::optional<std::size_t> index;
    };
    mutable Known m_known;
};

} // namespace korvel
