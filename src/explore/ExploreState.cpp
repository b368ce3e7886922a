#include "explore/ExploreState.h"

namespace korvel {

std::vector<std::size_t> ExploreState::shownRuns() const {
    std::vector<std::size_t> shown;
    if (isEmpty()) return shown;
    for (std::size_t run = 0; run < study->runs().size(); ++run)
        if (isShown(run)) shown.push_back(run);
    return shown;
}

} // namespace korvel
