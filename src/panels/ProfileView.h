// What is looked at along a way: a panel for each series, and how.
#pragma once

#include "drawing/Scale.h"
#include "results/Statistics.h"

#include <cstddef>
#include <set>
#include <vector>

namespace korvel {

// Values as they are; each run less the base; values by their targets, as they are judged.
enum class ProfileKind { values, change, ratio };

struct ProfileView {
    std::vector<int> series;
    Statistic statistic = Statistic::mean; // of values and changes; a ratio has the judged statistic
    ProfileKind kind = ProfileKind::values;
    ScaleKind scale = ScaleKind::linear; // changes are always linear
    bool fromZero = true;
    bool limits = true;
    bool targets = true;
    bool observed = true;
    bool interpolated = true; // points of type 99, too
    double fromKm = 0;        // what is in view; all of the way where `toKm` isn't beyond it
    double toKm = 0;
    std::set<std::size_t> hidden; // runs
    std::set<int> lowIsBad;       // determinands

    bool shows(std::size_t run) const { return !hidden.contains(run); }
    bool operator==(const ProfileView&) const = default;
};

} // namespace korvel
