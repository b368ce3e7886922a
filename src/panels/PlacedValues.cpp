#include "panels/PlacedValues.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace korvel {

namespace {

constexpr std::size_t mostTogether = 4;

std::size_t indexOf(const std::vector<PlacedValue>& placed, std::vector<PlacedValue>::const_iterator at) {
    return static_cast<std::size_t>(at - placed.begin());
}

} // namespace

PlacedValues::PlacedValues(std::vector<PlacedValue> values) : m_placed(std::move(values)) {
    m_values.resize(m_placed.size());
    std::ranges::transform(m_placed, m_values.begin(), &PlacedValue::value);
    m_pyramid = RangePyramid(m_values);
    m_ordered = std::ranges::is_sorted(m_placed, {}, &PlacedValue::from) &&
                std::ranges::is_sorted(m_placed, {}, &PlacedValue::to);
}

PlacedValues::Span PlacedValues::spanOf(const Scale& distance) const {
    const std::size_t begin =
        indexOf(m_placed, std::ranges::lower_bound(m_placed, distance.bottom, {}, &PlacedValue::to));
    const std::size_t end =
        indexOf(m_placed, std::ranges::upper_bound(m_placed, distance.top, {}, &PlacedValue::from));
    return {begin, std::max(begin, end)};
}

std::optional<NumberRange> PlacedValues::rangeInView(const Scale& distance) const {
    if (m_ordered) {
        const Span span = spanOf(distance);
        if (span.begin == span.end) return std::nullopt;
        return m_pyramid.range(m_values, span.begin, span.end);
    }
    std::optional<NumberRange> range;
    for (const std::size_t place : inView(distance, 0).places) {
        if (!range) range = {m_values[place], m_values[place]};
        range = {std::min(range->lowest, m_values[place]), std::max(range->highest, m_values[place])};
    }
    return range;
}

// In growing steps, then by halves.
std::size_t PlacedValues::endOfRoom(std::size_t begin, std::size_t end, double toKm) const {
    std::size_t step = 1, inside = begin;
    while (inside + step < end && m_placed[inside + step].from < toKm) {
        inside += step;
        step *= 2;
    }
    const auto first = m_placed.begin() + static_cast<std::ptrdiff_t>(inside + 1);
    const auto last = m_placed.begin() + static_cast<std::ptrdiff_t>(std::min(inside + step, end));
    if (first >= last) return inside + 1;
    return indexOf(m_placed, std::ranges::lower_bound(first, last, toKm, {}, &PlacedValue::from));
}

void PlacedValues::addSome(const Span& span, std::vector<std::size_t>& places) const {
    const std::size_t before = places.size();
    for (std::size_t k = 0; k + 2 < mostTogether; ++k)
        places.push_back(span.begin + k * (span.end - span.begin) / (mostTogether - 2));
    const NumberRange range = m_pyramid.range(m_values, span.begin, span.end);
    for (const double value : {range.lowest, range.highest})
        places.push_back(m_pyramid.find(m_values, span.begin, span.end, value));
    const auto added = places.begin() + static_cast<std::ptrdiff_t>(before);
    std::sort(added, places.end());
    places.erase(std::unique(added, places.end()), places.end());
}

PlacedValues::InView PlacedValues::inView(const Scale& distance, double room) const {
    InView seen;
    if (!m_ordered) {
        for (std::size_t k = 0; k < m_values.size(); ++k)
            if (m_placed[k].to >= distance.bottom && m_placed[k].from <= distance.top)
                seen.places.push_back(k);
        return seen;
    }
    const Span span = spanOf(distance);
    const double roomKm = room / std::abs(distance.perUnit());
    for (std::size_t begin = span.begin; begin < span.end;) {
        // Rooms begin at multiples of their width, so that what is drawn stays while the view moves.
        const double toKm = (std::floor(m_placed[begin].from / roomKm) + 1) * roomKm;
        const std::size_t end = std::max(begin + 1, endOfRoom(begin, span.end, toKm));
        if (end - begin <= mostTogether)
            for (std::size_t k = begin; k < end; ++k)
                seen.places.push_back(k);
        else
            addSome({begin, end}, seen.places), seen.thinned = true;
        begin = end;
    }
    return seen;
}

} // namespace korvel
