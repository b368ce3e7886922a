// Where the load at a place comes from: what came in upstream of it, how much of that arrives there, and what
// was lost on the way. An estimate: it is exact only where each loss takes the same share in every draw of
// the model, and where inflow and loss do not happen together between two points.
#pragma once

#include "study/Network.h"

#include <array>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

namespace korvel {

enum class SourceKind { headwater, stream, sewageWorks, industry, abstraction, other, diffuse, startOfReach };

inline constexpr int sourceKinds = 8;

std::string_view nameOf(SourceKind kind); // "sewage works"

struct Contribution {
    SourceKind kind = SourceKind::headwater;
    std::string name;
    int reach = 0;
    std::optional<double> distance; // none for what comes in along a reach or at its start
    double load = 0;                // where it came in
    double arrives = 0;
    std::optional<double> share; // percent of the load at the place; none where that is 0
};

struct Loss {
    std::string name;
    int reach = 0;
    std::optional<double> distance; // none for what is lost along a reach or at its start
    double load = 0;
};

// Where to look: the last point of a reach at or before a distance, or the reach's end.
struct SourcePlace {
    int reach = 0; // number
    std::optional<double> distance;
};

struct LoadSources {
    int reach = 0;
    std::optional<double> distance; // of the point; none in a reach without points
    double load = 0;
    std::vector<Contribution> contributions; // largest arrival first, equal ones as they came about
    std::vector<Loss> losses;                // as they came about
};

// A place that can't be looked at, or a load below 0 upstream of it; in words for the user.
struct SourcesRefused : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// `series` is a load or the flow. The network has no circles. Throws SourcesRefused.
LoadSources sourcesOf(const RunFile& run, const Network& network, int series, const SourcePlace& place);

// The end of the reach at the mouth with the largest load, of equals the first in file order. Nothing without
// reaches.
std::optional<SourcePlace> largestMouth(const RunFile& run, const Network& network, int series);

struct KindSum {
    SourceKind kind = SourceKind::headwater;
    double load = 0;
    double arrives = 0;
    std::optional<double> share;
};

// In the kinds' order, absent ones left out.
std::vector<KindSum> sourcesByKind(const LoadSources& sources);

// What several runs have of the same source; null where a run has none of it.
struct ComparedSource {
    std::vector<const Contribution*> runs;

    // Of the first run that has it.
    const Contribution& any() const;
};

// Sources are the same where kind, reach and distance are; of several such in one run the first is the first
// of another, the second the second. As the first run has them, then what each next one has beside them.
std::vector<ComparedSource> compareSources(const std::vector<std::span<const Contribution>>& runs);

// As contributions of no kind of their own, so that losses compare as sources do.
std::vector<Contribution> asContributions(const std::vector<Loss>& losses);

} // namespace korvel
