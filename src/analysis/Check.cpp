#include "analysis/Check.h"

#include "analysis/NetworkChecks.h"
#include "analysis/PointChecks.h"

#include <algorithm>
#include <array>

namespace korvel {

std::string_view nameOf(CheckKind kind) {
    static constexpr std::array<std::string_view, checkKinds> names = {
        "percentile_order",       "mean_above_p99",    "limits",  "distance_order", "distance_beyond_reach",
        "reach_without_points",   "next_without_line", "circle",  "confluence",     "observed_without_target",
        "target_without_station", "label_twice",       "negative"};
    return names[static_cast<std::size_t>(kind)];
}

std::vector<CheckFinding> checkRun(const RunFile& run, std::size_t places) {
    std::vector<CheckFinding> found = checkValues(run, places);
    for (auto check : {checkDistances, checkTargets, checkLabels, checkNetwork, checkConfluences})
        for (CheckFinding& finding : check(run, places))
            found.push_back(std::move(finding));
    std::erase_if(found, [](const CheckFinding& finding) { return finding.count == 0; });
    std::sort(found.begin(), found.end(),
              [](const CheckFinding& a, const CheckFinding& b) { return a.kind < b.kind; });
    return found;
}

} // namespace korvel
