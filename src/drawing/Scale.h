// Turns values into places along one direction of a drawing, and back: the distances of an axis, the values
// of a panel. The bottom need not be 0, and places may run either way.
#pragma once

namespace korvel {

enum class ScaleKind { linear, logarithmic };

struct Scale {
    double bottom = 0; // the values at the ends; both above 0 where the scale is logarithmic
    double top = 1;
    double from = 0; // their places
    double to = 0;
    ScaleKind kind = ScaleKind::linear;

    // The length of one unit of a linear scale.
    double perUnit() const { return (to - from) / (top - bottom); }
    // NaN for what has no place: a value that is not above 0 on a logarithmic scale.
    double place(double value) const;
    double value(double place) const;

    bool operator==(const Scale&) const = default;
};

} // namespace korvel
