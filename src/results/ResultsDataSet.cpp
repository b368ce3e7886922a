#include "results/ResultsDataSet.h"

namespace korvel {

ResultsDataSet RESULTS;

void ResultsDataSet::forgetReaches() {
    const std::string name = reachNames[0];
    const double length = reachLengths[0];
    reachNames.clear();
    reachLengths.clear();
    reachNames.set(0, name);
    reachLengths.set(0, length);
}

} // namespace korvel
