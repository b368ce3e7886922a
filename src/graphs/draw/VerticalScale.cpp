#include "graphs/draw/VerticalScale.h"

#include "basic/Numbers.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace korvel {

namespace {

// Beyond these a tick's text has a power of ten instead of all its digits.
constexpr int mostDecimals = 8;
constexpr int mostZeros = 9;

std::string patternOf(int decimals) {
    return decimals > 0 ? "0." + std::string(static_cast<std::size_t>(decimals), '0') : "0";
}

// T and the exponent for the largest value, whatever comes of it.
VerticalScale roundedUp(double largest) {
    double m = largest;
    int e = 0;
    for (; m < 0.1; --e)
        m *= 10;
    for (; m > 10; ++e)
        m /= 10;
    double top = std::floor(m + 1) * std::pow(10.0, e);
    if (largest < 0.75 * top) {
        --e;
        if (largest > 0.55 * top)
            top = 0.8 * top;
        else if (largest > 0.35 * top)
            top = 0.6 * top;
        else if (largest > 0.25 * top)
            top = 0.4 * top;
        else
            top = 0.3 * top;
    }
    return {top, e};
}

bool canBeDivided(const VerticalScale& scale) {
    return std::isnormal(scale.top) && std::isnormal(std::pow(10.0, scale.exponent));
}

} // namespace

VerticalScale verticalScale(double largest) {
    if (!(largest > 0) || !std::isfinite(largest)) return {};
    const VerticalScale scale = roundedUp(largest);
    return canBeDivided(scale) ? scale : VerticalScale{};
}

double tickStep(const VerticalScale& scale, double height, double room) {
    double step = std::pow(10.0, scale.exponent);
    while (step / scale.top * height < room && step <= scale.top)
        step *= 2;
    return step;
}

double tickRoom(const VerticalScale& scale, double textHeight, int largeTextMode) {
    return textHeight * (1 + 0.06 * largeTextMode + 0.02 * std::abs(scale.exponent));
}

int lastTick(const VerticalScale& scale, double step) {
    int last = 0;
    while (step * (last + 1) <= scale.top * 1.0001)
        ++last;
    return last;
}

std::string tickText(const VerticalScale& scale, double value) {
    if (-scale.exponent <= mostDecimals && scale.exponent <= mostZeros)
        return formatPattern(value, patternOf(std::max(0, -scale.exponent)));
    if (value == 0) return "0";
    const int power = static_cast<int>(std::floor(std::log10(scale.top)));
    const int decimals = std::max(0, power - scale.exponent);
    return formatPattern(value / std::pow(10.0, power), patternOf(decimals)) + "E" + std::to_string(power);
}

} // namespace korvel
