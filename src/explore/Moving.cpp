#include "explore/Moving.h"

#include <algorithm>

namespace korvel {

namespace {

constexpr double nearest = 2000;   // times the whole path
constexpr long long oneTurn = 600; // milliseconds between turns of one step
constexpr std::size_t mostSteps = 100;

// As wide as asked for, within the path.
VisibleStretch within(double from, double width, double length) {
    if (!(width < length)) return {};
    width = std::max(width, length / nearest);
    from = std::clamp(from, 0.0, length - width);
    return ExploreStretch{from, from + width};
}

} // namespace

ExploreStretch seenOf(const VisibleStretch& visible, double length) {
    return visible.value_or(ExploreStretch{0, length});
}

VisibleStretch zoomedAbout(const VisibleStretch& visible, double length, double km, double factor) {
    const ExploreStretch seen = seenOf(visible, length);
    const double width = std::max((seen.to - seen.from) / factor, length / nearest);
    const double share = seen.to > seen.from ? (km - seen.from) / (seen.to - seen.from) : 0;
    return within(km - share * width, width, length);
}

VisibleStretch scrolledBy(const VisibleStretch& visible, double length, double by) {
    if (!visible) return {};
    return within(visible->from + by, visible->to - visible->from, length);
}

VisibleStretch zoomedTo(const VisibleStretch& visible, double length, double one, double other) {
    if (one == other) return visible;
    const double from = std::clamp(std::min(one, other), 0.0, length);
    const double to = std::clamp(std::max(one, other), 0.0, length);
    return within(from, to - from, length);
}

VisibleStretch scrolledTo(const VisibleStretch& visible, double length, double km) {
    if (!visible) return {};
    if (km < visible->from) return scrolledBy(visible, length, km - visible->from);
    if (km > visible->to) return scrolledBy(visible, length, km - visible->to);
    return visible;
}

void ViewHistory::leave(const VisibleStretch& visible, Move move, long long milliseconds) {
    const bool goesOn = move == Move::turn && m_lastTurn && milliseconds - *m_lastTurn < oneTurn;
    m_lastTurn = move == Move::turn ? std::optional(milliseconds) : std::nullopt;
    if (goesOn || (!m_left.empty() && m_left.back() == visible)) return;
    m_left.push_back(visible);
    if (m_left.size() > mostSteps) m_left.erase(m_left.begin());
}

VisibleStretch ViewHistory::goBack() {
    const VisibleStretch last = m_left.back();
    m_left.pop_back();
    m_lastTurn.reset();
    return last;
}

void ViewHistory::clear() {
    m_left.clear();
    m_lastTurn.reset();
}

} // namespace korvel
