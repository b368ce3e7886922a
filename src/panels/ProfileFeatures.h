// The features of a way under its distance axis: a mark for each, and names as far as there is room.
#pragma once

#include "panels/PanelMeasures.h"
#include "panels/ProfileLayout.h"

namespace korvel {

struct FeatureStrip {
    double left = 0; // of the texts
    double right = 0;
    int rows = 0;
};

struct PlacedFeatures {
    std::vector<FeatureMark> marks; // as if the axis were at 0
    int rows = 0;
};

PlacedFeatures placeFeatures(const ProfileData& data, const PanelLook& look, const Scale& distance,
                             const FeatureStrip& strip, const TextMetrics& metrics);

void moveDown(std::vector<FeatureMark>& marks, double by);

} // namespace korvel
