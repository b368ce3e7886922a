#include "publish/LineThinning.h"

#include <algorithm>
#include <array>
#include <utility>

namespace korvel {

namespace {

constexpr double unseen = 3; // twips, a fifth of a pixel

double square(double right, double down) {
    return right * right + down * down;
}

// How far a point lies from the line between two others, squared.
double distanceFrom(const DrawnPoint& from, const DrawnPoint& to, const DrawnPoint& point) {
    const double right = to.x - from.x, down = to.y - from.y, length = square(right, down);
    if (length == 0) return square(point.x - from.x, point.y - from.y);
    const double along = ((point.x - from.x) * right + (point.y - from.y) * down) / length;
    const double nearest = std::clamp(along, 0.0, 1.0);
    return square(point.x - from.x - nearest * right, point.y - from.y - nearest * down);
}

} // namespace

std::vector<DrawnPoint> thinned(const std::vector<DrawnPoint>& points, std::size_t most) {
    if (points.size() <= std::max<std::size_t>(most, 2)) return points;
    if (most < 6) return {points.front(), points.back()};
    const std::size_t stretches = most / 4;
    std::vector<DrawnPoint> some;
    for (std::size_t s = 0; s < stretches; ++s) {
        const auto begin = points.begin() + static_cast<std::ptrdiff_t>(s * points.size() / stretches);
        const auto end = points.begin() + static_cast<std::ptrdiff_t>((s + 1) * points.size() / stretches);
        auto [lowest, highest] =
            std::minmax_element(begin, end, [](const auto& a, const auto& b) { return a.y < b.y; });
        std::array kept = {begin, lowest, highest, end - 1};
        std::ranges::sort(kept);
        for (std::size_t k = 0; k < kept.size(); ++k)
            if (k == 0 || kept[k] != kept[k - 1]) some.push_back(*kept[k]);
    }
    return some;
}

std::vector<DrawnPoint> simplified(const std::vector<DrawnPoint>& points) {
    if (points.size() < 3) return points;
    std::vector<bool> isKept(points.size(), false);
    isKept.front() = isKept.back() = true;
    std::vector<std::pair<std::size_t, std::size_t>> open = {{0, points.size() - 1}};
    while (!open.empty()) {
        const auto [first, last] = open.back();
        open.pop_back();
        double farthest = unseen * unseen;
        std::size_t middle = first;
        for (std::size_t k = first + 1; k < last; ++k) {
            const double distance = distanceFrom(points[first], points[last], points[k]);
            if (distance > farthest) farthest = distance, middle = k;
        }
        if (middle == first) continue;
        isKept[middle] = true;
        open.emplace_back(first, middle);
        open.emplace_back(middle, last);
    }
    std::vector<DrawnPoint> some;
    for (std::size_t k = 0; k < points.size(); ++k)
        if (isKept[k]) some.push_back(points[k]);
    return some;
}

} // namespace korvel
