// Runs as plain lists, made at random, for analyses written anew in the plainest way.
#pragma once

#include "fakes/StudySample.h"

#include <random>

namespace korvel {

constexpr int plainSeries = 5; // flow, BOD and DO, their loads
constexpr int plainStatistics = 4;

struct PlainValue {
    double value = 0, limit1 = 0, limit2 = 0, observed = 0;
};

struct PlainPoint {
    int reach = 0;
    double distance = 0;
    std::string side, label;
    int type = 0;
    PlainValue values[plainSeries][plainStatistics];
    double targets[plainSeries] = {};
};

struct PlainReach {
    int number = 0;
    double length = 0;
    int next = 0;
};

struct PlainRiver {
    std::vector<PlainReach> reaches; // in file order
    std::vector<PlainPoint> points;  // in file order
    int codes[2] = {1, 3};           // statistic codes of BOD and DO

    const PlainReach& reach(int number) const;
    std::vector<PlainPoint> pointsOf(int reach) const;
    std::vector<int> inflows(int reach) const;
};

// Several mouths, confluences of any width, empty reaches, features with two sides, interpolated points,
// equal distances, limits in any order, few different values so that there are ties.
PlainRiver randomRiver(std::mt19937& random);
// The same reaches and most of the points, some values changed.
PlainRiver changedRiver(PlainRiver river, std::mt19937& random);

SharedRun runOf(const PlainRiver& river);

} // namespace korvel
