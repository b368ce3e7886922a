#include "results/ResultsDataSet.h"

#include "basic/Text.h"

namespace korvel {

ResultsDataSet RESULTS;

SeriesKind ResultsDataSet::kindOf(int series) const {
    if (series == 0) return SeriesKind::flow;
    return series <= determinandCount ? SeriesKind::concentration : SeriesKind::load;
}

int ResultsDataSet::determinandOf(int series) const {
    return kindOf(series) == SeriesKind::load ? series - determinandCount : series;
}

int ResultsDataSet::loadOf(int determinand) const {
    return determinand == 0 ? 0 : determinandCount + determinand;
}

SeriesName ResultsDataSet::nameOf(int series) const {
    const std::string& name = seriesNames[series];
    if (kindOf(series) == SeriesKind::flow) return {name, ""};
    constexpr std::size_t kindLength = std::string_view("(Conc)").size(); // as long as "(Load)"
    return {withoutLast(name, kindLength + 1), last(name, kindLength)};
}

void ResultsDataSet::forgetReaches() {
    const std::string name = reachNames[0];
    const double length = reachLengths[0];
    reachNames.clear();
    reachLengths.clear();
    reachNames.set(0, name);
    reachLengths.set(0, length);
}

} // namespace korvel
