#include "study/ReachPoints.h"

#include <algorithm>

namespace korvel {

ReachPoints::ReachPoints(const ResultsDataSet& results) {
    const std::vector<int>& order = results.reachOrder;
    const int largest = order.empty() ? -1 : *std::ranges::max_element(order);
    m_placeOfNumber.assign(static_cast<std::size_t>(largest + 1), -1);
    for (const int reach : order) {
        int& place = m_placeOfNumber[static_cast<std::size_t>(reach)];
        if (place >= 0) continue;
        place = count();
        m_numbers.push_back(reach);
    }

    m_starts.assign(m_numbers.size() + 1, 0);
    for (int i = 1; i <= results.pointCount; ++i) {
        const int place = placeOf(results.pointReach[i]);
        if (place >= 0) ++m_starts[static_cast<std::size_t>(place) + 1];
    }
    for (std::size_t k = 1; k < m_starts.size(); ++k)
        m_starts[k] += m_starts[k - 1];

    m_points.resize(m_starts.back());
    std::vector<std::size_t> free(m_starts.begin(), m_starts.end() - 1);
    for (int i = 1; i <= results.pointCount; ++i) {
        const int place = placeOf(results.pointReach[i]);
        if (place >= 0) m_points[free[static_cast<std::size_t>(place)]++] = i;
    }
}

int ReachPoints::placeOf(int number) const {
    const auto index = static_cast<std::size_t>(number);
    return number >= 0 && index < m_placeOfNumber.size() ? m_placeOfNumber[index] : -1;
}

std::span<const int> ReachPoints::pointsOf(int place) const {
    const auto k = static_cast<std::size_t>(place);
    return std::span(m_points).subspan(m_starts[k], m_starts[k + 1] - m_starts[k]);
}

} // namespace korvel
