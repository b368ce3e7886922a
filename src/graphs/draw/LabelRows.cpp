#include "graphs/draw/LabelRows.h"

#include <algorithm>

namespace korvel {

namespace {

// The order of placing and the side on which a label stands by its leader. Going right with labels to the
// left (or the other way round), no leader can meet a label placed before.
struct Strategy {
    enum class Going { right, left } going;
    // Tried for what finds no place on the first side: at once, at once where the strip ends there, or after
    // all.
    enum class OtherSide { atOnce, atTheEnd, afterwards } otherSide;
};

class LabelPlacer {
  public:
    LabelPlacer(const std::vector<LabelRequest>& requests, const LabelStrip& strip, Strategy strategy)
        : m_requests(requests), m_strip(strip), m_strategy(strategy), m_places(requests.size()) {}

    std::vector<std::optional<LabelPlace>> place() {
        // The required ones take the deepest rows, so that leaders still pass above them.
        for (std::size_t k = m_requests.size(); k-- > 0;)
            if (m_requests[k].required) placeRequired(k);
        for (std::size_t n = 0; n < m_requests.size(); ++n) {
            const std::size_t k = goingRight() ? n : m_requests.size() - 1 - n;
            if (m_places[k] || placeFromTop(k)) continue;
            if (triesOtherSide(k)) placeOnOtherSide(k);
        }
        // Labels that move up make room for others.
        do
            placeRest();
        while (lift());
        centreWhereFree();
        return std::move(m_places);
    }

  private:
    bool goingRight() const { return m_strategy.going == Strategy::Going::right; }
    double onFirstSide(std::size_t k) const { return goingRight() ? toTheLeft(k) : toTheRight(k); }
    double onOtherSide(std::size_t k) const { return goingRight() ? toTheRight(k) : toTheLeft(k); }
    bool triesOtherSide(std::size_t k) const {
        if (m_strategy.otherSide != Strategy::OtherSide::atTheEnd)
            return m_strategy.otherSide == Strategy::OtherSide::atOnce;
        const double reach = m_strip.gap + m_requests[k].width;
        return goingRight() ? m_requests[k].at - reach < m_strip.left
                            : m_requests[k].at + reach > m_strip.right;
    }
    double toTheLeft(std::size_t k) const {
        return clamped(k, m_requests[k].at - m_strip.gap - m_requests[k].width);
    }
    double toTheRight(std::size_t k) const { return clamped(k, m_requests[k].at + m_strip.gap); }
    double clamped(std::size_t k, double left) const {
        return std::max(m_strip.left, std::min(left, m_strip.right - m_requests[k].width));
    }

    double centred(std::size_t k) const { return clamped(k, m_requests[k].at - m_requests[k].width / 2); }

    bool covers(double left, double width, double x) const {
        return x > left - m_strip.gap / 2 && x < left + width + m_strip.gap / 2;
    }
    bool overlap(double left, double width, std::size_t other) const {
        const double otherLeft = m_places[other]->left;
        return left < otherLeft + m_requests[other].width + m_strip.gap &&
               otherLeft < left + width + m_strip.gap;
    }

    bool clearOf(std::size_t k, LabelPlace place, std::size_t other) const {
        const LabelPlace& placed = *m_places[other];
        const double width = m_requests[k].width;
        if (placed.row == place.row) return !overlap(place.left, width, other);
        if (placed.row > place.row) return !covers(place.left, width, m_requests[other].at);
        return !covers(placed.left, m_requests[other].width, m_requests[k].at);
    }

    bool fits(std::size_t k, LabelPlace place) const {
        for (std::size_t other = 0; other < m_places.size(); ++other)
            if (other != k && m_places[other] && !clearOf(k, place, other)) return false;
        return true;
    }

    bool tryAt(std::size_t k, int row, double left) {
        if (!fits(k, {row, left})) return false;
        m_places[k] = {row, left};
        return true;
    }

    bool placeFromTop(std::size_t k) {
        for (int row = 0; row < m_strip.rows; ++row)
            if (tryAt(k, row, onFirstSide(k))) return true;
        return false;
    }
    bool placeOnOtherSide(std::size_t k) {
        for (int row = m_strip.rows - 1; row >= 0; --row)
            if (tryAt(k, row, onOtherSide(k))) return true;
        return false;
    }
    void placeRest() {
        for (std::size_t k = 0; k < m_requests.size(); ++k)
            if (!m_places[k]) placeFromTop(k) || placeOnOtherSide(k);
    }
    // Where nothing is free a required label still takes a row of its own.
    void placeRequired(std::size_t k) {
        for (int row = m_strip.rows - 1; row >= 0; --row)
            if (tryAt(k, row, toTheLeft(k)) || tryAt(k, row, toTheRight(k))) return;
        m_places[k] = {m_strip.rows, toTheLeft(k)};
    }

    // Moves labels to the first row on which they are clear of all others.
    bool lift() {
        bool moved = false;
        for (std::size_t k = 0; k < m_places.size(); ++k)
            if (m_places[k]) moved |= lift(k);
        return moved;
    }
    bool lift(std::size_t k) {
        for (int row = 0; row < m_places[k]->row; ++row)
            if (tryAt(k, row, toTheLeft(k)) || tryAt(k, row, toTheRight(k))) return true;
        return false;
    }

    // Labels beside their leaders leave most room; under their leaders they are easiest to read.
    // Back and forth, since a label that moves makes room for its neighbour.
    void centreWhereFree() {
        for (std::size_t k = m_places.size(); k-- > 0;)
            centre(k);
        for (std::size_t k = 0; k < m_places.size(); ++k)
            centre(k);
    }
    void centre(std::size_t k) {
        if (m_places[k]) tryAt(k, m_places[k]->row, centred(k));
    }

    const std::vector<LabelRequest>& m_requests;
    const LabelStrip& m_strip;
    Strategy m_strategy;
    std::vector<std::optional<LabelPlace>> m_places;
};

// How unevenly the axis is labelled: the squares of the gaps between neighbouring labels. Few labels, and
// many on one spot, both give much.
double unevenness(const std::vector<LabelRequest>& requests, const LabelStrip& strip,
                  const std::vector<std::optional<LabelPlace>>& places) {
    double sum = 0, previous = strip.left;
    const auto addGap = [&](double at) {
        sum += (at - previous) * (at - previous);
        previous = at;
    };
    for (std::size_t k = 0; k < places.size(); ++k)
        if (places[k]) addGap(requests[k].at);
    addGap(strip.right);
    return sum;
}

} // namespace

std::vector<std::optional<LabelPlace>> placeLabels(const std::vector<LabelRequest>& requests,
                                                   const LabelStrip& strip) {
    using enum Strategy::OtherSide;
    std::vector<std::optional<LabelPlace>> best(requests.size());
    for (const auto going : {Strategy::Going::right, Strategy::Going::left})
        for (const auto otherSide : {atOnce, atTheEnd, afterwards}) {
            auto places = LabelPlacer(requests, strip, {going, otherSide}).place();
            if (unevenness(requests, strip, places) < unevenness(requests, strip, best))
                best = std::move(places);
        }
    return best;
}

} // namespace korvel
