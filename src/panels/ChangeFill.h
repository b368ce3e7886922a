// What lies between a change and 0, and what of it is clear.
#pragma once

#include "panels/PathSeries.h"
#include "panels/VisiblePart.h"

#include <vector>

namespace korvel {

// Joined points of the outer edge; the inner one is 0. Places where it is 0 are not filled.
struct FilledEdge {
    std::vector<double> km;
    std::vector<double> values;
    bool thinned = false;

    bool isEmpty() const { return km.empty(); }
};

enum class FilledSide { above, below };

// On one side of 0; nothing where no value lies there.
FilledEdge filledToZero(const VisibleBand& change, FilledSide side);

// What of it lies in stretches, which are in order. Those within `pixelKm` of each other count as one.
FilledEdge clearPart(const FilledEdge& filled, const std::vector<ClearStretch>& stretches, double pixelKm);

} // namespace korvel
