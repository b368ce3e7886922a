// What is to be read at a place of a way: the values of every panel and run, and all of it as one line.
#pragma once

#include "analysis/Change.h"
#include "panels/ProfileView.h"
#include "panels/StudyPath.h"

#include <optional>
#include <string>
#include <vector>

namespace korvel {

struct RunReadout {
    std::size_t run = 0;
    std::string name;
    std::optional<double> value; // none where the run has no point here
    bool hasLimits = false;
    double low = 0; // where it has limits
    double high = 0;
    std::optional<PointChange> change; // against the base, where both have a point here
    std::optional<double> target;
    std::optional<double> ratio; // to the target; none where a low value is not above 0
    std::optional<double> observed;
};

struct PanelReadout {
    int series = 0;
    std::string name; // "BOD (Conc)"
    Statistic statistic = Statistic::mean;
    std::vector<RunReadout> runs; // those that are shown, the base first
};

struct Readout {
    double km = 0;       // along the way
    double distance = 0; // from the reach's upper end
    std::string feature; // UTF-8, as all texts here
    std::string side;
    int reach = 0;
    std::string reachName;
    std::vector<PanelReadout> panels;
};

Readout readoutAt(const Study& study, const StudyPath& path, const ProfileView& view, std::size_t place);

// With the names of runs no longer than this.
Readout withShortNames(Readout readout, std::size_t letters);

// "24.3 km · Holcombe STW, D/S · Upper Alder"
std::string placeText(const Readout& readout);
// "BOD (Conc) mean 5.42 (4.9 to 6.0), ALDER2.SGR 3.51 (-35 %)"
std::string panelText(const PanelReadout& panel, ProfileKind kind);
// Place and panels, one after the other.
std::string readoutText(const Readout& readout, ProfileKind kind);

} // namespace korvel
