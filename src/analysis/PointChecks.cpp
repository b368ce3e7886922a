#include "analysis/PointChecks.h"

#include "analysis/CheckPlaces.h"
#include "analysis/Judging.h"
#include "basic/Numbers.h"

#include <map>

namespace korvel {

namespace {

bool isObservedAt(const StatisticColumns& columns, int point) {
    return std::ranges::any_of(columns,
                               [point](const SeriesValues& values) { return values.isObserved(point); });
}

bool hasTarget(const StatisticColumns& columns, int point) {
    return columns.front().hasTarget(point); // of all statistics the same
}

struct JudgedColumns {
    int series;
    StatisticColumns columns;
};

std::vector<JudgedColumns> judgedColumns(const RunFile& run) {
    std::vector<JudgedColumns> judged;
    for (const JudgedDeterminand& determinand : judgedDeterminands(run.results, {}))
        judged.push_back({determinand.number, statisticColumns(run, determinand.number)});
    return judged;
}

CheckFinding observedWithoutTarget(const RunFile& run, std::size_t most) {
    FoundPlaces found(most);
    const std::vector<int> points = pointsOfReaches(run);
    for (const auto& [series, columns] : judgedColumns(run)) {
        found.beginSeries(series);
        for (const int point : points)
            if (!hasTarget(columns, point) && isObservedAt(columns, point)) found.take(point);
    }
    CheckFinding finding{CheckKind::observedWithoutTarget, found.count(), {}};
    for (const FoundPlace& place : found.first()) {
        finding.places.push_back(pointPlace(run, place.point, "was observed and has no target"));
        finding.places.back().series = run.results.seriesNames[place.series];
    }
    return finding;
}

bool hasTargetWithoutStation(std::span<const int> points, const StatisticColumns& columns) {
    return std::ranges::any_of(points, [&](int point) { return hasTarget(columns, point); }) &&
           std::ranges::none_of(points, [&](int point) { return isObservedAt(columns, point); });
}

CheckFinding targetWithoutStation(const RunFile& run, std::size_t most) {
    CheckFinding finding{CheckKind::targetWithoutStation, 0, {}};
    const std::vector<JudgedColumns> judged = judgedColumns(run);
    for (int place = 0; place < run.reaches.count(); ++place) {
        for (const auto& [series, columns] : judged) {
            if (!hasTargetWithoutStation(run.reaches.pointsOf(place), columns)) continue;
            if (static_cast<std::size_t>(finding.count++) >= most) continue;
            finding.places.push_back({run.reaches.number(place),
                                      {},
                                      {},
                                      run.results.seriesNames[series],
                                      "has a target and was observed nowhere in the reach"});
        }
    }
    return finding;
}

bool isSamePlace(const ResultsDataSet& results, int i, int j) {
    return results.pointReach[i] == results.pointReach[j] &&
           results.pointDistance[i] == results.pointDistance[j];
}

bool isNamedFeature(const ResultsDataSet& results, int point) {
    const int type = results.pointFeatureType[point];
    return type != 0 && type != InterpolatedPointType && !results.pointLabel[point].empty();
}

} // namespace

std::vector<CheckFinding> checkDistances(const RunFile& run, std::size_t places) {
    const ResultsDataSet& results = run.results;
    FoundPlaces backward(places), beyond(places);
    std::vector<int> before(static_cast<std::size_t>(run.reaches.count()), 0); // by reach
    for (const int point : pointsOfReaches(run)) {
        int& last = before[static_cast<std::size_t>(run.reaches.placeOf(results.pointReach[point]))];
        const double distance = results.pointDistance[point];
        const double length = results.reachLengths[results.pointReach[point]];
        if (last != 0 && distance < results.pointDistance[last]) backward.take(point);
        if (distance - length > 0.01 * length) beyond.take(point);
        last = point;
    }
    std::vector<CheckFinding> findings{{CheckKind::distanceOrder, backward.count(), {}},
                                       {CheckKind::distanceBeyondReach, beyond.count(), {}}};
    for (const FoundPlace& place : backward.first())
        findings[0].places.push_back(pointPlace(run, place.point, "lies above the point before it"));
    for (const FoundPlace& place : beyond.first()) {
        const double length = results.reachLengths[results.pointReach[place.point]];
        findings[1].places.push_back(
            pointPlace(run, place.point, "the reach is " + shortestNumber(length) + " km long"));
    }
    return findings;
}

std::vector<CheckFinding> checkTargets(const RunFile& run, std::size_t places) {
    return {observedWithoutTarget(run, places), targetWithoutStation(run, places)};
}

std::vector<CheckFinding> checkLabels(const RunFile& run, std::size_t places) {
    const ResultsDataSet& results = run.results;
    struct Use {
        int firstPoint = 0;
        int otherPoint = 0; // at another place
    };
    std::map<std::string_view, Use> uses;
    for (const int point : pointsOfReaches(run)) {
        if (!isNamedFeature(results, point)) continue;
        Use& use = uses[results.pointLabel[point]];
        if (use.firstPoint == 0) use.firstPoint = point;
        if (use.otherPoint == 0 && !isSamePlace(results, use.firstPoint, point)) use.otherPoint = point;
    }
    std::map<int, int> twice; // by first point
    for (const auto& [label, use] : uses)
        if (use.otherPoint != 0) twice[use.firstPoint] = use.otherPoint;
    CheckFinding finding{CheckKind::labelTwice, static_cast<int>(twice.size()), {}};
    for (const auto& [first, other] : twice) {
        if (finding.places.size() == places) break;
        finding.places.push_back(pointPlace(run, first,
                                            "has the label of the point in reach " +
                                                std::to_string(results.pointReach[other]) + " at " +
                                                shortestNumber(results.pointDistance[other]) + " km"));
    }
    return {finding};
}

} // namespace korvel
