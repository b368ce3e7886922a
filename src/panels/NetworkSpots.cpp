// What lies where in the picture of the catchment, and what its colours stand for.
#include "panels/NetworkLayout.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace korvel {

namespace {

std::size_t at(int place) {
    return static_cast<std::size_t>(place);
}

Rgb mixed(Rgb a, Rgb b, double share) {
    const auto part = [share](std::uint8_t from, std::uint8_t to) {
        return static_cast<std::uint8_t>(std::lround(from + (to - from) * share));
    };
    return {part(a.red, b.red), part(a.green, b.green), part(a.blue, b.blue)};
}

// By trapezoids; the plain mean where the reach's points have no length between them.
std::optional<double> meanAlong(const RunFile& run, int place, std::span<const double> values) {
    const auto points = run.reaches.pointsOf(place);
    double length = 0, sum = 0, plain = 0;
    for (std::size_t k = 0; k < points.size(); ++k) {
        const double value = values[SeriesValues::at(points[k])];
        plain += value;
        if (k == 0) continue;
        const double gain = run.results.pointDistance[points[k]] - run.results.pointDistance[points[k - 1]];
        if (!(gain > 0)) continue;
        length += gain;
        sum += gain * (value + values[SeriesValues::at(points[k - 1])]) / 2;
    }
    if (points.empty()) return std::nullopt;
    return length > 0 ? sum / length : plain / static_cast<double>(points.size());
}

} // namespace

std::optional<NetworkSpot> spotAt(const NetworkLayout& layout, DrawnPoint at, double within) {
    std::optional<NetworkSpot> nearest;
    double least = within;
    for (const NetworkReach& reach : layout.reaches) {
        const double x = std::clamp(at.x, std::min(reach.from, reach.to), std::max(reach.from, reach.to));
        const double distance = std::hypot(at.x - x, at.y - reach.y);
        if (distance > least || (nearest && distance == least)) continue;
        least = distance;
        const double share = reach.to > reach.from ? (x - reach.from) / (reach.to - reach.from) : 0;
        nearest = {reach.place, share * reach.length};
    }
    return nearest;
}

std::optional<std::size_t> featureAt(const NetworkLayout& layout, DrawnPoint at, double within) {
    std::optional<std::size_t> nearest;
    double least = within;
    for (std::size_t k = 0; k < layout.features.size(); ++k) {
        const DrawnPoint& place = layout.features[k].at;
        const double distance = std::hypot(at.x - place.x, at.y - place.y);
        if (distance > least || (nearest && distance == least)) continue;
        least = distance;
        nearest = k;
    }
    return nearest;
}

std::optional<DrawnPoint> placeOf(const NetworkLayout& layout, const NetworkSpot& spot) {
    if (spot.place < 0 || at(spot.place) >= layout.reaches.size()) return std::nullopt;
    const NetworkReach& reach = layout.reaches[at(spot.place)];
    const double share = reach.length > 0 ? std::clamp(spot.distance / reach.length, 0.0, 1.0) : 0;
    return DrawnPoint{reach.from + share * (reach.to - reach.from), reach.y};
}

std::vector<std::optional<double>> reachMeans(const RunFile& run, int series, Statistic statistic) {
    const SeriesValues values = seriesValues(run.results, series, statistic);
    std::vector<std::optional<double>> means;
    for (int place = 0; place < run.reaches.count(); ++place)
        means.push_back(meanAlong(run, place, values.value));
    return means;
}

Rgb valueColour(double share, Theme theme) {
    constexpr std::array<Rgb, 3> onLight{{{0xA6, 0xCF, 0xE8}, {0x3A, 0x82, 0xBE}, {0x08, 0x2A, 0x5E}}};
    constexpr std::array<Rgb, 3> onDark{{{0x2F, 0x57, 0x80}, {0x5C, 0xA3, 0xD9}, {0xDD, 0xF0, 0xFF}}};
    const auto& steps = theme == Theme::dark ? onDark : onLight;
    const double place = 2 * std::clamp(share, 0.0, 1.0);
    return place < 1 ? mixed(steps[0], steps[1], place) : mixed(steps[1], steps[2], place - 1);
}

} // namespace korvel
