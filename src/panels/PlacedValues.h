// Values that each hold from one distance to another, or at one: targets and samples along a way. Asked for
// by what is in view, so that a frame costs pixels, not values.
#pragma once

#include "drawing/Scale.h"
#include "panels/RangePyramid.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace korvel {

struct PlacedValue {
    double from = 0; // km
    double to = 0;
    double value = 0;
};

class PlacedValues {
  public:
    PlacedValues() = default;
    explicit PlacedValues(std::vector<PlacedValue> values);

    const PlacedValue& operator[](std::size_t place) const { return m_placed[place]; }

    // Of those in view; nothing where none is.
    std::optional<NumberRange> rangeInView(const Scale& distance) const;

    struct InView {
        std::vector<std::size_t> places; // in the list that this was made from
        bool thinned = false;            // there are more
    };
    // Where more lie within `room` (units of the scale's places) than can be told apart, the lowest, the
    // highest and some between stand for all.
    InView inView(const Scale& distance, double room) const;

  private:
    struct Span {
        std::size_t begin = 0, end = 0;
    };
    Span spanOf(const Scale& distance) const;
    std::size_t endOfRoom(std::size_t begin, std::size_t end, double toKm) const;
    void addSome(const Span& span, std::vector<std::size_t>& places) const;

    std::vector<PlacedValue> m_placed;
    std::vector<double> m_values; // of them
    RangePyramid m_pyramid;
    bool m_ordered = true; // neither beginnings nor ends go back
};

} // namespace korvel
