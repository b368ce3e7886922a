#include "analysis/PlainRiver.h"

#include <algorithm>

namespace korvel {

namespace {

int draw(std::mt19937& random, int low, int high) {
    return std::uniform_int_distribution<int>(low, high)(random);
}

bool oneIn(std::mt19937& random, int many) {
    return draw(random, 1, many) == 1;
}

// Mostly from a few numbers.
double amount(std::mt19937& random) {
    if (oneIn(random, 8)) return 0;
    return oneIn(random, 3) ? draw(random, 1, 9999) / 1000.0 : draw(random, 1, 6);
}

PlainValue randomValue(std::mt19937& random) {
    PlainValue value;
    value.value = amount(random);
    value.observed = oneIn(random, 3) ? amount(random) : 0;
    switch (draw(random, 0, 3)) {
    case 0: break; // none
    case 1: value.limit1 = value.limit2 = amount(random); break;
    default:
        value.limit1 = value.value - amount(random) / 4;
        value.limit2 = value.value + amount(random) / 4;
        if (oneIn(random, 3)) std::swap(value.limit1, value.limit2);
        if (oneIn(random, 9)) value.value = 9;
    }
    return value;
}

void setValues(PlainPoint& point, std::mt19937& random) {
    for (auto& series : point.values)
        for (PlainValue& value : series)
            value = randomValue(random);
    for (double& target : point.targets)
        target = oneIn(random, 3) ? draw(random, -1, 0) : amount(random);
}

PlainPoint randomPoint(int reach, double distance, std::mt19937& random) {
    static constexpr int types[] = {0, 1, 2, 3, 5, 7, 10, 99, 99};
    PlainPoint point;
    point.reach = reach;
    point.distance = distance;
    point.type = types[draw(random, 0, 8)];
    point.label = "P" + std::to_string(draw(random, 1, 99));
    setValues(point, random);
    return point;
}

void addPoints(PlainRiver& river, int reach, std::mt19937& random) {
    double distance = draw(random, 0, 1);
    for (int k = oneIn(random, 5) ? 0 : draw(random, 1, 7); k > 0; --k) {
        PlainPoint point = randomPoint(reach, distance, random);
        if (oneIn(random, 3)) {
            point.side = "U/S";
            river.points.push_back(point);
            setValues(point, random);
            point.side = oneIn(random, 5) ? "" : "D/S";
        }
        river.points.push_back(point);
        distance += oneIn(random, 9) ? -0.5 : draw(random, 0, 3) / 2.0;
    }
}

// Loads of a walk downstream: what is never below 0.
void makeLoadsSound(PlainRiver& river) {
    for (PlainPoint& point : river.points)
        for (const int series : {0, 3, 4})
            point.values[series][0].value = std::abs(point.values[series][0].value);
}

} // namespace

const PlainReach& PlainRiver::reach(int number) const {
    return *std::ranges::find(reaches, number, &PlainReach::number);
}

std::vector<PlainPoint> PlainRiver::pointsOf(int reach) const {
    std::vector<PlainPoint> found;
    std::ranges::copy_if(points, std::back_inserter(found),
                         [&](const PlainPoint& point) { return point.reach == reach; });
    return found;
}

std::vector<int> PlainRiver::inflows(int reach) const {
    std::vector<int> found;
    for (const PlainReach& each : reaches)
        if (each.next == reach && reach != 0) found.push_back(each.number);
    return found;
}

PlainRiver randomRiver(std::mt19937& random) {
    static constexpr int codes[] = {1, 2, 3, 6, 5};
    PlainRiver river;
    const int count = draw(random, 1, 9);
    for (int number = 1; number <= count; ++number) {
        // Into a later one, so that there is no circle; 0 and 77 are mouths.
        const int next = number == count || oneIn(random, 6)
                             ? (oneIn(random, 3) ? 77 : 0)
                             : draw(random, number + 1, std::min(count, number + 3));
        river.reaches.push_back({number, draw(random, 1, 8) / 2.0, next});
    }
    std::ranges::shuffle(river.reaches, random);
    for (const PlainReach& reach : river.reaches)
        addPoints(river, reach.number, random);
    if (oneIn(random, 3)) addPoints(river, 55, random); // no such reach
    if (oneIn(random, 4)) std::ranges::shuffle(river.points, random);
    for (int& code : river.codes)
        code = codes[draw(random, 0, 4)];
    makeLoadsSound(river);
    return river;
}

PlainRiver changedRiver(PlainRiver river, std::mt19937& random) {
    std::erase_if(river.points, [&](const PlainPoint&) { return oneIn(random, 6); });
    for (PlainPoint& point : river.points) {
        if (oneIn(random, 2)) setValues(point, random);
        if (oneIn(random, 8)) point.type = 99;
        if (oneIn(random, 9)) point.side = "U/S";
    }
    std::ranges::shuffle(river.reaches, random);
    makeLoadsSound(river);
    return river;
}

SharedRun runOf(const PlainRiver& river) {
    using enum ValueField;
    ResultsFileBuilder file;
    file.mode(2).determinand(1, "BOD", river.codes[0]).determinand(2, "DO", river.codes[1]);
    for (const PlainReach& reach : river.reaches)
        file.reach(reach.number, "R" + std::to_string(reach.number), reach.length, reach.next);
    for (const PlainPoint& point : river.points) {
        file.point(point.reach, point.distance, point.side + " " + point.label, point.type).setAll(0);
        for (int c = 0; c < plainSeries; ++c) {
            for (int s = 0; s < plainStatistics; ++s) {
                const PlainValue& value = point.values[c][s];
                const int level = s == 0 ? 0 : s - 1;
                file.set(s == 0 ? meanValue : percentileValues, c, value.value, level);
                file.set(s == 0 ? observedMean : observedPercentiles, c, value.observed, level);
                if (c == 0) continue;
                file.set(s == 0 ? meanLimit1 : percentileLimit1, c, value.limit1, level);
                file.set(s == 0 ? meanLimit2 : percentileLimit2, c, value.limit2, level);
            }
            if (c > 0) file.set(targetValue, c, point.targets[c]);
        }
    }
    return runOf(file);
}

} // namespace korvel
