#include "drawing/LabelSettling.h"

#include "drawing/LabelRoom.h"

#include <algorithm>
#include <cmath>

namespace korvel {

namespace {

class Settling {
  public:
    Settling(const std::vector<LabelRequest>& requests, const LabelStrip& strip, LabelPlaces& places)
        : m_requests(requests), m_strip(strip), m_places(places) {}

    // From left to right; `visit` gives a label its place between those before and those behind.
    template <typename Visit>
    void sweep(Visit visit) {
        setRightEdges();
        LabelEdge edge = LabelEdge::leftOf(m_strip);
        m_left.set(edge, m_strip);
        for (std::size_t k = 0; k < m_requests.size(); ++k) {
            if (m_places[k]) --m_behind;
            m_places[k] = visit(k);
            if (!m_places[k]) continue;
            edge.add(*m_places[k], m_requests[k].width);
            m_left.set(edge, m_strip);
        }
    }

    std::optional<LabelPlace> bestPlace(std::size_t k) const {
        std::optional<LabelPlace> best = m_places[k];
        for (int row = 0; row < m_strip.rows; ++row) {
            const LabelRequest& request = m_requests[k];
            const auto place = leftmostPlace(roomBetween(m_left, m_right[m_behind], row), row, request.at,
                                             request.width, m_strip.clearance());
            if (!place || (!m_places[k] && shift(k, *place) > m_strip.reach)) continue;
            if (!best || cost(k, *place) < cost(k, *best)) best = place;
        }
        return best;
    }

    // A text in the middle under its leader where that goes, otherwise as near to it as it goes.
    LabelPlace centred(std::size_t k) const {
        LabelPlace place = *m_places[k];
        const double width = m_requests[k].width;
        place.left = textNearestTo(place.port - width / 2, roomBetween(m_left, m_right[m_behind], place.row),
                                   place.port, width, m_strip.clearance());
        return place;
    }

    bool has(std::size_t k) const { return m_places[k].has_value(); }

  private:
    void setRightEdges() {
        LabelEdge edge = LabelEdge::mirroredRightOf(m_strip);
        m_behind = 0;
        setRight(edge);
        for (std::size_t k = m_requests.size(); k-- > 0;) {
            if (!m_places[k]) continue;
            edge.addMirrored(*m_places[k]);
            ++m_behind;
            setRight(edge);
        }
    }
    void setRight(const LabelEdge& edge) {
        if (m_behind == m_right.size()) m_right.emplace_back();
        m_right[m_behind].set(edge, m_strip);
    }

    double shift(std::size_t k, const LabelPlace& place) const {
        return std::abs(place.port - m_requests[k].at);
    }
    // A straight leader is worth all rows.
    double cost(std::size_t k, const LabelPlace& place) const {
        const double off = shift(k, place);
        return (off > 0 ? m_strip.rows : 0) + (m_strip.reach > 0 ? off / m_strip.reach : 0) +
               0.01 * place.row;
    }

    const std::vector<LabelRequest>& m_requests;
    const LabelStrip& m_strip;
    LabelPlaces& m_places;
    FreeFrom m_left;
    std::vector<FreeFrom> m_right; // behind the last so many labels
    std::size_t m_behind = 0;
};

} // namespace

void settleLabels(const std::vector<LabelRequest>& requests, const LabelStrip& strip, LabelPlaces& places) {
    Settling settling(requests, strip, places);
    for (int round = 0; round < 3; ++round)
        settling.sweep([&](std::size_t k) { return settling.bestPlace(k); });
    // Several times, since a label that moves makes room for the one before it.
    for (int round = 0; round < 3; ++round)
        settling.sweep([&](std::size_t k) -> std::optional<LabelPlace> {
            if (!settling.has(k)) return {};
            return settling.centred(k);
        });
    settling.sweep([&](std::size_t k) { return settling.has(k) ? places[k] : settling.bestPlace(k); });
}

} // namespace korvel
