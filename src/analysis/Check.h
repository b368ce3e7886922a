// What a careful modeller would want to know of a results file before trusting it. None of it is a refusal.
#pragma once

#include "study/RunFile.h"

#include <cstddef>
#include <limits>
#include <optional>
#include <string>
#include <vector>

namespace korvel {

enum class CheckKind {
    percentileOrder,
    meanAboveP99,
    limits,
    distanceOrder,
    distanceBeyondReach,
    reachWithoutPoints,
    nextWithoutLine,
    circle,
    confluence,
    observedWithoutTarget,
    targetWithoutStation,
    labelTwice,
    negative
};

inline constexpr int checkKinds = 13;
inline constexpr std::size_t FirstPlaces = 10;
inline constexpr std::size_t AllPlaces = std::numeric_limits<std::size_t>::max();

std::string_view nameOf(CheckKind kind); // "percentile_order"

// A part is none where the place has no such part.
struct CheckPlace {
    std::optional<int> reach;
    std::optional<double> distance;
    std::optional<std::string> feature;
    std::optional<std::string> series;
    std::string what; // a sentence
};

struct CheckFinding {
    CheckKind kind = CheckKind::percentileOrder;
    int count = 0;
    std::vector<CheckPlace> places; // no more than asked for
};

// In the kinds' order; kinds without findings are left out.
std::vector<CheckFinding> checkRun(const RunFile& run, std::size_t places = FirstPlaces);

} // namespace korvel
