#include "explore/Navigator.h"

#include <algorithm>

namespace korvel {

std::optional<std::size_t> Navigator::place() const {
    if (!m_state.cursor || m_scene.isEmpty()) return {};
    if (m_known.path != &m_scene.path() || m_known.place != *m_state.cursor)
        m_known = {*m_state.cursor, &m_scene.path(), m_scene.placeOf(*m_state.cursor)};
    return m_known.index;
}

Interpolated Navigator::interpolated() const {
    return m_state.interpolated ? Interpolated::taken : Interpolated::left;
}

Changed Navigator::stand(std::size_t place) {
    if (this->place() == place) return Changed::nothing;
    m_state.cursor = m_scene.placeAt(place);
    m_known = {*m_state.cursor, &m_scene.path(), place};
    return Changed::cursor;
}

Changed Navigator::pointAt(double km, std::optional<std::size_t> panel) {
    if (m_scene.isEmpty() || m_state.cursorPinned) return Changed::nothing;
    const auto place = nearestPlace(m_scene.path(), km, interpolated());
    if (!place) return Changed::nothing;
    const bool otherPanel = panel && *panel != m_panel;
    if (panel) m_panel = *panel;
    const Changed changed = stand(*place);
    return otherPanel ? Changed::cursor : changed;
}

Changed Navigator::click(double km, std::optional<std::size_t> panel) {
    if (m_scene.isEmpty()) return Changed::nothing;
    const auto place = nearestPlace(m_scene.path(), km, interpolated());
    if (!place) return Changed::nothing;
    const bool isHeldHere = m_state.cursorPinned && this->place() == place;
    if (panel) m_panel = *panel;
    m_cursorBeforeClick = m_state.cursor;
    m_wasPinned = m_state.cursorPinned;
    stand(*place);
    m_state.cursorPinned = !isHeldHere;
    return Changed::cursor;
}

Changed Navigator::doubleClick() {
    m_state.cursor = m_cursorBeforeClick;
    m_state.cursorPinned = m_wasPinned;
    return showAll() == Changed::view ? Changed::view : Changed::cursor;
}

Changed Navigator::pointerLeft() {
    if (m_state.cursorPinned || !m_state.cursor) return Changed::nothing;
    m_state.cursor.reset();
    return Changed::cursor;
}

Changed Navigator::letGo() {
    if (!m_state.cursor) return Changed::nothing;
    m_state.cursor.reset();
    m_state.cursorPinned = false;
    return Changed::cursor;
}

Changed Navigator::stepPanel(int by) {
    const int count = static_cast<int>(m_state.series.size());
    const int panel = std::clamp(static_cast<int>(m_panel) + by, 0, std::max(count - 1, 0));
    if (panel == static_cast<int>(m_panel)) return Changed::nothing;
    m_panel = static_cast<std::size_t>(panel);
    return Changed::cursor;
}

// Where a step begins without a cursor: at the end of what is seen.
std::size_t Navigator::placeInView(CursorStep step) const {
    const bool fromLeft = step == CursorStep::right || step == CursorStep::featureRight;
    return nearestPlace(m_scene.path(), fromLeft ? seen().from : seen().to, interpolated()).value_or(0);
}

std::optional<std::size_t> Navigator::stepFrom(std::size_t place, CursorStep step) const {
    const StudyPath& path = m_scene.path();
    switch (step) {
    case CursorStep::left: return nextPlace(path, place, Along::up, interpolated());
    case CursorStep::right: return nextPlace(path, place, Along::down, interpolated());
    case CursorStep::featureLeft: return nextFeature(path, place, Along::up);
    case CursorStep::featureRight: return nextFeature(path, place, Along::down);
    case CursorStep::first: return nearestPlace(path, 0, interpolated());
    case CursorStep::last: return nearestPlace(path, path.length() + 1, interpolated());
    case CursorStep::panelUp:
    case CursorStep::panelDown: break;
    }
    return {};
}

Changed Navigator::step(CursorStep step) {
    if (m_scene.isEmpty() || m_scene.path().places.empty()) return Changed::nothing;
    if (step == CursorStep::panelUp) return stepPanel(-1);
    if (step == CursorStep::panelDown) return stepPanel(1);
    const bool goesToAnEnd = step == CursorStep::first || step == CursorStep::last;
    const auto from = place();
    const auto to = from || goesToAnEnd ? stepFrom(from.value_or(0), step) : placeInView(step);
    if (!to) return Changed::nothing;
    const Changed changed = stand(*to);
    const VisibleStretch before = m_state.visible;
    m_state.visible = scrolledTo(before, m_scene.length(), m_scene.path().places[*to].km);
    return m_state.visible != before ? Changed::view : changed;
}

Changed Navigator::goTo(const ExplorePlace& place) {
    m_state.cursor = place;
    m_state.cursorPinned = true;
    const auto there = this->place();
    if (!there) return Changed::cursor;
    const VisibleStretch before = m_state.visible;
    m_state.visible = scrolledTo(before, m_scene.length(), m_scene.path().places[*there].km);
    return m_state.visible != before ? Changed::view : Changed::cursor;
}

Changed Navigator::see(const VisibleStretch& visible) {
    if (visible == m_state.visible) return Changed::nothing;
    m_state.visible = visible;
    return Changed::view;
}

Changed Navigator::zoom(double km, double factor, long long milliseconds) {
    const VisibleStretch before = m_state.visible;
    const Changed changed = see(zoomedAbout(before, m_scene.length(), km, factor));
    if (changed != Changed::nothing) m_history.leave(before, ViewHistory::Move::turn, milliseconds);
    return changed;
}

Changed Navigator::zoomAtCursor(double factor, long long milliseconds) {
    const auto at = place();
    const double middle = (seen().from + seen().to) / 2;
    return zoom(at ? m_scene.path().places[*at].km : middle, factor, milliseconds);
}

Changed Navigator::scroll(double byKm, long long milliseconds) {
    const VisibleStretch before = m_state.visible;
    const Changed changed = see(scrolledBy(before, m_scene.length(), byKm));
    if (changed != Changed::nothing) m_history.leave(before, ViewHistory::Move::turn, milliseconds);
    return changed;
}

Changed Navigator::zoomTo(double oneKm, double otherKm) {
    const VisibleStretch before = m_state.visible;
    const Changed changed = see(zoomedTo(before, m_scene.length(), oneKm, otherKm));
    if (changed != Changed::nothing) m_history.leave(before, ViewHistory::Move::jump, 0);
    return changed;
}

Changed Navigator::showAll() {
    const VisibleStretch before = m_state.visible;
    const Changed changed = see({});
    if (changed != Changed::nothing) m_history.leave(before, ViewHistory::Move::jump, 0);
    return changed;
}

Changed Navigator::goBack() {
    if (!m_history.canGoBack()) return Changed::nothing;
    return see(m_history.goBack());
}

void Navigator::beginDrag() {
    m_dragged = m_state.visible;
    if (m_dragged) m_history.leave(m_dragged, ViewHistory::Move::jump, 0);
}

Changed Navigator::drag(double byKm) {
    return see(scrolledBy(m_dragged, m_scene.length(), byKm));
}

void Navigator::wayChanged() {
    m_history.clear();
    m_state.visible.reset();
}

} // namespace korvel
