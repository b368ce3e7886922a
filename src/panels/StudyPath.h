// A way down the network, and where the points of every run of a study stand on it.
#pragma once

#include "study/Network.h"
#include "study/Study.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace korvel {

struct PathReach {
    int place = 0; // in the base's ReachPoints
    int number = 0;
    std::string name;
    double from = 0; // km along the way, which begins with 0 at the first reach's upper end
    double length = 0;
    double to() const { return from + length; }
};

// The points of one run on the way, in the order of its file.
struct PathRun {
    std::vector<double> km;
    std::vector<int> points;         // indices in the run
    std::vector<std::size_t> starts; // where each reach's begin; one more at the end
    bool ascending = true;           // the distances never go back
};

// Where at least one run has a point: what a cursor stands on.
struct PathPlace {
    double km = 0;
    std::size_t reach = 0; // in the path
    std::size_t run = 0;   // the first that has a point here: the base, where it has one
    int point = 0;         // that run's
    bool interpolated = false;
};

struct StudyPath {
    std::vector<PathReach> reaches;
    std::vector<PathRun> runs;
    std::vector<PathPlace> places;         // never back along the way
    std::vector<std::vector<int>> pointOf; // [run][place]: the run's point there, 0 for none
    std::vector<std::size_t> features;     // places that have a name, no reach boundaries; one a feature

    double length() const { return reaches.empty() ? 0 : reaches.back().to(); }
};

enum class Interpolated { left, taken };

// `reaches`: places in the base, each next one what the one before runs into.
StudyPath studyPath(const Study& study, const std::vector<int>& reaches);

// The place nearest to a distance. Of several at one distance the first, where the distance asked for lies
// beyond them the last.
std::optional<std::size_t> nearestPlace(const StudyPath& path, double km,
                                        Interpolated interpolated = Interpolated::taken);

enum class Along { up, down };

// From a place to the next one, or the next feature; nothing at the end of the way.
std::optional<std::size_t> nextPlace(const StudyPath& path, std::size_t place, Along direction,
                                     Interpolated interpolated = Interpolated::taken);
std::optional<std::size_t> nextFeature(const StudyPath& path, std::size_t place, Along direction);

// As read, to be shown by shownLine(); "" for none.
const std::string& featureAt(const Study& study, const PathPlace& place);
const std::string& sideAt(const Study& study, const PathPlace& place); // "U/S", "D/S" or ""

// The point (index in the run) that a run has at a place.
std::optional<int> pointAt(const StudyPath& path, std::size_t run, std::size_t place);

} // namespace korvel
