// Heights and distances of panels, made from the height of a line of text.
#pragma once

#include "panels/PanelLook.h"

namespace korvel {

struct PanelMeasures {
    double line = 0;
    double pad = 0; // round the whole
    double letter = 0;

    PanelMeasures(const PanelLook& look, const TextMetrics& metrics)
        : line(metrics.measure("0", look.font).height),
          pad(0.6 * line),
          letter(metrics.measure("0", look.font).width) {}

    double title() const { return 1.35 * line; } // above a panel
    double gap() const { return 0.55 * line; }   // under a panel
    double leastPlot() const { return 2.6 * line; }
    double tickRoom() const { return 1.9 * line; } // from one number of a value axis to the next
    double kmRoom() const { return 9 * letter; }
    double kmNumbers() const { return 1.45 * line; }
    double reachNames() const { return 1.4 * line; }
    double featureGap() const { return 0.9 * line; } // leaders slant in it
    double featureRow() const { return 1.15 * line; }
    double featureReach() const { return 5 * line; }
    double keyRow() const { return 1.45 * line; }
    double sample() const { return 2 * line; } // of a line in the key
    double cross() const { return 0.25 * line; }
};

} // namespace korvel
