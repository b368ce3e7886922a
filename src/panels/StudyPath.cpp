#include "panels/StudyPath.h"

#include "study/Spot.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace korvel {

namespace {

constexpr int otherReachBoundary = 10;

// Finds the places of one reach: the first run's points, then what the others have beside them. As points of
// two runs match: where distance and side are equal, the first with the first.
class ReachPlaces {
  public:
    ReachPlaces(const Study& study, std::size_t reach, StudyPath& path)
        : m_study(study), m_reach(reach), m_path(path), m_first(path.places.size()) {}

    void take(std::size_t run) {
        const PathRun& points = m_path.runs[run];
        std::size_t j = points.starts[m_reach];
        const std::size_t end = points.starts[m_reach + 1];
        std::size_t place = m_first;
        for (; j < end && place < m_path.places.size() && spotOf(place) == spotOf(run, j); ++j, ++place)
            stand(run, j, place);
        std::unordered_map<Spot, std::vector<std::size_t>, SpotHash> waiting;
        if (j < end)
            for (std::size_t other = m_path.places.size(); other-- > place;)
                waiting[spotOf(other)].push_back(other);
        for (; j < end; ++j) {
            const auto found = waiting.find(spotOf(run, j));
            if (found == waiting.end() || found->second.empty()) {
                add(run, j);
            } else {
                stand(run, j, found->second.back());
                found->second.pop_back();
            }
        }
    }

  private:
    Spot spotOf(std::size_t run, std::size_t j) const {
        const PathRun& points = m_path.runs[run];
        return {points.km[j], m_study.runs()[run].results().pointSide[points.points[j]]};
    }
    Spot spotOf(std::size_t place) const {
        const PathPlace& at = m_path.places[place];
        return {at.km, sideAt(m_study, at)};
    }
    void stand(std::size_t run, std::size_t j, std::size_t place) {
        m_path.pointOf[run][place] = m_path.runs[run].points[j];
    }
    void add(std::size_t run, std::size_t j) {
        const PathRun& points = m_path.runs[run];
        const int point = points.points[j];
        const int type = m_study.runs()[run].results().pointFeatureType[point];
        m_path.places.push_back({points.km[j], m_reach, run, point, type == InterpolatedPointType});
        for (std::vector<int>& ofRun : m_path.pointOf)
            ofRun.push_back(0);
        stand(run, j, m_path.places.size() - 1);
    }

    const Study& m_study;
    std::size_t m_reach;
    StudyPath& m_path;
    std::size_t m_first;
};

PathRun pathRun(const StudyRun& run, const std::vector<PathReach>& reaches) {
    PathRun points;
    points.starts.push_back(0);
    for (const PathReach& reach : reaches) {
        const int place = run.reaches().placeOf(reach.number);
        if (place >= 0)
            for (const int point : run.reaches().pointsOf(place)) {
                const double km = reach.from + run.results().pointDistance[point];
                if (!std::isfinite(km)) continue;
                points.km.push_back(km);
                points.points.push_back(point);
            }
        points.starts.push_back(points.points.size());
    }
    points.ascending = std::ranges::is_sorted(points.km);
    return points;
}

// Files may have distances that go back.
void sortPlaces(StudyPath& path) {
    if (std::ranges::is_sorted(path.places, {}, &PathPlace::km)) return;
    std::vector<std::size_t> order(path.places.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::ranges::stable_sort(order, {}, [&](std::size_t k) { return path.places[k].km; });
    const auto arranged = [&](const auto& list) {
        std::remove_cvref_t<decltype(list)> sorted;
        sorted.reserve(list.size());
        for (const std::size_t k : order)
            sorted.push_back(list[k]);
        return sorted;
    };
    path.places = arranged(path.places);
    for (std::vector<int>& ofRun : path.pointOf)
        ofRun = arranged(ofRun);
}

bool hasFeature(const Study& study, const PathPlace& place) {
    const int type = study.runs()[place.run].results().pointFeatureType[place.point];
    return type != 0 && type != otherReachBoundary && !place.interpolated && !featureAt(study, place).empty();
}

// The side above and the side below a feature count as one.
void findFeatures(const Study& study, StudyPath& path) {
    for (std::size_t k = 0; k < path.places.size(); ++k) {
        const PathPlace& place = path.places[k];
        if (!hasFeature(study, place)) continue;
        if (!path.features.empty()) {
            const PathPlace& last = path.places[path.features.back()];
            if (last.km == place.km && featureAt(study, last) == featureAt(study, place)) continue;
        }
        path.features.push_back(k);
    }
}

} // namespace

StudyPath studyPath(const Study& study, const std::vector<int>& reaches) {
    StudyPath path;
    const StudyRun& base = study.base();
    double from = 0;
    for (const int place : reaches) {
        const int number = base.reaches().number(place);
        const double length = std::max(0.0, base.results().reachLengths[number]);
        path.reaches.push_back({place, number, base.file->reachName(number), from, length});
        from += length;
    }
    for (const StudyRun& run : study.runs())
        path.runs.push_back(pathRun(run, path.reaches));
    path.pointOf.resize(study.runs().size());
    for (std::size_t reach = 0; reach < path.reaches.size(); ++reach) {
        ReachPlaces places(study, reach, path);
        for (std::size_t run = 0; run < study.runs().size(); ++run)
            places.take(run);
    }
    sortPlaces(path);
    findFeatures(study, path);
    return path;
}

std::optional<std::size_t> nearestPlace(const StudyPath& path, double km, Interpolated interpolated) {
    const auto stands = [&](std::size_t k) {
        return interpolated == Interpolated::taken || !path.places[k].interpolated;
    };
    const std::size_t count = path.places.size();
    const auto first = std::ranges::lower_bound(path.places, km, {}, &PathPlace::km);
    std::size_t right = static_cast<std::size_t>(first - path.places.begin()), left = right;
    while (right < count && !stands(right))
        ++right;
    while (left > 0 && !stands(left - 1))
        --left;
    if (left == 0 && right == count) return std::nullopt;
    if (left == 0) return right;
    if (right == count || km - path.places[left - 1].km < path.places[right].km - km) return left - 1;
    return right;
}

std::optional<std::size_t> nextPlace(const StudyPath& path, std::size_t place, Along direction,
                                     Interpolated interpolated) {
    const std::size_t count = path.places.size();
    for (std::size_t k = place; direction == Along::down ? k + 1 < count : k > 0;) {
        k = direction == Along::down ? k + 1 : k - 1;
        if (interpolated == Interpolated::taken || !path.places[k].interpolated) return k;
    }
    return std::nullopt;
}

std::optional<std::size_t> nextFeature(const StudyPath& path, std::size_t place, Along direction) {
    const std::vector<std::size_t>& features = path.features;
    if (direction == Along::down) {
        const auto next = std::ranges::upper_bound(features, place);
        return next == features.end() ? std::nullopt : std::optional(*next);
    }
    const auto next = std::ranges::lower_bound(features, place);
    return next == features.begin() ? std::nullopt : std::optional(*(next - 1));
}

const std::string& featureAt(const Study& study, const PathPlace& place) {
    return study.runs()[place.run].results().pointLabel[place.point];
}

const std::string& sideAt(const Study& study, const PathPlace& place) {
    return study.runs()[place.run].results().pointSide[place.point];
}

std::optional<int> pointAt(const StudyPath& path, std::size_t run, std::size_t place) {
    const int point = path.pointOf[run][place];
    return point == 0 ? std::nullopt : std::optional(point);
}

} // namespace korvel
