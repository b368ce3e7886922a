// What an Explorer shows: the runs, the path, what is seen of it and where the cursor stands. A value: the
// window's pictures, its tables and its study file are all made from it, and none of them changes it.
#pragma once

#include "drawing/Scale.h"
#include "results/Statistics.h"
#include "study/Network.h"
#include "study/Study.h"

#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace korvel {

// The runs themselves, each less the base, or values by their targets.
enum class ExploreView { values, change, ratio };

// A place in the catchment as results files tell it, so that it means the same in every run.
struct ExplorePlace {
    int reach = 0;       // number
    double distance = 0; // from the reach's upper end, km
    std::string side;    // "U/S", "D/S" or ""
    bool operator==(const ExplorePlace&) const = default;
};

// A stretch of the path, km from its upper end.
struct ExploreStretch {
    double from = 0;
    double to = 0;
    bool operator==(const ExploreStretch&) const = default;
};

// How values are shown, whatever the runs.
struct ShownValues {
    ExploreView view = ExploreView::values;
    Statistic statistic = Statistic::mean;
    ScaleKind scale = ScaleKind::linear;
    bool fromZero = true;
    bool limits = true;
    bool targets = true;
    bool observed = true;
    bool interpolated = true; // points of type 99
    bool operator==(const ShownValues&) const = default;
};

struct ExploreState : ShownValues {
    std::shared_ptr<const Study> study;     // none in an empty Explorer
    std::shared_ptr<const Network> network; // of the base; there when there is a study
    std::set<std::size_t> hidden;           // runs that are not drawn, by their place in the study

    // The reaches, by number, in which the path begins and ends; 0 where there is none.
    int from = 0;
    int to = 0;
    std::optional<ExploreStretch> visible; // none: the whole path

    std::vector<int> series; // that are drawn, in file order

    std::optional<std::set<int>> lowIsBad; // determinands by number; none: those whose names say so
    std::optional<ExplorePlace> cursor;
    bool cursorPinned = false;

    bool isEmpty() const { return study == nullptr; }
    bool isShown(std::size_t run) const { return !hidden.contains(run); }
    // Runs that are drawn, by their place in the study.
    std::vector<std::size_t> shownRuns() const;
};

} // namespace korvel
