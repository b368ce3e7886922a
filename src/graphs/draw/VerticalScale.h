// The vertical scale of a panel: a round top above its largest value, and the step of its ticks.
#pragma once

#include <string>

namespace korvel {

struct VerticalScale {
    double top = 1;
    int exponent = -1; // ticks are counted in doublings of ten to this power

    bool operator==(const VerticalScale&) const = default;
};

// 0 to 1 for a largest value that is not above 0.
VerticalScale verticalScale(double largest);

// The step of the ticks on a panel of a height, where one tick's label needs some room (the same unit).
double tickStep(const VerticalScale& scale, double height, double room);

// The room for a tick's label of a height: it grows with the number of digits and in the large text mode.
double tickRoom(const VerticalScale& scale, double textHeight, int largeTextMode);

// The k-th tick is step x k; the last is at most the top, rounding errors allowed for.
int lastTick(const VerticalScale& scale, double step);

std::string tickText(const VerticalScale& scale, double value);

} // namespace korvel
