// What a data set holds of a series at a point.
#pragma once

namespace korvel {

// One value a series; of percentiles one a series and level.
enum class ValueField {
    meanValue,
    meanLimit1,
    meanLimit2,
    observedMean,
    targetValue,
    percentileValues,
    percentileLimit1,
    percentileLimit2,
    observedPercentiles
};

} // namespace korvel
