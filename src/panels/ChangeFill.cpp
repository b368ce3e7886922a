#include "panels/ChangeFill.h"

#include <algorithm>

namespace korvel {

namespace {

void add(FilledEdge& edge, double km, double value) {
    edge.km.push_back(km);
    edge.values.push_back(value);
}

class ClearCutting {
  public:
    ClearCutting(const FilledEdge& filled, FilledEdge& part) : m_filled(filled), m_part(part) {}

    // A column of pixels whose points were thinned is clear as a whole where a part of it is.
    void take(ClearStretch stretch) {
        const std::vector<double>& km = m_filled.km;
        stretch = {std::max(stretch.from, km.front()), std::min(stretch.to, km.back())};
        if (!(stretch.from < stretch.to)) return;
        const std::size_t first = pointAfter(stretch.from);
        m_at = pointAfter(stretch.to);
        if (m_filled.thinned) stretch = {km[first - 1], km[m_at - 1]};
        addEnd(stretch.from, first, {0, 1});
        for (std::size_t j = first; j < m_at; ++j)
            if (km[j] < stretch.to) add(m_part, km[j], m_filled.values[j]);
        addEnd(stretch.to, m_at, {1, 0});
    }

  private:
    // Stretches come in order.
    std::size_t pointAfter(double km) const {
        const auto from = m_filled.km.begin() + static_cast<std::ptrdiff_t>(m_at);
        return static_cast<std::size_t>(std::upper_bound(from, m_filled.km.end(), km) - m_filled.km.begin());
    }
    double valueAt(double km, std::size_t after) const {
        const std::size_t before = after - 1;
        if (after == m_filled.km.size() || m_filled.km[before] == km) return m_filled.values[before];
        const double share = (km - m_filled.km[before]) / (m_filled.km[after] - m_filled.km[before]);
        return m_filled.values[before] + (m_filled.values[after] - m_filled.values[before]) * share;
    }
    // Upright, from 0 or to it.
    void addEnd(double km, std::size_t after, std::pair<int, int> shares) {
        const double value = valueAt(km, after);
        add(m_part, km, shares.first * value);
        add(m_part, km, shares.second * value);
    }

    const FilledEdge& m_filled;
    FilledEdge& m_part;
    std::size_t m_at = 0; // the first point after the stretch before
};

bool isNothing(const FilledEdge& edge) {
    return std::ranges::all_of(edge.values, [](double value) { return value == 0; });
}

} // namespace

FilledEdge filledToZero(const VisibleBand& change, FilledSide side) {
    const std::vector<double>& values = side == FilledSide::above ? change.above : change.below;
    const double sign = side == FilledSide::above ? 1 : -1;
    FilledEdge edge;
    edge.thinned = change.thinned;
    edge.km.reserve(values.size());
    edge.values.reserve(values.size());
    for (std::size_t j = 0; j < values.size(); ++j) {
        if (j > 0 && values[j] * values[j - 1] < 0) {
            const double share = values[j - 1] / (values[j - 1] - values[j]);
            add(edge, change.km[j - 1] + (change.km[j] - change.km[j - 1]) * share, 0);
        }
        add(edge, change.km[j], sign * std::max(0.0, values[j] * sign));
    }
    return edge.km.size() < 2 || isNothing(edge) ? FilledEdge() : edge;
}

FilledEdge clearPart(const FilledEdge& filled, const std::vector<ClearStretch>& stretches, double pixelKm) {
    FilledEdge part;
    if (filled.isEmpty() || !std::ranges::is_sorted(filled.km)) return part;
    ClearCutting cutting(filled, part);
    auto next = std::ranges::lower_bound(stretches, filled.km.front(), {}, &ClearStretch::to);
    while (next != stretches.end() && next->from < filled.km.back()) {
        ClearStretch stretch = *next++;
        while (next != stretches.end() && next->from <= stretch.to + pixelKm)
            stretch.to = (next++)->to;
        cutting.take(stretch);
    }
    return isNothing(part) ? FilledEdge() : part;
}

} // namespace korvel
