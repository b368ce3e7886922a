#include "explore/rows/MergedPoints.h"

namespace korvel {

MergedPoints::MergedPoints(std::size_t runs, int basePoints)
    : m_runs(runs), m_rowOfBase(at(basePoints) + 1) {}

void MergedPoints::beginReach(std::span<const int> pointsOfBase) {
    m_points.assign(pointsOfBase.size() * m_runs, 0);
    m_next.assign(pointsOfBase.size(), -1);
    m_apart.clear();
    m_first = pointsOfBase.empty() ? -1 : 0;
    for (std::size_t row = 0; row < pointsOfBase.size(); ++row) {
        m_points[row * m_runs] = pointsOfBase[row];
        m_rowOfBase[at(pointsOfBase[row])] = static_cast<int>(row);
        if (row > 0) m_next[row - 1] = static_cast<int>(row);
    }
}

void MergedPoints::addRun(std::size_t run, const RunFile& file, std::span<const int> points,
                          std::span<const int> ofRun) {
    int row = -1;
    for (const int point : points) {
        const int partner = ofRun[at(point)];
        if (partner != 0) {
            row = m_rowOfBase[at(partner)];
        } else if (const int same = joined(run, file, point); same >= 0) {
            row = same;
        } else {
            row = addRow(row);
            m_apart.emplace(Place(file.results.pointDistance[point], file.results.pointSide[point]), row);
        }
        m_points[at(row) * m_runs + run] = point;
    }
}

int MergedPoints::addRow(int after) {
    const int row = static_cast<int>(m_next.size());
    int& link = after < 0 ? m_first : m_next[at(after)];
    const int below = link;
    link = row;
    m_next.push_back(below);
    m_points.resize(m_points.size() + m_runs);
    return row;
}

// A row apart from the base, of the same place, that has no point of this run yet; -1 for none.
int MergedPoints::joined(std::size_t run, const RunFile& file, int point) const {
    if (m_apart.empty()) return -1;
    const Place place(file.results.pointDistance[point], file.results.pointSide[point]);
    const auto [first, end] = m_apart.equal_range(place);
    for (auto each = first; each != end; ++each)
        if (m_points[at(each->second) * m_runs + run] == 0) return each->second;
    return -1;
}

std::vector<int> MergedPoints::rowsInOrder() const {
    std::vector<int> rows;
    rows.reserve(m_next.size());
    for (int row = m_first; row >= 0; row = m_next[at(row)])
        rows.push_back(row);
    return rows;
}

std::size_t MergedPoints::firstRun(int row) const {
    std::size_t run = 0;
    while (point(row, run) == 0)
        ++run;
    return run;
}

} // namespace korvel
