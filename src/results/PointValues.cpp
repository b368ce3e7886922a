#include "results/PointValues.h"

#include "basic/CheckedArray.h"

#include <algorithm>
#include <cmath>

namespace korvel {

namespace {

constexpr int levels = 3;

void addFlow(std::vector<ValuePlace>& places) {
    for (auto [mean, percentiles] : {std::pair(ValueField::meanValue, ValueField::percentileValues),
                                     std::pair(ValueField::observedMean, ValueField::observedPercentiles)}) {
        places.push_back({mean, 0, 0});
        for (int m = 0; m < levels; ++m)
            places.push_back({percentiles, 0, m});
    }
}

void addSimulated(std::vector<ValuePlace>& places, int series) {
    for (ValueField field : {ValueField::meanValue, ValueField::meanLimit1, ValueField::meanLimit2})
        places.push_back({field, series, 0});
    for (int m = 0; m < levels; ++m) {
        for (ValueField field :
             {ValueField::percentileValues, ValueField::percentileLimit1, ValueField::percentileLimit2})
            places.push_back({field, series, m});
    }
}

void addObserved(std::vector<ValuePlace>& places, int series) {
    places.push_back({ValueField::observedMean, series, 0});
    for (int m = 0; m < levels; ++m)
        places.push_back({ValueField::observedPercentiles, series, m});
}

} // namespace

std::vector<ValuePlace> valuePlacesOfPoint(int determinands) {
    std::vector<ValuePlace> places;
    addFlow(places);
    for (int d = 1; d <= determinands; ++d) {
        for (int series : {d, determinands + d})
            addSimulated(places, series);
        for (int series : {d, determinands + d})
            addObserved(places, series);
        for (int series : {d, determinands + d})
            places.push_back({ValueField::targetValue, series, 0});
    }
    return places;
}

std::vector<int> valuesByCaption(int determinands) {
    std::vector<int> counts = {4, 4};
    for (int d = 1; d <= determinands; ++d)
        counts.insert(counts.end(), {12, 12, 4, 4, 1, 1});
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
