// How a report that takes long is watched, and how it may end.
#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>

namespace korvel {

// Hears the share done, 0 to 1, and answers whether to go on. May be empty.
using ReportProgress = std::function<bool(double)>;

enum class ReportEnd { done, cancelled };

// Asks to go on with so many of the selected reaches begun. A reach continued on another page counts again,
// so the share is held at 1.
inline bool goesOn(const ReportProgress& progress, int reachesBegun, std::size_t reachesSelected) {
    if (!progress) return true;
    const double selected = static_cast<double>(std::max<std::size_t>(reachesSelected, 1));
    return progress(std::min(reachesBegun / selected, 1.0));
}

} // namespace korvel
