#include "study/SeriesValues.h"

#include "results/FirstDataSet.h"

#include <numeric>

namespace korvel {

SeriesValues seriesValues(const ResultsDataSet& results, int series, Statistic statistic) {
    const ValueStore& store = results.values[0];
    const StatisticFacts& facts = factsOf(statistic);
    const auto column = [&](ValueField field) { return store.column(field, series, facts.level); };
    SeriesValues values;
    values.value = column(facts.value);
    values.observed = column(facts.observed);
    if (isFlow(series)) return values;
    values.limit1 = column(facts.limit1);
    values.limit2 = column(facts.limit2);
    values.target = store.column(ValueField::targetValue, series);
    return values;
}

std::vector<int> allSeries(const ResultsDataSet& results) {
    std::vector<int> series(static_cast<std::size_t>(results.seriesCount + 1));
    std::iota(series.begin(), series.end(), 0);
    return series;
}

std::string determinandName(const ResultsDataSet& results, int determinand) {
    return shownDeterminandName(results.determinandNames[determinand]);
}

} // namespace korvel
