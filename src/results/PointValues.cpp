#include "results/PointValues.h"

#include "basic/CheckedArray.h"
#include "results/Statistics.h"

#include <algorithm>
#include <cmath>

namespace korvel {

namespace {

using statistics::table;

void addValues(std::vector<ValuePlace>& places, int series) {
    for (const StatisticFacts& each : table)
        places.push_back({each.value, series, each.level});
}

void addObserved(std::vector<ValuePlace>& places, int series) {
    for (const StatisticFacts& each : table)
        places.push_back({each.observed, series, each.level});
}

void addValuesWithLimits(std::vector<ValuePlace>& places, int series) {
    for (const StatisticFacts& each : table)
        for (const ValueField field : {each.value, each.limit1, each.limit2})
            places.push_back({field, series, each.level});
}

} // namespace

std::vector<ValuePlace> valuePlacesOfPoint(int determinands) {
    std::vector<ValuePlace> places;
    addValues(places, 0);
    addObserved(places, 0);
    for (int d = 1; d <= determinands; ++d) {
        for (int series : {d, determinands + d})
            addValuesWithLimits(places, series);
        for (int series : {d, determinands + d})
            addObserved(places, series);
        for (int series : {d, determinands + d})
            places.push_back({ValueField::targetValue, series, 0});
    }
    return places;
}

std::vector<int> valuesByCaption(int determinands) {
    constexpr int single = static_cast<int>(table.size()), withLimits = 3 * single;
    std::vector<int> counts = {single, single};
    for (int d = 1; d <= determinands; ++d)
        counts.insert(counts.end(), {withLimits, withLimits, single, single, 1, 1});
    return counts;
}

PointValues::PointValues(ValueStore& store, int determinands) : m_store(store) {
    for (const ValuePlace& place : valuePlacesOfPoint(determinands))
        m_columns.push_back(store.column(place.field, place.series, place.level).data());
    m_rows.resize(rows * m_columns.size());
}

std::span<double> PointValues::nextPoint(int index) {
    const std::size_t point = checkedOffset(index, 0, ValueStore::points - 1);
    if (m_count > 0 && point % rows == 0) write();
    if (m_count == 0) m_first = point;
    const auto row = std::span(m_rows).subspan(m_count * m_columns.size(), m_columns.size());
    std::ranges::fill(row, notReadYet);
    ++m_count;
    return row;
}

void PointValues::write() {
    if (m_count == 0) return;
    m_store.markWritten();
    for (std::size_t k = 0; k < m_columns.size(); ++k) {
        double* column = m_columns[k] + m_first;
        const double* value = m_rows.data() + k;
        for (std::size_t row = 0; row + 1 < m_count; ++row, value += m_columns.size())
            column[row] = *value;
        if (!std::isnan(*value)) column[m_count - 1] = *value;
    }
    m_count = 0;
}

} // namespace korvel
