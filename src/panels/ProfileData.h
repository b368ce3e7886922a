// The numbers behind the panels of a way, prepared once so that a frame costs pixels, not points. What is in
// view may change without a new preparation; all else of a view needs one.
#pragma once

#include "panels/PathSeries.h"
#include "panels/PlacedValues.h"
#include "panels/ProfileView.h"
#include "panels/StudyPath.h"

#include <memory>
#include <string>
#include <vector>

namespace korvel {

// Target of equal value from one place to another.
struct TargetRun {
    double from = 0; // km
    double to = 0;
    double target = 0;
    bool operator==(const TargetRun&) const = default;
};

struct ObservedMark {
    double km = 0;
    double value = 0;
    bool operator==(const ObservedMark&) const = default;
};

// One run in one panel.
struct RunInPanel {
    std::size_t run = 0;
    Statistic statistic = Statistic::mean; // runs may judge by different ones
    PathSeries series;
    // Only those in which the run differs from the base: samples and targets are mostly of the river.
    std::vector<TargetRun> targets;
    std::vector<ObservedMark> observed; // never back along the way
    PlacedValues targetsByPlace, observedByPlace;
};

struct PanelData {
    int series = 0;
    Statistic statistic = Statistic::mean;
    std::string title;
    std::string note;             // what must be known to read it, "" for nothing
    std::vector<RunInPanel> runs; // those that are shown
};

struct ProfileData {
    Study study; // shares its runs
    std::shared_ptr<const StudyPath> path;
    ProfileView view;
    std::vector<PanelData> panels;
};

ProfileData profileData(const Study& study, std::shared_ptr<const StudyPath> path, const ProfileView& view);

// Whether data made for one view serve another: only what is in view, and where the scale begins, differ.
bool servesAlso(const ProfileView& made, const ProfileView& wanted);

} // namespace korvel
