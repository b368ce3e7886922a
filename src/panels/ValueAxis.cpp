#include "panels/ValueAxis.h"

#include "basic/Numbers.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace korvel {

namespace {

constexpr double mostPlain = 1e6; // from here on, and below the least decimals, powers of ten are shown
constexpr int mostDecimals = 5;
constexpr double leastPlain = 1e-4;
constexpr double noise = 1e-9; // of the size of numbers: what differs by less is one number

int decimalsOf(double step) {
    return std::max(0, -static_cast<int>(std::floor(std::log10(step) + 1e-6)));
}

std::string fixed(double value, int decimals) {
    return formatPattern(value,
                         decimals > 0 ? "0." + std::string(static_cast<std::size_t>(decimals), '0') : "0");
}

int powerOf(double value) {
    return static_cast<int>(std::floor(std::log10(value) + 1e-9));
}

// The numbers of a linear axis: all with the same decimals, of one power of ten where that is shown.
void nameLinearTicks(Axis& axis, double step) {
    const double largest = std::max(std::abs(axis.scale.bottom), std::abs(axis.scale.top));
    const bool plain = largest < mostPlain && decimalsOf(step) <= mostDecimals;
    const int power = plain ? 0 : powerOf(largest);
    const double unit = std::pow(10, power);
    const int decimals = decimalsOf(step / unit);
    for (AxisTick& tick : axis.ticks) {
        const bool zero = std::abs(tick.value) < step / 2;
        tick.text = plain || zero ? fixed(zero ? 0 : tick.value, plain ? decimals : 0)
                                  : fixed(tick.value / unit, decimals) + "E" + std::to_string(power);
    }
}

std::string logarithmicText(double value) {
    const int power = powerOf(value);
    if (value < mostPlain && value > leastPlain * 0.999) return fixed(value, std::max(0, -power));
    return fixed(value / std::pow(10, power), 0) + "E" + std::to_string(power);
}

void nameLogarithmicTicks(Axis& axis, const std::vector<double>& values) {
    for (const double value : values)
        axis.ticks.push_back({value, axis.scale.place(value), logarithmicText(value)});
}

double stepOf(const Scale& scale, double room) {
    const double least = std::pow(10, std::floor(std::log10(scale.top - scale.bottom)) - 3);
    return roundStep(scale, room, least);
}

NumberRange linearRange(std::optional<NumberRange> values, AxisBegin begin) {
    if (!values) return {0, 1};
    NumberRange range = *values;
    if (begin == AxisBegin::atZero) range = {std::min(range.lowest, 0.0), std::max(range.highest, 0.0)};
    const double size = std::max(std::abs(range.lowest), std::abs(range.highest));
    if (size < 1e-300) return {0, 1};
    if (range.highest - range.lowest > noise * size) return range;
    return {range.lowest - size / 10, range.highest + size / 10};
}

Axis linearAxisOf(const NumberRange& range, const AxisRoom& room, double tickRoom) {
    Axis axis{{range.lowest, range.highest, room.from, room.to}, {}};
    const double step = stepOf(axis.scale, tickRoom);
    // Half a step is round enough for an end.
    axis.scale.bottom = std::floor(range.lowest / step * 2 + 1e-6) * step / 2;
    axis.scale.top = std::ceil(range.highest / step * 2 - 1e-6) * step / 2;
    for (const double value : multiplesOf(step, axis.scale))
        axis.ticks.push_back({value, axis.scale.place(value), ""});
    nameLinearTicks(axis, step);
    return axis;
}

// One number tells no scale: then they may stand nearer to each other.
Axis linearAxis(const NumberRange& range, const AxisRoom& room) {
    const double tickRoom = std::min(room.tick, std::abs(room.to - room.from));
    Axis axis = linearAxisOf(range, room, tickRoom);
    for (double share = 0.75; axis.ticks.size() < 2 && share > 0.1; share -= 0.25)
        axis = linearAxisOf(range, room, share * tickRoom);
    return axis;
}

// The nearest of 1, 2 and 5 times a power of ten that is not above the value, or not below it.
double roundedDown(double value) {
    const double decade = std::pow(10, powerOf(value));
    for (const double factor : {5.0, 2.0})
        if (decade * factor <= value * (1 + noise)) return decade * factor;
    return decade;
}
double roundedUp(double value) {
    const double decade = std::pow(10, powerOf(value));
    for (const double factor : {1.0, 2.0, 5.0})
        if (decade * factor >= value * (1 - noise)) return decade * factor;
    return decade * 10;
}

Axis logarithmicAxis(const std::optional<NumberRange>& shown, const AxisRoom& room) {
    NumberRange range{1, 10};
    if (shown) range = {roundedDown(shown->lowest), roundedUp(shown->highest)};
    if (range.lowest >= range.highest * (1 - noise))
        range = {roundedDown(range.lowest / 2), range.highest * 2};
    Axis axis{{range.lowest, range.highest, room.from, room.to, ScaleKind::logarithmic}, {}};
    std::vector<double> values = tickValues(axis.scale, room.tick);
    // One number tells no scale: the ends are round ones, too.
    if (values.size() < 2) values = {range.lowest, range.highest};
    nameLogarithmicTicks(axis, values);
    return axis;
}

} // namespace

Axis axisOf(const Scale& scale, double room) {
    Axis axis{scale, {}};
    if (scale.kind == ScaleKind::logarithmic) {
        nameLogarithmicTicks(axis, tickValues(scale, room));
        return axis;
    }
    const double step = stepOf(scale, room);
    for (const double value : multiplesOf(step, scale))
        axis.ticks.push_back({value, scale.place(value), ""});
    nameLinearTicks(axis, step);
    return axis;
}

Axis valueAxis(const std::optional<NumberRange>& values, ScaleKind kind, AxisBegin begin,
               const AxisRoom& room) {
    if (kind == ScaleKind::logarithmic) return logarithmicAxis(values, room);
    return linearAxis(linearRange(values, begin), room);
}

Axis kmAxis(double from, double to, const AxisRoom& room) {
    Axis axis{{from, to, room.from, room.to}, {}};
    const double step = stepOf(axis.scale, room.tick);
    for (const double value : multiplesOf(step, axis.scale))
        axis.ticks.push_back({value, axis.scale.place(value), fixed(value, decimalsOf(step))});
    return axis;
}

} // namespace korvel
