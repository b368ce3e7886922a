#include "study/SeriesValues.h"

#include "results/FirstDataSet.h"

namespace korvel {

SeriesValues seriesValues(const ResultsDataSet& results, int series, Statistic statistic) {
    using enum ValueField;
    const ValueStore& store = results.values[0];
    const bool mean = statistic == Statistic::mean;
    const int level = mean ? 0 : static_cast<int>(statistic) - static_cast<int>(Statistic::p90);
    SeriesValues values;
    values.value = store.column(mean ? meanValue : percentileValues, series, level);
    values.observed = store.column(mean ? observedMean : observedPercentiles, series, level);
    if (isFlow(series)) return values;
    values.limit1 = store.column(mean ? meanLimit1 : percentileLimit1, series, level);
    values.limit2 = store.column(mean ? meanLimit2 : percentileLimit2, series, level);
    values.target = store.column(targetValue, series);
    return values;
}

std::string determinandName(const ResultsDataSet& results, int determinand) {
    return shownDeterminandName(results.determinandNames[determinand]);
}

} // namespace korvel
