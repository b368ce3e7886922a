#include "drawing/Axis.h"

#include <algorithm>
#include <cmath>

namespace korvel {

namespace {

constexpr double epsilon = 1e-6; // of a step

// Powers of ten within the scale, each `every`-th of them.
std::vector<double> decades(const Scale& scale, int every) {
    std::vector<double> found;
    const double last = std::log10(scale.top) + epsilon;
    for (double power = std::ceil(std::log10(scale.bottom) - epsilon); power <= last; power += every)
        found.push_back(std::pow(10, power));
    return found;
}

std::vector<double> decadesWithParts(const Scale& scale) {
    std::vector<double> found;
    const double below = std::pow(10, std::floor(std::log10(scale.bottom) + epsilon));
    for (double decade = below; decade <= scale.top; decade *= 10)
        for (const double factor : {1.0, 2.0, 5.0}) {
            const double value = decade * factor;
            if (value >= scale.bottom * (1 - epsilon) && value <= scale.top * (1 + epsilon))
                found.push_back(value);
        }
    return found;
}

std::vector<double> logarithmicValues(const Scale& scale, double room) {
    const double decade = std::abs(scale.to - scale.from) / std::log10(scale.top / scale.bottom);
    if (decade * std::log10(2.0) >= room) return decadesWithParts(scale);
    return decades(scale, std::max(1, static_cast<int>(std::ceil(room / decade))));
}

} // namespace

double roundStep(const Scale& scale, double room, double least) {
    const double perUnit = std::abs(scale.perUnit());
    double decade = least;
    while (std::isfinite(decade)) {
        for (const double factor : {1.0, 2.0, 5.0})
            if (decade * factor * perUnit >= room) return decade * factor;
        decade *= 10;
    }
    return decade;
}

std::vector<double> multiplesOf(double step, const Scale& scale) {
    std::vector<double> values;
    const double tolerance = step * epsilon;
    for (double k = std::ceil((scale.bottom - tolerance) / step); k * step <= scale.top + tolerance; ++k)
        values.push_back(k * step);
    return values;
}

std::vector<double> tickValues(const Scale& scale, double room) {
    if (scale.kind == ScaleKind::logarithmic) return logarithmicValues(scale, room);
    const double least = std::pow(10, std::floor(std::log10(scale.top - scale.bottom)) - 3);
    return multiplesOf(roundStep(scale, room, least), scale);
}

} // namespace korvel
