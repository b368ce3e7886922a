// The key above the panels: which line is which run, and what else is drawn.
#pragma once

#include "panels/PanelMeasures.h"
#include "panels/ProfileLayout.h"

namespace korvel {

struct LaidOutKey {
    std::vector<ProfileKeyEntry> entries;
    double bottom = 0;
};

LaidOutKey layOutKey(const ProfileData& data, const PanelLook& look, const PlotArea& area,
                     const TextMetrics& metrics);

Pen curvePen(std::size_t run, const PanelLook& look);
Pen targetPen(std::size_t run, const PanelLook& look);
Pen observedPen(std::size_t run, const PanelLook& look);

} // namespace korvel
