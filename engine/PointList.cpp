#include "engine/PointList.h"

#include <algorithm>

namespace korvel::engine {

namespace {

constexpr double near =
    0.05; // share of the spacing: an interpolated point closer to another point is left out

Point headPoint(const Reach& reach) {
    if (reach.headFlow == 0)
        return {&reach, nullptr, 0, "Start of reach", Side::none, FeatureType::reachBoundary};
    return {&reach, nullptr, 0, "Head of " + reach.name, Side::none, FeatureType::headOfReach};
}

void addFeature(std::vector<Point>& points, const Reach& reach, const Feature& feature) {
    Point point{&reach, &feature, feature.distance, feature.name, Side::none, feature.type};
    if (changesFlow(feature.type)) {
        point.side = Side::upstream;
        points.push_back(point);
        point.side = Side::downstream;
    }
    points.push_back(point);
}

// Features are in river order, so that those of one reach stand together.
std::pair<std::size_t, std::size_t> featuresOf(const Catchment& catchment, const Reach& reach) {
    const auto& features = catchment.features;
    const auto isHere = [&](const Feature& feature) { return feature.reach == reach.number; };
    const auto first = std::find_if(features.begin(), features.end(), isHere);
    const auto last = std::find_if_not(first, features.end(), isHere);
    return {static_cast<std::size_t>(first - features.begin()),
            static_cast<std::size_t>(last - features.begin())};
}

void addInterpolated(std::vector<Point>& points, const Reach& reach, double spacing, double from, double to) {
    const auto first = static_cast<long>(from / spacing);
    for (long step = first; static_cast<double>(step) * spacing < to; ++step) {
        const double distance = static_cast<double>(step) * spacing;
        if (distance - from > near * spacing && to - distance > near * spacing)
            points.push_back({&reach, nullptr, distance, "", Side::none, FeatureType::interpolated});
    }
}

} // namespace

std::vector<Point> pointsOfReach(const Catchment& catchment, const Reach& reach) {
    const double spacing = catchment.settings.spacing;
    std::vector<Point> points{headPoint(reach)};
    const auto [first, last] = featuresOf(catchment, reach);
    for (std::size_t i = first; i < last; ++i) {
        const Feature& feature = catchment.features[i];
        if (spacing > 0) addInterpolated(points, reach, spacing, points.back().distance, feature.distance);
        addFeature(points, reach, feature);
    }
    if (spacing > 0) addInterpolated(points, reach, spacing, points.back().distance, reach.length);
    points.push_back({&reach, nullptr, reach.length, "End of reach", Side::none, FeatureType::reachBoundary});
    return points;
}

} // namespace korvel::engine
