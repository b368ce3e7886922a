// Makes the series of runs along a way from their points.
#pragma once

#include "panels/PathSeries.h"
#include "panels/ProfileView.h"
#include "panels/StudyPath.h"

#include <memory>

namespace korvel {

// A series as a panel has it.
struct WantedSeries {
    int series = 0;
    Statistic statistic = Statistic::mean;
    const ProfileView& view;
};

// May share the way's distances.
PathSeries valuesAlong(const Study& study, const std::shared_ptr<const StudyPath>& path, std::size_t run,
                       const WantedSeries& wanted);
PathSeries changesAlong(const Study& study, const StudyPath& path, std::size_t run,
                        const WantedSeries& wanted);
PathSeries ratiosAlong(const Study& study, const StudyPath& path, std::size_t run,
                       const WantedSeries& wanted);

// What the panel shows of a run at a place; nothing where it has nothing there.
std::optional<double> shownValueAt(const Study& study, const StudyPath& path, std::size_t run,
                                   std::size_t place, const WantedSeries& wanted);

} // namespace korvel
